#pragma once

// The band groups of the TPC data and the NVRAM records that hold them.
namespace TdscdmaTpcBand {

constexpr int kCount = 5;

// The TX DAC record of a band group, null outside 0 to 4.
const char *TxDacLid(int band);

} // namespace TdscdmaTpcBand
