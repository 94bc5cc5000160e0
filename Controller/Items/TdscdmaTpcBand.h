#pragma once

// The band groups of the TPC data, the NVRAM records that hold them and
// their sections in a Cal/INI file. Every function gives null outside 0 to 4.
namespace TdscdmaTpcBand {

constexpr int kCount = 5;

const char *TxDacLid(int band);
const char *TxClpcLid(int band);
const char *Section(int band);

} // namespace TdscdmaTpcBand
