#include "GeneralOperation.h"

QString IGeneralOperation::TavoResultText(TAVO_RESULT result)
{
    return "TAVO_RESULT = " + QString::fromUtf8(TAVO_GetResultText(result));
}
