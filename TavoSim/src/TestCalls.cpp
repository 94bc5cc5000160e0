/* Test commands: the radio tests and measurements of the target.
 *
 * One test runs at a time, as on a real target: starting a transmission,
 * reception, DPCH transmission or AFC test while another runs is refused
 * with TAVO_ERR_BUSY; the same start on the same channel again is refused
 * too. An off, or AST_CAL_stop_r, ends the test and is harmless when none
 * runs. */

#include <cmath>

#include "Radio.h"
#include "TavoCore.h"
#include "TargetCall.h"
#include "Thermal.h"

using namespace TavoSim;

namespace {

/* Every change of what the radio does passes here: the target's
 * temperature is brought up to date under the activity that ends. */
void setRadio(const TargetProfile &p, TargetState &state, const RadioState &radio)
{
    Thermal::advance(p, state);
    state.radio = radio;
}

/* Starts the test `radio` unless the radio is busy. */
TAVO_RESULT start(const TargetProfile &p, TargetState &state, const RadioState &radio)
{
    if (state.radio.activity != RadioState::Idle)
        return TAVO_ERR_BUSY;
    setRadio(p, state, radio);
    return TAVO_OK;
}

/* Ends `activity`; harmless when it does not run. Another test is not touched. */
TAVO_RESULT stop(const TargetProfile &p, TargetState &state, RadioState::Activity activity)
{
    if (state.radio.activity == activity)
        setRadio(p, state, RadioState());
    return TAVO_OK;
}

TAVO_RESULT continuous(const char *call, RadioState::Activity activity, int handle, uint32_t timeoutMs,
                       uint16_t uarfcn, uint8_t on)
{
    return TargetCall(call, handle, timeoutMs, {Input("uarfcn", uarfcn), Input("on", on)})
        .run(on <= 1, [&](const TargetProfile &p, TargetState &state) {
            return on ? start(p, state, {activity, uarfcn}) : stop(p, state, activity);
        });
}

QStringList apcInputs(uint16_t uarfcn, uint16_t afcDac, uint32_t paMode, uint16_t apcData, uint8_t directionMask,
                      uint8_t modulationMask)
{
    return {Input("uarfcn", uarfcn),   Input("afcDac", afcDac),       Input("paMode", paMode),
            Input("apcData", apcData), Input("directionMask", directionMask), Input("modulationMask", modulationMask)};
}

QStringList agcInputs(uint16_t uarfcn, uint16_t afcDac, uint32_t mode, uint8_t gain, uint8_t agcTracking)
{
    return {Input("uarfcn", uarfcn), Input("afcDac", afcDac), Input("mode", mode), Input("gain", gain),
            Input("agcTracking", agcTracking)};
}

/* The DSP power as the target reports it: in 1/8 dB two's complement when
 * the profile says so, else in whole dB above -100 dBm. */
uint16_t dspPowerWord(const TargetProfile &p, double dbm)
{
    if (p.capabilityFlags & (1u << 6))
        return uint16_t(int16_t(std::lround(dbm * 8)));
    return uint16_t(std::max(0L, std::lround(dbm + 100)));
}

/* An AGC measure; `writeRssi` stores the level in the command's own unit. */
template <typename WriteRssi>
TAVO_RESULT agcMeasure(const char *call, int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac,
                       uint32_t mode, uint8_t gain, uint8_t agcTracking, bool hasRssi, uint16_t *dspPower,
                       uint8_t *usedGain, WriteRssi writeRssi)
{
    return TargetCall(call, handle, timeoutMs, agcInputs(uarfcn, afcDac, mode, gain, agcTracking))
        .run(hasRssi && dspPower && usedGain && mode <= 7, [&](const TargetProfile &p, TargetState &state) {
            if (state.radio.activity == RadioState::ContinuousTx || state.radio.activity == RadioState::DpchTx)
                return TAVO_RESULT(TAVO_ERR_BUSY);
            const Radio::Measure m = Radio::measure(uarfcn, mode, gain, agcTracking);
            writeRssi(m.rssiDbm);
            *dspPower = dspPowerWord(p, m.dspPowerDbm);
            *usedGain = m.usedGain;
            return TAVO_RESULT(TAVO_OK);
        });
}

} // namespace

extern "C" {

TAVO_RESULT AST_RFTEST_TXOn_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint8_t on)
{
    return continuous("AST_RFTEST_TXOn_r", RadioState::ContinuousTx, handle, timeoutMs, uarfcn, on);
}

