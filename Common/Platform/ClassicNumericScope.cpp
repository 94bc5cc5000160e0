#include "ClassicNumericScope.h"

namespace {

locale_t ClassicLocale()
{
    // Made once and kept for the life of the process.
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", locale_t(nullptr));
    return classic;
}

} // namespace

CClassicNumericScope::CClassicNumericScope() : m_previous(uselocale(ClassicLocale())) {}

CClassicNumericScope::~CClassicNumericScope()
{
    uselocale(m_previous);
}
