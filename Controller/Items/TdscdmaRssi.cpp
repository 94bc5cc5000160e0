#include "TdscdmaRssi.h"

#include "CommandCode.h"

int CTdscdmaRssi::Measure(const SRssiCmd &cmd, SRssiResult &result)
{
    return CommandCode(AST_CAL_agc_r(Handle(), 10000, cmd.uarfcn, cmd.afcDac, cmd.mode, cmd.gain, cmd.agcTracking,
                                &result.rssi, &result.dspPower, &result.usedGain));
}

int CTdscdmaRssi::MeasureEx(const SRssiCmd &cmd, SRssiResult &result)
{
    return CommandCode(AST_CAL_agc_ex_r(Handle(), 10000, cmd.uarfcn, cmd.afcDac, cmd.mode, cmd.gain, cmd.agcTracking,
                                   &result.rssiEx, &result.dspPower, &result.usedGain));
}
