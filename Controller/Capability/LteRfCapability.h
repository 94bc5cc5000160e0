#pragma once

#include <cstdint>

#include "CapabilityQueryStatus.h"
#include "TavoTargetAccess.h"

// What the LTE side tells of the target: its RF chip and whether the GPS
// co-clock goes through it.
class CLteRfCapability {
public:
    enum { RECORD_SIZE = 248 };

    SCapabilityQueryStatus GetQueryStatus();

    // The LTE RF id; an id of 0 in the answer is kept as 1.
    uint32_t GetLteRfId();
    bool IsGpsCoClockByErf();

    static void ResetLteRfCapability();

private:
    bool Query();

    CTavoTargetAccess m_targetAccess;
};
