#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "Capability/TdscdmaCapability.h"
#include "CalItemByNvramOperation.h"
#include "TdscdmaPathlossData.h"

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
class CTdscdmaPathLoss : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static constexpr int kBandCount = 5;

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    // One band group's section; both give a code of the error table.
    virtual uint32_t ReadFromFileSingleBand(TIniFile *file, int band);
    virtual uint32_t WriteToFileSingleBand(TIniFile *file, int band);

    // Whether the file holds the section of a band group the target supports.
    bool IsAnyPathlossSectionExist(TIniFile *file);

    // The data of one band group (0 to 4), valid or not; the valid flags stay.
    _FTA_tl1cal_pathlossData_T GetBandData(int band) const;
    void SetBandData(int band, const _FTA_tl1cal_pathlossData_T &data);

    bool IsDataValid() const { return m_isDataValid; }
    bool IsBandValid(int band) const { return IsBand(band) && m_isBandValid[size_t(band)]; }

    // The NVRAM record and the file section of a band group; null outside 0 to 4.
    static const char *Lid(int band);
    static const char *Section(int band);

protected:
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

    static bool IsBand(int band) { return band >= 0 && band < kBandCount; }
    bool IsBandSupported(int band) { return m_capability.IsBandGroupSupported(band); }
    void SetAllValid(bool valid);

    std::array<_FTA_tl1cal_pathlossData_T, kBandCount> m_bandData{};
    bool m_isDataValid = false;
    std::array<bool, kBandCount> m_isBandValid{};
    CTdscdmaCapability m_capability;

private:
    std::array<std::vector<uint8_t>, kBandCount> m_raw;
};
