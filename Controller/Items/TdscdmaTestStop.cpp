#include "TdscdmaTestStop.h"

#include "CommandCode.h"

int CTdscdmaTestStop::Stop() { return CommandCode(AST_CAL_stop_r(Handle(), 10000)); }
