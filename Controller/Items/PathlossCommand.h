#pragma once

#include <cstdint>

#include "TavoCore.h"

// One generation of layer 1's path loss commands: a request is the head
// (band group, version) and, for a write, the record behind it; a read's
// confirm carries the record behind its head. Only the call's result counts.
class CPathlossCommand {
public:
    using Call = TAVO_RESULT (*)(int handle, uint32_t timeoutMs, const void *request, void *confirm);

    CPathlossCommand(Call read, Call write, uint16_t version, uint32_t recordSize);

    // The band group's record into `record` (recordSize bytes), and back.
    TAVO_RESULT Read(int handle, int band, void *record) const;
    TAVO_RESULT Write(int handle, int band, const void *record) const;

private:
    Call m_read;
    Call m_write;
    uint16_t m_version;
    uint32_t m_recordSize;
};
