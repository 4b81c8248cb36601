#include "viewers/controls/ElapsedTime.h"

#include "platform/Text.h"

#include <algorithm>

namespace vireo {

ElapsedTime ElapsedTime::FromMilliseconds(std::int64_t milliseconds)
{
    const std::int64_t seconds = (std::max<std::int64_t>(milliseconds, 0) + 500) / 1000;
    return {seconds / 3600, static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60)};
}

std::string ElapsedTime::Text() const
{
    return Format("%lld:%d%d:%d%d", static_cast<long long>(hours), minutes / 10, minutes % 10,
        seconds / 10, seconds % 10);
}

} // namespace vireo
