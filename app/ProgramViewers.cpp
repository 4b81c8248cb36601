#include "app/ViewerTable.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"

#include <system_error>

namespace vireo {

ViewerTable ProgramViewers()
{
    ViewerTable viewers;
    viewers.Add("COscilloscope_Dialog",
        [](const std::filesystem::path& file, ViewerHost& host, QWidget* parent) {
            std::error_code ignored;
            const bool isFolder = std::filesystem::is_directory(file, ignored);
            COscilloscope_Dialog(file, isFolder, host, parent).exec();
        });
    return viewers;
}

} // namespace vireo
