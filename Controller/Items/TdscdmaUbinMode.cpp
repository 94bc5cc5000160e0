#include "TdscdmaUbinMode.h"

#include "TavoCore.h"

bool CTdscdmaUbinMode::SetMode(unsigned short mode)
{
    uint16_t value = mode;
    return AST_UBIN_MODE_SETUP_r(m_targetAccess.GetHandle(), 10000, &value) == TAVO_OK;
}

bool CTdscdmaUbinMode::EnableUbin() { return SetMode(1); }

bool CTdscdmaUbinMode::DisableUbin() { return SetMode(0); }
