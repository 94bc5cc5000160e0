#pragma once

#include <cstdint>
#include <vector>

#include "TavoCore.h"

// One self calibration block as the target reports it: its index on the
// target, its key name (also the key in a Cal/INI file), its size, and its
// bytes once known (empty until then).
struct SSelfCalLidInfo {
    uint32_t index = 0;
    char key[TAVO_SELFCAL_KEY_SIZE] = {};
    std::vector<uint8_t> buffer;
    uint32_t size = 0;
};
