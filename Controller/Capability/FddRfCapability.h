#pragma once

#include <cstdint>

#include "TavoTargetAccess.h"

// What the 3G FDD side tells of the target: its RF chip.
class CFddRfCapability {
public:
    // Asked of the target on every call; 0 when it cannot tell.
    uint32_t GetFddRfId();

    // Nothing of the FDD side is kept between calls.
    static void ResetFddRfCapability() {}

private:
    CTavoTargetAccess m_targetAccess;
};
