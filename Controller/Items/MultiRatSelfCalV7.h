#pragma once

#include "MultiRatSelfCalBase.h"

// Self calibration blocks of the whole multi-RAT radio by the seventh
// generation of commands: every block with its index, size and key name at
// once, and each block's data by its index (at most 960 blocks of 61,440
// bytes), walked in ascending index. Cal/INI: "RF SELF CALIBRATION", no RF chip.
class CMultiRatSelfCalV7 : public IMultiRatSelfCal {
    Q_OBJECT
public:
    static constexpr int kMaxBlocks = TAVO_SELFCAL_V7_MAX_LIDS;

    using IMultiRatSelfCal::IMultiRatSelfCal;

protected:
    bool CollectLidInfo() override;
    uint32_t ReadBlocks() override;
    uint32_t WriteBlocks() override;
    QString Section() const override { return "RF SELF CALIBRATION"; }
    QString CollectFailureText() const override { return "Failed to collect self-cal LID info"; }
};
