#include "scanner/LineRate.h"

namespace vireo {

void LineRate::Count(Time now)
{
    if (++m_count == 0) {
        m_since = now;
        return;
    }
    constexpr std::chrono::milliseconds kStretch{500};
    const auto passed = now - m_since;
    if (passed < kStretch)
        return;
    m_perSecond = m_count / std::chrono::duration<double>(passed).count();
    m_since = now;
    m_count = 0;
}

} // namespace vireo
