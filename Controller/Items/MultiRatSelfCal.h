#pragma once

#include "Capability/TdscdmaCapability.h"
#include "MultiRatSelfCalBase.h"

// Self calibration blocks of one radio access technology by the first
// generation of commands: the count and the key names, then each block's
// size and data on its own (at most 64 blocks of 16,384 bytes).
//
// Cal/INI: the RAT's section ("TDSCDMA RF SELF CAIBRATION" and its like,
// as files spell them), its RF chip, one key per block.
class CMultiRatSelfCal : public IMultiRatSelfCal {
    Q_OBJECT
public:
    static constexpr int kMaxBlocks = TAVO_SELFCAL_V1_MAX_LIDS;

    explicit CMultiRatSelfCal(uint32_t ratIndex, QObject *parent = nullptr);

    void Reset() override;
    // The section of a RAT index (0 GSM, 1 TD-SCDMA, 2 C2K, 3 WCDMA, 4 and 5 LTE).
    static QString SectionOf(uint32_t ratIndex);

protected:
    bool CollectLidInfo() override;
    uint32_t ReadBlocks() override;
    uint32_t WriteBlocks() override;
    QString Section() const override { return SectionOf(m_ratIndex); }
    bool IsFirstGeneration() const override { return true; }
    void WriteRfChipId(TIniFile *file) override;

    uint16_t RatMask() const { return uint16_t(1u << m_ratIndex); }
    // Writes the RF chip of the RAT into the section.
    void WriteRatRfChipId(TIniFile *file);

    const uint32_t m_ratIndex;
    bool m_isCollected = false;
};
