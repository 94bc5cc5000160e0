#pragma once

#include <cstdint>

#include "CapabilityQueryStatus.h"
#include "TavoTargetAccess.h"

// What the target's multi-RAT layer 1 can do. Stateless helper over static
// answers, like all capability classes.
class CMmrfCapability {
public:
    enum { RECORD_SIZE = 144 };

    SCapabilityQueryStatus GetQueryStatus();

    bool IsSelfCalSupported(int rat);
    bool IsSelfCalV2();
    bool IsWorldModeValid();
    uint32_t GetWorldMode();
    bool IsTadcByL1();
    uint32_t GetRficCount();
    bool IsAfcByL1();
    uint32_t GetAfcVersion();
    bool IsDcxoLpmSupported();
    bool IsGpsCoClockByL1();
    uint32_t GetGpsCoClockVersion();
    bool IsMmrfSelfCalSupported();

    static void ResetMmrfCapability();

private:
    bool Query();
    uint32_t Word(int offset);

    CTavoTargetAccess m_targetAccess;
};
