#include "GsmRfCapability.h"

#include "TavoCore.h"

namespace {

struct SGsmAnswer {
    SCapabilityQueryStatus status;
    uint8_t ex3[CGsmRfCapability::EX3_RECORD_SIZE] = {};
    uint8_t ex2[CGsmRfCapability::EX2_RECORD_SIZE] = {};
};

SGsmAnswer s_gsm;

constexpr int kWorldModeOffset = 72;
constexpr int kTadcMeasureSumBit = 14;
constexpr int kTadcSingleReadBit = 15;

} // namespace

using namespace CapabilityRecord;

bool CGsmRfCapability::Query()
{
    SCapabilityQueryStatus &status = s_gsm.status;
    if (status.isQueried)
        return true;
    status.isQueried = true;
    memset(s_gsm.ex3, 0, sizeof s_gsm.ex3);
    memset(s_gsm.ex2, 0, sizeof s_gsm.ex2);

    const int handle = m_targetAccess.GetHandle();
    if (TAVO_QueryAPISupported_r(handle, 10000, "TAVO_Rf_QueryMSCapabilityEx3_r") == TAVO_OK) {
        status.isApiSupported = true;
        const uint32_t request[2] = {2, 112};
        if (TAVO_Rf_QueryMSCapabilityEx3_r(handle, 10000, request, sizeof request, s_gsm.ex3, EX3_RECORD_SIZE) !=
            TAVO_OK)
            return false;
        status.isSuccess = true;
    }

    if (TAVO_QueryAPISupported_r(handle, 10000, "TAVO_Rf_QueryMSCapabilityEx2_r") != TAVO_OK)
        return true;
    status.isSuccess = false;
    status.isApiSupported = true;
    if (TAVO_Rf_QueryMSCapabilityEx2_r(handle, 10000, s_gsm.ex2, EX2_RECORD_SIZE) != TAVO_OK)
        return false;
    status.isSuccess = true;
    return true;
}

SCapabilityQueryStatus CGsmRfCapability::GetQueryStatus()
{
    Query();
    return s_gsm.status;
}

bool CGsmRfCapability::IsWorldModeValid()
{
    Query();
    return s_gsm.status.isSuccess && IsValid(Word16(s_gsm.ex3, kWorldModeOffset));
}

uint32_t CGsmRfCapability::GetWorldMode()
{
    Query();
    return s_gsm.status.isSuccess ? Value(Word16(s_gsm.ex3, kWorldModeOffset)) : 0;
}

bool CGsmRfCapability::IsTadcMeasureSumSupported()
{
    Query();
    return s_gsm.status.isSuccess && IsBitSet(Word32(s_gsm.ex2, 0), kTadcMeasureSumBit);
}

bool CGsmRfCapability::IsTadcSingleReadSupported()
{
    Query();
    return s_gsm.status.isSuccess && IsBitSet(Word32(s_gsm.ex2, 0), kTadcSingleReadBit);
}

uint32_t CGsmRfCapability::GetGsmRfId()
{
    uint32_t rfId = 0;
    return TAVO_Rf_GetRFID_r(m_targetAccess.GetHandle(), 10000, &rfId) == TAVO_OK ? rfId : 0;
}

void CGsmRfCapability::ResetGsmRfCapability() { s_gsm = SGsmAnswer(); }
