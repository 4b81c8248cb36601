#include "viewers/noise/StationLimit.h"

#include "platform/PositionalFile.h"
#include "platform/WorkPaths.h"
#include "testfile/TestFileHeader.h"

#include <string>

namespace vireo {

namespace {

constexpr std::size_t kMostBytes = 1024 * 1024;

bool ReadStationFile(std::string& content)
{
    const auto folder = LocateSettingsFile(SystemSettingsFolders(), kStationFile);
    return folder && ReadWholeFile(*folder / kStationFile, kMostBytes, content) == FileStatus::Ok;
}

} // namespace

std::optional<int> StationNoiseLimit()
{
    std::string content;
    if (!ReadStationFile(content))
        return std::nullopt;
    TestFileHeader settings; // Keys and values stand there as in a test file's header.
    settings.SetText(content);
    const HeaderValue<int> limit = settings.NoiseLimit();
    return limit.found ? std::optional(limit.value) : std::nullopt;
}

} // namespace vireo
