#include "TdscdmaRfInit.h"

#include "ErrorCodeInfo.h"

int CTdscdmaRfInit::ResetTl1()
{
    const TAVO_RESULT result = AST_CAL_tl1_reset_r(Handle(), 10000);
    if (result == TAVO_OK) {
        m_errorMessage.clear();
        return ERROR_CODE_SUCCESS;
    }
    m_errorMessage = TavoResultText(result);
    return ERROR_CODE_TAVO_COMMAND_FAILED;
}
