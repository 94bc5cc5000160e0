#pragma once

#include "TavoTargetAccess.h"

// Switches the target into and out of the Ubin test mode.
class CTdscdmaUbinMode {
public:
    bool EnableUbin();
    bool DisableUbin();

private:
    bool SetMode(unsigned short mode);

    CTavoTargetAccess m_targetAccess;
};
