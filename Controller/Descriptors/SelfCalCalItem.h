#pragma once

#include "Capability/MmrfCapability.h"
#include "Capability/TdscdmaCapability.h"
#include "Interface/CalItemDescriptor.h"
#include "Items/MultiRatSelfCal.h"
#include "Items/MultiRatSelfCalV2.h"
#include "Items/TdscdmaUbinMode.h"

// "Self Cal": the TD-SCDMA radio's self calibration blocks, by the first or
// the second generation of commands as the target's multi-RAT capability
// says. On targets with the Ubin mode a download runs inside it.
class CSelfCalCalItem : public CCalItemDescriptor {
public:
    static constexpr uint32_t kRatIndex = 1; // TD-SCDMA

    CSelfCalCalItem();

    bool IsSupported() override;
    bool IsInFile(TIniFile *file) override;
    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override;
    void ForgetTarget() override;

private:
    IMultiRatSelfCal &Object();

    CMultiRatSelfCal m_selfCalObj{kRatIndex};
    CMultiRatSelfCalV2 m_selfCalV2Obj{kRatIndex};
    CMmrfCapability m_mmrfCapability;
    CTdscdmaCapability m_tdscdmaCapability;
    CTdscdmaUbinMode m_ubinObj;
};
