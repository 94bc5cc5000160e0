#pragma once

#include <cstdint>

// The AFC calibration data from two measurements of the frequency error
// (f0 at DAC d0, f1 at d1) on channel `uarfcn`: the DAC at zero error on the
// straight line through the two points, and the slope in Hz per DAC step
// normalised to 900 MHz, as the target will store it (4096 over the slope,
// whole) and give it back.
class CAfcSlopeCalculator {
public:
    struct SResult {
        int16_t initAfcDac = 0;
        float slopeFactor = 0; // before the target's storage
        float slope = 0;       // as it comes back from storage
        uint16_t slopeInverse = 0;
    };

    static SResult Evaluate(int16_t d0, int16_t d1, double f0, double f1, uint16_t uarfcn);
};
