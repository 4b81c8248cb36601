#pragma once

#ifndef _WIN32
#include <locale.h>
#endif
#include <string>

namespace vireo {

/// Makes the C library's number conversions of this thread use the C locale, while it lives.
class ScopedCLocale {
public:
    ScopedCLocale();
    ScopedCLocale(const ScopedCLocale&) = delete;
    ScopedCLocale& operator=(const ScopedCLocale&) = delete;
    ~ScopedCLocale();

private:
#ifdef _WIN32
    bool m_changed = false;
    int m_threadMode = 0;
    std::string m_before;
#else
    locale_t m_before;
#endif
};

} // namespace vireo
