#pragma once

#include <array>

#include "Capability/TdscdmaCapability.h"
#include "CalItemByNvramOperation.h"

// Base of the calibration items whose data come per band group (TPC, RX path
// loss): the five groups of the band plan, the data valid flag and one flag
// per group, and the Cal/INI file's sections, one per group. A group the
// target does not support is never touched.
//
// A file read checks the "RF Chip ID" of every supported group's section,
// makes the data valid, then reads each supported group that has its
// section and makes that group valid; a group without a section keeps its
// data and stays invalid. A file write writes every supported group,
// valid or not.
class CBandCalItem : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static constexpr int kBandCount = 5;

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    // One band group's section; both give a code of the error table.
    virtual uint32_t ReadFromFileSingleBand(TIniFile *file, int band) = 0;
    virtual uint32_t WriteToFileSingleBand(TIniFile *file, int band) = 0;

    bool IsDataValid() const { return m_isDataValid; }
    bool IsBandValid(int band) const { return IsBand(band) && m_isBandValid[size_t(band)]; }

protected:
    // The file section of a band group (0 to 4).
    virtual const char *BandSection(int band) const = 0;
    // Whether the file holds the section of a group the target supports.
    bool IsAnyBandSectionExist(TIniFile *file);

    static bool IsBand(int band) { return band >= 0 && band < kBandCount; }
    bool IsBandSupported(int band) { return m_capability.IsBandGroupSupported(band); }
    void SetAllValid(bool valid);

    bool m_isDataValid = false;
    std::array<bool, kBandCount> m_isBandValid{};
    CTdscdmaCapability m_capability;
};
