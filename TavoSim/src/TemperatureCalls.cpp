/* Temperature ADC measures: a sum of measures on an ADC channel and a single
 * read of the temperature channel (the GSM side's ADC calls), and layer 1's
 * RF temperature measure. All read the one sensor of the target, whose value
 * follows the target's temperature (see Thermal). */

#include <cstring>

#include "TavoCore.h"
#include "TargetCall.h"
#include "Thermal.h"

using namespace TavoSim;

namespace {

/* `count` measures of the sensor, added up. */
uint32_t measureSum(const TargetProfile &p, TargetState &state, uint16_t count)
{
    uint32_t sum = 0; /* at most 65535 measures of at most 65535: no overflow */
    for (uint16_t i = 0; i < count; ++i)
        sum += Thermal::measure(p, state);
    return sum;
}

} // namespace

extern "C" {

TAVO_RESULT TAVO_MISC_GetADCMeasureSum_r(int handle, uint32_t timeoutMs, uint8_t channel, uint16_t count,
                                         TavoAdcMeasureSum *answer)
{
    return TargetCall("TAVO_MISC_GetADCMeasureSum_r", handle, timeoutMs,
                      {Input("channel", channel), Input("count", count)})
        .run(answer != nullptr, [&](const TargetProfile &p, TargetState &state) {
            std::memset(answer, 0, sizeof *answer);
            if (!p.hasTadcChannel || channel != p.tadcChannel)
                answer->status = TAVO_ADC_STATUS_NO_SENSOR;
            else if (!p.sensorReady)
                answer->status = TAVO_ADC_STATUS_NOT_READY;
            else
                answer->sum = measureSum(p, state, count);
            return TAVO_OK;
        });
}

TAVO_RESULT TAVO_MISC_GetADCValue_r(int handle, uint32_t timeoutMs, uint16_t *value)
{
    return TargetCall("TAVO_MISC_GetADCValue_r", handle, timeoutMs)
        .run(value != nullptr, [&](const TargetProfile &p, TargetState &state) {
            if (!p.sensorReady)
                return TAVO_RESULT(TAVO_ERR_BUSY); /* no status byte to tell it */
            *value = Thermal::measure(p, state);
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT AST_GetRfTemperature_r(int handle, uint32_t timeoutMs, uint16_t count, TavoRfTemperature *answer)
{
    return TargetCall("AST_GetRfTemperature_r", handle, timeoutMs, {Input("count", count)})
        .run(answer != nullptr, [&](const TargetProfile &p, TargetState &state) {
            std::memset(answer, 0, sizeof *answer);
            if (p.sensorReady && count > 0) {
                answer->status = 1;
                answer->sum = measureSum(p, state, count);
            }
            return TAVO_OK;
        });
}

} // extern "C"
