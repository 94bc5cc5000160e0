#include "TdscdmaContRx.h"

#include "CommandCode.h"

int CTdscdmaContRx::RxOn(uint16_t uarfcn) { return CommandCode(AST_RFTEST_RXOn_r(Handle(), 10000, uarfcn, 1)); }

int CTdscdmaContRx::RxOff(uint16_t uarfcn) { return CommandCode(AST_RFTEST_RXOn_r(Handle(), 10000, uarfcn, 0)); }
