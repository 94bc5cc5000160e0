#include "TdscdmaDpchTx.h"

#include "CommandCode.h"

int CTdscdmaDpchTx::Start(const SDpchTxCmd &cmd)
{
    if (cmd.useFixPower == 0)
        return CommandCode(AST_CAL_apc_start_r(Handle(), 10000, cmd.uarfcn, cmd.afcDac, cmd.paMode, cmd.apcData,
                                          cmd.directionMask, cmd.modulationMask));
    return CommandCode(AST_CAL_apc_start_ex_r(Handle(), 10000, cmd.uarfcn, cmd.afcDac, cmd.paMode, cmd.apcData,
                                         cmd.directionMask, cmd.modulationMask, cmd.fixPowerFlag, cmd.wantedPower));
}
