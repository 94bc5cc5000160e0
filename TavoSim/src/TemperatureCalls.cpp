/* Temperature ADC measures. Placeholder until the thermal model lands. */

#include "TavoCore.h"

extern "C" {

TAVO_RESULT TAVO_MISC_GetADCMeasureSum_r(int, uint32_t, uint8_t, uint16_t, TavoAdcMeasureSum *)
{
    return TAVO_ERR_NOT_SUPPORTED;
}

TAVO_RESULT TAVO_MISC_GetADCValue_r(int, uint32_t, uint16_t *) { return TAVO_ERR_NOT_SUPPORTED; }

TAVO_RESULT AST_GetRfTemperature_r(int, uint32_t, uint16_t, TavoRfTemperature *) { return TAVO_ERR_NOT_SUPPORTED; }

} // extern "C"
