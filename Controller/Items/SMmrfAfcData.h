#pragma once

#include <cstdint>

// The AFC data of a multi-RAT radio as the tool holds them, whatever the
// version of the target's commands.
struct SMmrfAfcData {
    // The DAC value at which the crystal is on frequency (16 bits used).
    uint32_t initAfcDac = 0;
    // As the target stores it: 4096 over the Hz per DAC step, rounded.
    int32_t slope = 0;
    // The crystal's load capacitor id.
    uint32_t capId = 0;
    // The crystal's load value in its low power mode.
    uint32_t cload = 0;
    // Of version 3 targets only.
    int16_t aac = 0;
};
