#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "BandCalItem.h"
#include "STdscdmaUITpcDataByBand.h"
#include "TdscdmaTpcBand.h"

// The TD-SCDMA TPC calibration item of targets whose records carry no
// structure version: per band group a TX DAC record and, on targets with
// closed-loop power control, a TX CLPC record, moved through the NVRAM
// service. A band group the target does not support is never touched.
//
// In a Cal/INI file each band group has its section; powers and
// compensations are written in dB with five decimals (every multiple of
// 1/32 dB exactly) and read back by multiplying by 32 and dropping the
// fraction towards zero.
class CTdscdmaTpc : public CBandCalItem {
    Q_OBJECT
public:
    using CBandCalItem::CBandCalItem;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFileSingleBand(TIniFile *file, int band) override;
    uint32_t WriteToFileSingleBand(TIniFile *file, int band) override;
    // Whether the TX DAC record of the band group has the max PA power field
    // in the host's NVRAM database; a failed query counts as no.
    virtual bool IsMaxPaPowerFieldPresent(int band);

    // Whether the file holds the section of a band group the target supports.
    bool IsAnyTpcSectionExist(TIniFile *file) { return IsAnyBandSectionExist(file); }

    // The data of one band group (0 to 4), valid or not; the valid flags stay.
    STdscdmaUITpcDataByBand GetBandData(int band) const;
    void SetBandData(int band, const STdscdmaUITpcDataByBand &data);

    // dB as the records keep it: times 32, the fraction dropped towards
    // zero, the low 16 bits (1.99999 gives 63, -1.99999 gives -63).
    static int16_t DecibelsToStored(double dB);

protected:
    const char *BandSection(int band) const override { return TdscdmaTpcBand::Section(band); }
    bool HasTxClpc() { return m_capability.GetTxClpcMode() == 1; }

    // A raw record as the NVRAM service moves it, sized by the database once.
    struct SRawRecord {
        std::vector<uint8_t> buffer;
        uint32_t Size() const { return uint32_t(buffer.size()); }
    };

    std::array<SRawRecord, TdscdmaTpcBand::kCount> m_txDacRaw;
    std::array<SRawRecord, TdscdmaTpcBand::kCount> m_txClpcRaw;
    std::array<STdscdmaUITpcDataByBand, TdscdmaTpcBand::kCount> m_bandData{};

private:
    TAVO_RESULT AllocateRaw(const char *lid, SRawRecord &raw);
    void CollectRecords(CNvramBatch &batch, bool validBandsOnly);
};
