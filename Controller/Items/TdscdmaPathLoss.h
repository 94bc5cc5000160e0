#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "BandCalItem.h"
#include "TdscdmaPathlossData.h"

class CPathlossCommand;

// The TD-SCDMA RX path loss calibration item of targets whose records carry
// no structure version: one NVRAM record per band group through the NVRAM
// service, three gain modes on the target (the database's form leaves the
// fourth row of the tool's record alone). V2 and V3 move the same data
// through layer 1's commands.
//
// In a Cal/INI file each band group has its section. Losses are in 1/8 dB on
// a target with extended AGC, written times 0.125 with three decimals and
// read back times 8 with the fraction dropped towards zero; else plain
// integers.
class CTdscdmaPathLoss : public CBandCalItem {
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

    // Whether the file holds the section of a band group the target supports.
    bool IsAnyPathlossSectionExist(TIniFile *file) { return IsAnyBandSectionExist(file); }

    // The data of one band group (0 to 4), valid or not; the valid flags stay.
    _FTA_tl1cal_pathlossData_T GetBandData(int band) const;
    void SetBandData(int band, const _FTA_tl1cal_pathlossData_T &data);

    // The NVRAM record and the file section of a band group; null outside 0 to 4.
    static const char *Lid(int band);
    static const char *Section(int band);

protected:
    const char *BandSection(int band) const override { return Section(band); }

    // The movements over layer 1's commands: each supported band group's
    // record (CommandRecord) read or written whole, the writes inside the
    // target's integrity record. An upload makes the data valid after each
    // group, or only once all are read (`validOnlyWhenComplete`).
    uint32_t UploadByCommand(const CPathlossCommand &command, bool validOnlyWhenComplete);
    uint32_t DownloadByCommand(const CPathlossCommand &command);
    // The record of a band group that the commands carry.
    virtual void *CommandRecord(int band) { return &m_bandData[size_t(band)]; }

    // The rows of one band group's record that a section holds.
    struct SRows {
        uint16_t *subbandMaxUarfcn;
        int16_t *subbandLoss; // `modes` rows of 15
        int16_t *tempLoss;    // `modes` rows of 8
        int modes;
    };
    uint32_t ReadSection(TIniFile *file, int band, const SRows &rows);
    uint32_t WriteSection(TIniFile *file, int band, const SRows &rows);
    // The gain modes in a section of the four-mode record.
    int FileModes() { return m_capability.IsRxExtendModeSupported() ? 4 : 3; }

    std::array<_FTA_tl1cal_pathlossData_T, kBandCount> m_bandData{};

private:
    std::array<std::vector<uint8_t>, kBandCount> m_raw;
};
