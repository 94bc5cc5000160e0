#pragma once

#include <cstdint>

#include "CapabilityQueryStatus.h"
#include "TavoTargetAccess.h"

// What the GSM side tells of the target: its world mode and how the
// temperature ADC can be measured.
class CGsmRfCapability {
public:
    enum { EX3_RECORD_SIZE = 124, EX2_RECORD_SIZE = 8 };

    SCapabilityQueryStatus GetQueryStatus();

    bool IsWorldModeValid();
    uint32_t GetWorldMode();
    bool IsTadcMeasureSumSupported();
    bool IsTadcSingleReadSupported();
    // Asked of the target on every call; 0 when it cannot tell.
    uint32_t GetGsmRfId();

    static void ResetGsmRfCapability();

private:
    bool Query();

    CTavoTargetAccess m_targetAccess;
};
