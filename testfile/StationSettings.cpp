#include "testfile/StationSettings.h"

#include "platform/PositionalFile.h"
#include "platform/WorkPaths.h"

#include <string>

namespace vireo {

std::optional<TestFileHeader> LoadStationSettings()
{
    constexpr std::size_t kMostBytes = 1024 * 1024;
    std::string content;
    const auto folder = LocateSettingsFile(SystemSettingsFolders(), kStationFile);
    if (!folder || ReadWholeFile(*folder / kStationFile, kMostBytes, content) != FileStatus::Ok)
        return std::nullopt;
    TestFileHeader settings;
    settings.SetText(content);
    return settings;
}

} // namespace vireo