TAVO_RESULT AST_RFTEST_RXOn_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint8_t on)
{
    return continuous("AST_RFTEST_RXOn_r", RadioState::ContinuousRx, handle, timeoutMs, uarfcn, on);
}

TAVO_RESULT AST_CAL_apc_start_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac, uint32_t paMode,
                                uint16_t apcData, uint8_t directionMask, uint8_t modulationMask)
{
    return TargetCall("AST_CAL_apc_start_r", handle, timeoutMs,
                      apcInputs(uarfcn, afcDac, paMode, apcData, directionMask, modulationMask))
        .run(paMode <= 2, [&](const TargetProfile &p, TargetState &state) {
            return start(p, state, {RadioState::DpchTx, uarfcn});
        });
}

TAVO_RESULT AST_CAL_apc_start_ex_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac, uint32_t paMode,
                                   uint16_t apcData, uint8_t directionMask, uint8_t modulationMask,
                                   uint8_t fixPowerFlag, int8_t wantedPower)
{
    QStringList inputs = apcInputs(uarfcn, afcDac, paMode, apcData, directionMask, modulationMask);
    inputs << Input("fixPowerFlag", fixPowerFlag) << Input("wantedPower", wantedPower);
    return TargetCall("AST_CAL_apc_start_ex_r", handle, timeoutMs, inputs)
        .run(paMode <= 2 && fixPowerFlag <= 1, [&](const TargetProfile &p, TargetState &state) {
            return start(p, state, {RadioState::DpchTx, uarfcn});
        });
}

TAVO_RESULT AST_CAL_agc_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac, uint32_t mode,
                          uint8_t gain, uint8_t agcTracking, int8_t *rssi, uint16_t *dspPower, uint8_t *usedGain)
{
    return agcMeasure("AST_CAL_agc_r", handle, timeoutMs, uarfcn, afcDac, mode, gain, agcTracking, rssi != nullptr,
                      dspPower, usedGain, [rssi](double dbm) { *rssi = int8_t(std::lround(dbm)); });
}

TAVO_RESULT AST_CAL_agc_ex_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac, uint32_t mode,
                             uint8_t gain, uint8_t agcTracking, int16_t *rssiEx, uint16_t *dspPower, uint8_t *usedGain)
{
    return agcMeasure("AST_CAL_agc_ex_r", handle, timeoutMs, uarfcn, afcDac, mode, gain, agcTracking,
                      rssiEx != nullptr, dspPower, usedGain,
                      [rssiEx](double dbm) { *rssiEx = int16_t(std::lround(dbm * 8)); });
}

TAVO_RESULT AST_CAL_afc_start_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac, uint32_t paMode,
                                uint16_t afcData, uint16_t capId)
{
    return TargetCall("AST_CAL_afc_start_r", handle, timeoutMs,
                      {Input("uarfcn", uarfcn), Input("afcDac", afcDac), Input("paMode", paMode),
                       Input("afcData", afcData), Input("capId", capId)})
        .run(paMode <= 2, [&](const TargetProfile &p, TargetState &state) {
            return start(p, state, {RadioState::Afc, uarfcn, afcDac});
        });
}

TAVO_RESULT AST_CAL_stop_r(int handle, uint32_t timeoutMs)
{
    return TargetCall("AST_CAL_stop_r", handle, timeoutMs).run(true, [](const TargetProfile &p, TargetState &state) {
        setRadio(p, state, RadioState());
        return TAVO_RESULT(TAVO_OK);
    });
}

TAVO_RESULT AST_CAL_read_abb_reg_r(int handle, uint32_t timeoutMs, uint16_t addr, uint16_t *value)
{
    return TargetCall("AST_CAL_read_abb_reg_r", handle, timeoutMs, {Input("addr", addr)})
        .run(value != nullptr, [&](const TargetProfile &, TargetState &state) {
            *value = Radio::registerValue(state, addr);
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT AST_CAL_write_abb_reg_r(int handle, uint32_t timeoutMs, uint16_t addr, uint16_t value)
{
    return TargetCall("AST_CAL_write_abb_reg_r", handle, timeoutMs, {Input("addr", addr), Input("value", value)})
        .run(true, [&](const TargetProfile &, TargetState &state) {
            state.registers.insert(addr, value);
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MISC_GetTADCChannelIndex_r(int handle, uint32_t timeoutMs, uint8_t *channel)
{
    return TargetCall("TAVO_MISC_GetTADCChannelIndex_r", handle, timeoutMs)
        .run(channel != nullptr, [&](const TargetProfile &p, TargetState &) {
            *channel = p.tadcChannel;
            return TAVO_OK;
        });
}

} // extern "C"
