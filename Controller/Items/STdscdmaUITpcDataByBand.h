#pragma once

#include <cstdint>

#include "TavoCore.h"

// The TPC data of one band group as the item hands them out and takes them
// back: the TX DAC record followed by the TX CLPC record.
struct STdscdmaUITpcDataByBand {
    TavoTxDacRecord txDac;
    TavoTxClpcRecord txClpc;
};

// The same for targets whose layer 1 serves the TPC records, with the two
// offsets only they hold, in 1/32 dB.
struct STdscdmaUITpcDataByBandV3 : STdscdmaUITpcDataByBand {
    int16_t wantedPowerOffset;
    int16_t paMidPowerOffset;
};

static_assert(sizeof(STdscdmaUITpcDataByBand) == 264, "TPC band data");
static_assert(sizeof(STdscdmaUITpcDataByBandV3) == 268, "TPC V3 band data");
