#include "GeneralOperation.h"

#include "ErrorCodeInfo.h"

QString IGeneralOperation::TavoResultText(TAVO_RESULT result)
{
    return "TAVO_RESULT = " + LibraryResultText(result);
}

uint32_t IGeneralOperation::FailWithTavoResult(uint32_t code, TAVO_RESULT result)
{
    m_errorMessage = DescribeTavoResult(result);
    return code;
}

uint32_t IGeneralOperation::FailDataNotValid()
{
    m_errorMessage = kDataNotValidText;
    return ERROR_CODE_NOT_EXECUTED;
}
