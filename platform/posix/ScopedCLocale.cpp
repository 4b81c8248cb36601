#include "platform/ScopedCLocale.h"

namespace vireo {

ScopedCLocale::ScopedCLocale()
{
    // Made once and kept for the program's life: it takes part in every number we format.
    static const locale_t kCLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    m_before = uselocale(kCLocale);
}

ScopedCLocale::~ScopedCLocale()
{
    uselocale(m_before);
}

} // namespace vireo
