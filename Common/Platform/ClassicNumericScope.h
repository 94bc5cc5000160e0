#pragma once

#include <clocale>
#include <locale.h>

// Puts the calling thread on the "C" numeric conventions for its lifetime.
// QCoreApplication adopts the user's locale, under which "%lf" and atof would
// write and read a decimal comma; numbers in files must not depend on that.
// Only the calling thread is affected, so workers may format at any time.
class CClassicNumericScope {
public:
    CClassicNumericScope();
    ~CClassicNumericScope();

    CClassicNumericScope(const CClassicNumericScope &) = delete;
    CClassicNumericScope &operator=(const CClassicNumericScope &) = delete;

private:
    locale_t m_previous;
};
