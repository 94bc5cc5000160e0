#include "MmrfCapability.h"

#include "TavoCore.h"

namespace {

struct SMmrfAnswer {
    SCapabilityQueryStatus status;
    uint8_t record[CMmrfCapability::RECORD_SIZE] = {};
};

SMmrfAnswer s_mmrf;

enum EOffset {
    OFFSET_SELF_CAL = 20,
    OFFSET_SELF_CAL_V2 = 24,
    OFFSET_WORLD_MODE = 44,
    OFFSET_TADC = 52,
    OFFSET_AFC = 68,
    OFFSET_DCXO_LPM = 100,
    OFFSET_GPS_CO_CLOCK = 108,
    OFFSET_GPS_CO_CLOCK_VERSION = 112,
    OFFSET_MMRF_SELF_CAL = 124,
};

} // namespace

using namespace CapabilityRecord;

bool CMmrfCapability::Query()
{
    SCapabilityQueryStatus &status = s_mmrf.status;
    if (status.isQueried)
        return true;
    status = SCapabilityQueryStatus();

    const int handle = m_targetAccess.GetHandle();
    if (TAVO_QueryAPISupported_r(handle, 10000, "TAVO_MMRf_GetRfCapability_r") != TAVO_OK) {
        status.isQueried = true;
        return true;
    }
    status.isApiSupported = true;
    memset(s_mmrf.record, 0, sizeof s_mmrf.record);
    const uint32_t request[2] = {4, 132};
    const TAVO_RESULT result =
        TAVO_MMRf_GetRfCapability_r(handle, 10000, request, sizeof request, s_mmrf.record, RECORD_SIZE);
    status.isQueried = true;
    if (result != TAVO_OK)
        return false;
    status.isSuccess = true;
    return true;
}

uint32_t CMmrfCapability::Word(int offset)
{
    Query();
    return s_mmrf.status.isSuccess ? Word32(s_mmrf.record, offset) : 0;
}

SCapabilityQueryStatus CMmrfCapability::GetQueryStatus()
{
    Query();
    return s_mmrf.status;
}

bool CMmrfCapability::IsSelfCalSupported(int rat)
{
    if (rat < 0 || rat > 29)
        return false;
    const uint32_t v1 = Word(OFFSET_SELF_CAL);
    const uint32_t v2 = Word(OFFSET_SELF_CAL_V2);
    return (IsValid(v1) && IsBitSet(Value(v1), rat)) || (IsValid(v2) && IsBitSet(Value(v2), rat));
}

bool CMmrfCapability::IsSelfCalV2() { return IsBitSet(Word(OFFSET_SELF_CAL_V2), 0); }
bool CMmrfCapability::IsWorldModeValid() { return IsValid(Word(OFFSET_WORLD_MODE)); }
uint32_t CMmrfCapability::GetWorldMode() { return Value(Word(OFFSET_WORLD_MODE)); }
bool CMmrfCapability::IsTadcByL1() { return IsBitSet(Word(OFFSET_TADC), 0); }
uint32_t CMmrfCapability::GetRficCount() { return Value(Word(OFFSET_TADC)); }
bool CMmrfCapability::IsAfcByL1() { return IsBitSet(Word(OFFSET_AFC), 0); }
uint32_t CMmrfCapability::GetAfcVersion() { return Value(Word(OFFSET_AFC)) & 0xffu; }
bool CMmrfCapability::IsDcxoLpmSupported() { return IsBitSet(Word(OFFSET_DCXO_LPM), 0); }
bool CMmrfCapability::IsGpsCoClockByL1() { return IsBitSet(Word(OFFSET_GPS_CO_CLOCK), 0); }
uint32_t CMmrfCapability::GetGpsCoClockVersion() { return Value(Word(OFFSET_GPS_CO_CLOCK_VERSION)); }
bool CMmrfCapability::IsMmrfSelfCalSupported() { return IsBitSet(Word(OFFSET_MMRF_SELF_CAL), 0); }

void CMmrfCapability::ResetMmrfCapability() { s_mmrf = SMmrfAnswer(); }
