#include "viewers/noise/StationLimit.h"

#include "testfile/StationSettings.h"

namespace vireo {

std::optional<int> StationNoiseLimit()
{
    const std::optional<TestFileHeader> settings = LoadStationSettings();
    const HeaderValue<int> limit = settings ? settings->NoiseLimit() : HeaderValue<int>();
    return limit.found ? std::optional(limit.value) : std::nullopt;
}

} // namespace vireo
