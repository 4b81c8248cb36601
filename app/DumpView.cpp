#include "app/DumpView.h"

#include "app/FileKind.h"
#include "platform/Path.h"
#include "testfile/PackedDump.h"
#include "viewers/oscilloscope/OscilloscopeFolder.h"

#include <optional>

namespace vireo {

namespace {

bool IsLightProfile(const std::filesystem::path& file)
{
    Recognition recognition;
    return RecogniseFile(file, recognition) == FileStatus::Ok
        && recognition.kind == FileKind::LightProfile;
}

std::optional<std::filesystem::path> FirstLightProfile(const std::filesystem::path& path)
{
    // Looking into every file of a dump of many thousands would keep the user waiting.
    constexpr std::size_t kMostFiles = 1000;
    PackedDump dump;
    if (dump.Open(path) != DumpResult::Ok)
        return std::nullopt;
    std::size_t files = 0;
    for (const PackedMember& member : dump.Members()) {
        if (!member.IsAccepted())
            continue;
        const std::filesystem::path file = FolderOf(path) / member.FileName();
        if (IsLightProfile(file))
            return file;
        if (++files == kMostFiles)
            break;
    }
    return std::nullopt;
}

} // namespace

DumpView ViewOfUnpackedDump(const std::filesystem::path& dump)
{
    if (ListOscilloscopeFolder(FolderOf(dump)).empty()) {
        if (const auto lightProfile = FirstLightProfile(dump))
            return {"CView_LPF_Dialog", *lightProfile};
    }
    return {"COscilloscope_Dialog", FolderOf(dump)};
}

} // namespace vireo
