/* Text: result texts and the names of RF chip ids. These calls are answered
 * by the library itself and never reach the target, but they are logged. */

#include <iterator>

#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

const char *const kResultTexts[] = {
    "TAVO_OK: success",
    "TAVO_ERR_FAILED: the target answered with a failure",
    "TAVO_ERR_TIMEOUT: no answer from the target within the time-out",
    "TAVO_ERR_NOT_SUPPORTED: the target does not offer the command",
    "TAVO_ERR_INVALID_ARGUMENT: a null pointer, a wrong size or a value out of range",
    "TAVO_ERR_NOT_CONNECTED: no target behind the handle",
    "TAVO_ERR_BUSY: the target is in a state that refuses the command",
    "TAVO_ERR_NO_DATABASE: no NVRAM database is loaded",
    "TAVO_ERR_LID_NOT_FOUND: the database does not know the LID",
    "TAVO_ERR_FIELD_NOT_FOUND: the record kind has no such field",
    "TAVO_ERR_BUFFER_TOO_SMALL: the buffer cannot hold the answer",
};

const char *const kGsmRfIds[] = {
    "GSM_RF_ID_UNKNOWN", "GSM_RF_ID_RFG1", "GSM_RF_ID_RFG2", "GSM_RF_ID_RFG3", "GSM_RF_ID_RFG4", "GSM_RF_ID_RFG5",
};

const char *const kFddRfIds[] = {
    "FDD_RF_ID_UNKNOWN", "FDD_RF_ID_RFW1", "FDD_RF_ID_RFW2", "FDD_RF_ID_RFW3", "FDD_RF_ID_RFW4",
};

const char *const kLteRfIds[] = {
    "LTE_RF_ID_UNKNOWN", "LTE_RF_ID_RFL1", "LTE_RF_ID_RFL2", "LTE_RF_ID_RFL3", "LTE_RF_ID_RFL4",
    "LTE_RF_ID_RFL5",    "LTE_RF_ID_RFL6", "LTE_RF_ID_RFL7", "LTE_RF_ID_RFL8",
};

template <size_t N>
const char *rfIdText(const char *call, const char *const (&names)[N], uint32_t rfId)
{
    TargetCall::logLocal(call, {Input("rfId", rfId)});
    return rfId < N ? names[rfId] : "Unknown";
}

} // namespace

extern "C" {

const char *TAVO_GetResultText(TAVO_RESULT result)
{
    TargetCall::logLocal("TAVO_GetResultText", {Input("result", result)});
    SimTarget &target = SimTarget::instance();
    if (const char *text = target.resultTextOverride(result))
        return text;
    if (result >= 0 && size_t(result) < std::size(kResultTexts))
        return kResultTexts[result];
    return target.intern(QByteArrayLiteral("TAVO_RESULT ") + QByteArray::number(result) +
                         QByteArrayLiteral(": unknown result code"));
}

const char *TAVO_Rf_GetRfIdText(uint32_t rfId)
{
    return rfIdText("TAVO_Rf_GetRfIdText", kGsmRfIds, rfId);
}

const char *TAVO_3Grf_GetRfIdText(uint32_t rfId)
{
    return rfIdText("TAVO_3Grf_GetRfIdText", kFddRfIds, rfId);
}

const char *TAVO_ERf_GetRfIdText(uint32_t rfId)
{
    return rfIdText("TAVO_ERf_GetRfIdText", kLteRfIds, rfId);
}

} // extern "C"
