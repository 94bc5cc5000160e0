#include "LteRfCapability.h"

#include "TavoCore.h"

namespace {

struct SLteAnswer {
    SCapabilityQueryStatus status;
    uint8_t record[CLteRfCapability::RECORD_SIZE] = {};
    uint32_t rfId = 0;
};

SLteAnswer s_lte;

constexpr int kRfIdOffset = 8;
constexpr int kGpsCoClockOffset = 112;

} // namespace

using namespace CapabilityRecord;

bool CLteRfCapability::Query()
{
    SCapabilityQueryStatus &status = s_lte.status;
    if (status.isQueried)
        return true;
    status = SCapabilityQueryStatus();

    const int handle = m_targetAccess.GetHandle();
    if (TAVO_QueryAPISupported_r(handle, 10000, "TAVO_ERf_GetRfCapability_r") != TAVO_OK) {
        status.isQueried = true;
        return true;
    }
    status.isApiSupported = true;
    memset(s_lte.record, 0, sizeof s_lte.record);
    const uint32_t request[2] = {56, 180};
    const TAVO_RESULT result =
        TAVO_ERf_GetRfCapability_r(handle, 10000, request, sizeof request, s_lte.record, RECORD_SIZE);
    status.isQueried = true;
    if (result != TAVO_OK)
        return false;
    const uint32_t rfId = Word32(s_lte.record, kRfIdOffset);
    s_lte.rfId = rfId == 0 ? 1 : rfId;
    status.isSuccess = true;
    return true;
}

SCapabilityQueryStatus CLteRfCapability::GetQueryStatus()
{
    Query();
    return s_lte.status;
}

uint32_t CLteRfCapability::GetLteRfId()
{
    Query();
    return s_lte.status.isSuccess ? s_lte.rfId : 0;
}

bool CLteRfCapability::IsGpsCoClockByErf()
{
    Query();
    return s_lte.status.isSuccess && IsBitSet(Word32(s_lte.record, kGpsCoClockOffset), 0);
}

void CLteRfCapability::ResetLteRfCapability() { s_lte = SLteAnswer(); }
