#include "app/UnpackBeside.h"

#include "platform/Log.h"
#include "platform/Message.h"
#include "platform/Path.h"
#include "platform/Text.h"
#include "platform/WorkPaths.h"
#include "resources/StringTable.h"
#include "testfile/DumpUnpacker.h"
#include "viewers/controls/CWait_Dialog.h"
#include "viewers/controls/FileDialogs.h"
#include "viewers/controls/QtText.h"

#include <algorithm>

namespace vireo {

namespace {

UnpackReport UnpackWithProgress(
    const PackedDump& dump, DumpDescription description, QWidget* parent)
{
    CWait_Dialog wait(QStringFromText(LoadStringResource(StringId::kApplicationTitle)),
        QObject::tr("Unpacking %1").arg(QStringFromPath(dump.Path().filename())),
        CWait_Dialog::Cancelling::Offered, parent);
    UnpackReport report;
    wait.Run([&](WorkProgress& progress) {
        report = UnpackDump(dump, FolderOf(dump.Path()), description, progress);
    });
    return report;
}

void LogReport(const UnpackReport& report)
{
    // A hostile dump may have many members that are left out, and all for the same reason.
    constexpr std::size_t kMostLines = 100;
    Log_Msg_Int("Files unpacked:", static_cast<long long>(report.writtenCount));
    if (report.isCancelled)
        Log_Msg("Unpacking was cancelled");
    if (!report.leftOut.empty())
        Log_Msg_Int("Files left out:", static_cast<long long>(report.leftOut.size()));
    for (std::size_t i = 0; i < std::min(report.leftOut.size(), kMostLines); ++i)
        Log_Msg_Txt(report.leftOut[i].name, report.leftOut[i].Why());
}

} // namespace

bool UnpackBeside(const std::filesystem::path& dump, QWidget* parent)
{
    Log_Msg_Txt("Unpacking", Windows1252FromUtf8(ShownPath(dump)));
    const SettingsFolders settings = SystemSettingsFolders();
    RecordWorkPath(settings, FolderOf(dump));

    PackedDump packed;
    if (const DumpResult result = packed.Open(dump); result != DumpResult::Ok) {
        TellCannotOpen(dump,
            result == DumpResult::CantOpen ? Describe(packed.FileFailure()) : Describe(result));
        return false;
    }
    const auto description =
        IsTestStation(settings) ? DumpDescription::Kept : DumpDescription::Skipped;
    const UnpackReport report = UnpackWithProgress(packed, description, parent);
    LogReport(report);
    if (report.isCancelled)
        return false;
    if (!report.leftOut.empty())
        ShowMessageInUtf8("Not all of this dump could be unpacked:\n" + ShownPath(dump) + "\n\n"
            + Utf8FromWindows1252(ListLeftOut(report)));
    return report.writtenCount > 0 || report.leftOut.empty();
}

} // namespace vireo
