#include "TdscdmaContTx.h"

#include "CommandCode.h"

int CTdscdmaContTx::TxOn(uint16_t uarfcn) { return CommandCode(AST_RFTEST_TXOn_r(Handle(), 10000, uarfcn, 1)); }

int CTdscdmaContTx::TxOff(uint16_t uarfcn) { return CommandCode(AST_RFTEST_TXOn_r(Handle(), 10000, uarfcn, 0)); }
