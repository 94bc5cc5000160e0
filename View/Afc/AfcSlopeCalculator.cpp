#include "AfcSlopeCalculator.h"

#include <cmath>

#include "CalTextConverters.h"

CAfcSlopeCalculator::SResult CAfcSlopeCalculator::Evaluate(int16_t d0, int16_t d1, double f0, double f1,
                                                           uint16_t uarfcn)
{
    SResult result;
    // The DAC where the line through (d0, f0) and (d1, f1) crosses zero.
    const float fdata = float(d1 - f1 * (d1 - d0) / (f1 - f0));
    const float rounded = fdata >= 0 ? fdata + 0.5f : fdata - 0.5f;
    result.initAfcDac = int16_t(ScaledToStored(double(rounded), 1.0));
    // Channel N is N / 5 MHz; the slope is normalised to 900 MHz.
    result.slopeFactor = float(((f1 - f0) / double(d1 - d0)) / (uarfcn / 5.0) * 900.0);
    result.slopeInverse = ScaledToStored(4096.0 / double(result.slopeFactor), 1.0);
    result.slope = 4096.0f / float(result.slopeInverse);
    return result;
}
