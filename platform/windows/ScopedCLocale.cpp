#include "platform/ScopedCLocale.h"

#include <clocale>
#include <cstring>

namespace vireo {

// The C runtime starts in the C locale and nothing of ours changes it, so the common case costs one
// look at the decimal point.
ScopedCLocale::ScopedCLocale()
{
    if (std::strcmp(std::localeconv()->decimal_point, ".") == 0)
        return;
    m_changed = true;
    m_threadMode = _configthreadlocale(_ENABLE_PER_THREAD_LOCALE);
    m_before = std::setlocale(LC_NUMERIC, nullptr);
    std::setlocale(LC_NUMERIC, "C");
}

ScopedCLocale::~ScopedCLocale()
{
    if (!m_changed)
        return;
    std::setlocale(LC_NUMERIC, m_before.c_str());
    _configthreadlocale(m_threadMode);
}

} // namespace vireo
