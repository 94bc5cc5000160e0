#pragma once

#include <utility>
#include <vector>

#include "MultiRatSelfCal.h"

// Self calibration blocks of one radio access technology by the second
// generation of commands: the blocks' indices and sizes at once, and the
// data of up to 16 blocks in one command, laid one after another in at
// most 61,440 bytes (at most 256 blocks). Section and RF chip as in the
// first generation.
class CMultiRatSelfCalV2 : public CMultiRatSelfCal {
    Q_OBJECT
public:
    static constexpr int kMaxBlocks = TAVO_SELFCAL_V2_MAX_LIDS;

    using CMultiRatSelfCal::CMultiRatSelfCal;

    // The positions of the blocks that go in one command each: as many
    // blocks as stay below the command's data space, at most 16; a block
    // that alone fills it goes alone. Pairs of first position and count.
    static std::vector<std::pair<int, int>> Batches(const std::vector<SSelfCalLidInfo> &blocks);

protected:
    bool CollectLidInfo() override;
    uint32_t ReadBlocks() override;
    uint32_t WriteBlocks() override;
    bool IsFirstGeneration() const override { return false; }
};
