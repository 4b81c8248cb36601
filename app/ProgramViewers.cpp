#include "app/ViewerTable.h"
#include "viewers/noise/CNCTest_Dialog.h"
#include "viewers/noise/CNoiseTest_SM_Dialog.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"
#include "viewers/picture/CPictureView_Dialog.h"
#include "viewers/startest/CStarTest_Dialog.h"
#include "viewers/stitch/CView_Stitch_Dialog.h"
#include "viewers/tonal/CTonalResolutionDialog.h"

#include <system_error>

namespace vireo {

namespace {
constexpr std::string_view kNoiseCheck = "CNCTest_Dialog";
}

ViewerTable ProgramViewers()
{
    ViewerTable viewers;
    viewers.Add("COscilloscope_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            std::error_code ignored;
            const bool isFolder = std::filesystem::is_directory(file, ignored);
            COscilloscope_Dialog(file, isFolder, host, parent).exec();
        });
    viewers.Add("CNoiseTest_SM_Dialog",
        [](const std::filesystem::path& file, ViewerHost&, QWidget* parent) {
            CNoiseTest_SM_Dialog(file, parent).exec();
        });
    viewers.Add(kNoiseCheck, [](const std::filesystem::path& file, ViewerHost&, QWidget* parent) {
        // Without a file the launcher asks for the live test, which is not there yet.
        if (file.empty())
            ViewerTable::ShowNoViewer(kNoiseCheck, file);
        else
            CNCTest_Dialog(file, parent).exec();
    });
    viewers.Add(
        "CPictureView_Dialog", [](const std::filesystem::path& file, ViewerHost&, QWidget* parent) {
            CPictureView_Dialog(file, parent).exec();
        });
    viewers.SetPictureViewer([](const MarkedPicture& picture, QWidget* parent) {
        CPictureView_Dialog(picture, parent).exec();
    });
    viewers.Add("CTonalResolutionDialog",
        [](const std::filesystem::path& file, ViewerHost&, QWidget* parent) {
            CTonalResolutionDialog(file, parent).exec();
        });
    viewers.Add("CStarTest_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            CStarTest_Dialog(file, host, parent).exec();
        });
    viewers.Add(
        "CView_Stitch_Dialog", [](const std::filesystem::path& file, ViewerHost&, QWidget* parent) {
            CView_Stitch_Dialog dialog(file, parent);
            if (dialog.HasPicture())
                dialog.exec();
        });
    return viewers;
}

} // namespace vireo
