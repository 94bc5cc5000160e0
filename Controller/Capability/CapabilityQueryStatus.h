#pragma once

#include <cstdint>
#include <cstring>

// The bookkeeping of one capability query, kept in static storage.
struct SCapabilityQueryStatus {
    bool isQueried = false;      // ran since the last reset, whatever its outcome
    bool isApiSupported = false; // the target offers the command
    bool isSuccess = false;      // the command gave its answer
};

// Reading the raw little-endian capability records.
namespace CapabilityRecord {

inline uint32_t Word32(const uint8_t *record, int offset)
{
    return uint32_t(record[offset]) | uint32_t(record[offset + 1]) << 8 | uint32_t(record[offset + 2]) << 16 |
           uint32_t(record[offset + 3]) << 24;
}

inline uint16_t Word16(const uint8_t *record, int offset)
{
    return uint16_t(record[offset] | record[offset + 1] << 8);
}

// A capability field in its common form: bit 0 says the field is valid,
// bit 1 is unused, the value stands from bit 2 upward.
inline bool IsValid(uint32_t word) { return word & 1u; }
inline uint32_t Value(uint32_t word) { return word >> 2; }
inline bool IsBitSet(uint32_t word, int bit) { return (word >> bit) & 1u; }

} // namespace CapabilityRecord
