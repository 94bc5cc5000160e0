#pragma once

#include <QString>

#include <vector>

#include "CalItemByL1Operation.h"
#include "SSelfCalLidInfo.h"

// What the three generations of self calibration items share: the blocks
// the target reports, learned once (CollectLidInfo) and kept until Reset;
// their bytes between target, item and a Cal/INI section, one key of
// hexadecimal text per block. A generation tells how it learns the blocks
// and moves their bytes, its section, and how its texts read.
class IMultiRatSelfCal : public ICalItemByL1Operation {
    Q_OBJECT
public:
    using ICalItemByL1Operation::ICalItemByL1Operation;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    bool IsSectionInFile(TIniFile *file);
    // Forgets the blocks, the flags and the error text.
    virtual void Reset();

    bool IsDataValid() const { return m_isDataValid; }
    const std::vector<SSelfCalLidInfo> &Blocks() const { return m_blocks; }

protected:
    // Learns the blocks of the target, once; false when the target does not tell.
    virtual bool CollectLidInfo() = 0;
    // The blocks' bytes from and to the target: 0, or the code with the text kept.
    virtual uint32_t ReadBlocks() = 0;
    virtual uint32_t WriteBlocks() = 0;
    virtual QString Section() const = 0;
    // The first generation's texts differ from the later ones'.
    virtual bool IsFirstGeneration() const { return false; }
    // What a file's section holds besides the blocks.
    virtual void WriteRfChipId(TIniFile *file) { Q_UNUSED(file); }
    // The text of a failed collection.
    virtual QString CollectFailureText() const;

    std::vector<SSelfCalLidInfo> m_blocks;
    bool m_isDataValid = false;

private:
    uint32_t FailCollect();
};
