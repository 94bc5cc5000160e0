#include "TdscdmaBBReg.h"

#include "CommandCode.h"

int CTdscdmaBBReg::Read(uint16_t addr, uint16_t &value) { return CommandCode(AST_CAL_read_abb_reg_r(Handle(), 10000, addr, &value)); }

int CTdscdmaBBReg::Write(const SRegWriteCmd &cmd) { return CommandCode(AST_CAL_write_abb_reg_r(Handle(), 10000, cmd.regAddr, cmd.regValue)); }
