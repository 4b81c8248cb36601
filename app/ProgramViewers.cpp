#include "app/ProgramLimits.h"
#include "app/ViewerTable.h"
#include "scanner/ScannerChoice.h"
#include "viewers/adjustment/CAdjustCenterCCD_Dialog.h"
#include "viewers/adjustment/CVerticalCameraVerification_Dialog.h"
#include "viewers/lightprofile/CView_LPF_Dialog.h"
#include "viewers/live/CLPF_Dialog.h"
#include "viewers/live/CNCTest_Dialog.h"
#include "viewers/live/ScannerOpening.h"
#include "viewers/noise/CNoiseTest_SM_Dialog.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"
#include "viewers/picture/CPictureView_Dialog.h"
#include "viewers/startest/CStarTest_Dialog.h"
#include "viewers/stitch/CView_Stitch_Dialog.h"
#include "viewers/tonal/CTonalResolutionDialog.h"

#include <memory>
#include <optional>
#include <system_error>
#include <utility>

namespace vireo {

namespace {

/// The scanner of a live test, opened before the main dialog makes way for the test.
class ChosenScanner {
public:
    bool Open(QWidget* parent)
    {
        if (!m_opened)
            m_opened = OpenChosenScanner(ScannerSettingsFile(), parent);
        return m_opened.has_value();
    }
    OpenScanner Take() { return *std::exchange(m_opened, std::nullopt); }

private:
    std::optional<OpenScanner> m_opened;
};

/// Runs a viewer of files, whose figures are checked by the user's limits. The files that it shows
/// are reported to the host, if there is one.
template <typename Dialog>
void Run(Dialog&& dialog, ViewerHost* host)
{
    dialog.UseLimits(std::make_unique<ProgramLimits>(ScannerSettingsFile()));
    if (host)
        dialog.ReportFiles([host](const std::filesystem::path& file) { host->FileShown(file); });
    dialog.exec();
}

void AddLiveTests(ViewerTable& viewers)
{
    const auto scanner = std::make_shared<ChosenScanner>();
    const auto prepare = [scanner](QWidget* parent) { return scanner->Open(parent); };
    viewers.Add(
        "CLPF_Dialog",
        [scanner](const std::filesystem::path&, ViewerHost&, QWidget* parent) {
            if (scanner->Open(parent))
                CLPF_Dialog(scanner->Take(), parent).exec();
        },
        prepare);
    viewers.Add(
        "CNCTest_Dialog",
        [scanner](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            if (!file.empty())
                Run(CNCTest_Dialog(file, parent), &host);
            else if (scanner->Open(parent))
                CNCTest_Dialog(scanner->Take(), parent).exec();
        },
        prepare);
}

} // namespace

ViewerTable ProgramViewers()
{
    ViewerTable viewers;
    viewers.Add("COscilloscope_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            std::error_code ignored;
            const bool isFolder = std::filesystem::is_directory(file, ignored);
            Run(COscilloscope_Dialog(file, isFolder, host, parent), &host);
        });
    viewers.Add("CNoiseTest_SM_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            Run(CNoiseTest_SM_Dialog(file, parent), &host);
        });
    viewers.Add("CView_LPF_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            Run(CView_LPF_Dialog(file, parent), &host);
        });
    viewers.Add("CAdjustCenterCCD_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            Run(CAdjustCenterCCD_Dialog(file, parent), &host);
        });
    viewers.Add("CVerticalCameraVerification_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            Run(CVerticalCameraVerification_Dialog(file, parent), &host);
        });
    AddLiveTests(viewers);
    viewers.Add("CPictureView_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            Run(CPictureView_Dialog(file, parent), &host);
        });
    viewers.SetPictureViewer([](const MarkedPicture& picture, QWidget* parent) {
        Run(CPictureView_Dialog(picture, parent), nullptr);
    });
    viewers.Add("CTonalResolutionDialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            Run(CTonalResolutionDialog(file, parent), &host);
        });
    viewers.Add("CStarTest_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            Run(CStarTest_Dialog(file, host, parent), &host);
        });
    viewers.Add("CView_Stitch_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            CView_Stitch_Dialog dialog(file, parent);
            if (dialog.HasPicture())
                Run(dialog, &host);
        });
    return viewers;
}

} // namespace vireo
