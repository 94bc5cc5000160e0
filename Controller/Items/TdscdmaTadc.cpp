#include "TdscdmaTadc.h"

#include "ErrorCodeInfo.h"

int CTdscdmaTadc::GetTadcChannelIndex(uint8_t &channel)
{
    const TAVO_RESULT result = TAVO_MISC_GetTADCChannelIndex_r(Handle(), 10000, &channel);
    if (result != TAVO_OK) {
        m_errorMessage = "Get the TADC channel failed";
        return ERROR_CODE_TAVO_COMMAND_FAILED;
    }
    return ERROR_CODE_SUCCESS;
}
