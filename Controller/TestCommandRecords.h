#pragma once

#include <cstdint>

// The records a page's test request becomes, field by field as the target
// commands take them.

struct SAfcStartCmd {
    uint16_t uarfcn = 0;
    uint16_t afcDac = 0;
    uint32_t paMode = 0;
    uint16_t afcData = 0;
    uint16_t capId = 0;
};

struct SDpchTxCmd {
    uint16_t uarfcn = 0;
    uint16_t afcDac = 0;
    uint16_t apcData = 0;
    uint16_t reserved = 0;
    uint32_t paMode = 0;
    uint8_t directionMask = 0;  // bit i + 1: time slot i is uplink
    uint8_t modulationMask = 0; // bit i + 1: time slot i is 16QAM
    uint8_t fixPowerFlag = 0;
    int8_t wantedPower = 0;
    uint8_t useFixPower = 0; // chooses the command with the fixed power
};

struct SRssiCmd {
    uint16_t uarfcn = 0;
    uint16_t afcDac = 0;
    uint32_t mode = 0;
    uint8_t gain = 0;
    uint8_t agcTracking = 0;
};

// The answer of an RSSI measure, 8 bytes; rssi is written by the plain
// command, rssiEx (1/8 dB) by the extended one.
struct SRssiResult {
    int8_t rssi = 0;
    uint8_t pad = 0;
    int16_t rssiEx = 0;
    uint16_t dspPower = 0;
    uint8_t usedGain = 0;
    uint8_t pad2 = 0;
};
static_assert(sizeof(SRssiResult) == 8, "the RSSI answer is 8 bytes");

struct SRegWriteCmd {
    uint16_t regAddr = 0;
    uint16_t regValue = 0;
};
