#pragma once

#include <cstdint>

// The RX path loss of one band group as the tool keeps it: per LNA gain
// mode the loss in each of 15 sub-bands (up to the sub-band's highest
// UARFCN) and at 8 temperature points. Little-endian, no gaps: the records
// travel as they stand in the layer-1 commands.

// Four gain modes (high, middle, low, ext), 214 bytes.
struct _FTA_tl1cal_pathlossData_T {
    uint16_t subbandMaxUarfcn[15];
    int16_t subbandLoss[4][15];
    int16_t tempLoss[4][8];
};
static_assert(sizeof(_FTA_tl1cal_pathlossData_T) == 214, "path loss record");

// Eight gain modes (then ext0 to ext3), 398 bytes.
struct _FTA_tl1cal_pathlossData_8level_T {
    uint16_t subbandMaxUarfcn[15];
    int16_t subbandLoss[8][15];
    int16_t tempLoss[8][8];
};
static_assert(sizeof(_FTA_tl1cal_pathlossData_8level_T) == 398, "8-level path loss record");
