#pragma once

#include "ErrorCodeInfo.h"
#include "TavoCore.h"

// The code of a plain target command: 0 when the target took it, 3 otherwise.
inline int CommandCode(TAVO_RESULT result)
{
    return result == TAVO_OK ? ERROR_CODE_SUCCESS : ERROR_CODE_TAVO_COMMAND_FAILED;
}
