#pragma once

#include <array>
#include <cstdint>

#include "CalItemByL1Operation.h"
#include "Capability/MmrfCapability.h"

// The temperature ADC tables of a multi-RAT radio's RF chips, which its
// layer 1 keeps: a row of 8 ADC values for each chip, as many rows as the
// target has chips (at most 8); the target moves all 8 rows at once.
//
// Cal/INI: "Multi-RAT Temperature Sensor" with "RFIC0", "RFIC1", ... for the
// chips in use, each row as numbers separated by commas.
class CMultiRatTadc : public ICalItemByL1Operation {
    Q_OBJECT
public:
    static const char *const kSection;
    static constexpr int kRowCount = TAVO_MMTADC_RFIC_MAX;
    static constexpr int kPointCount = TAVO_MMTADC_POINTS;
    using Row = std::array<uint16_t, kPointCount>;
    using Table = std::array<Row, kRowCount>;

    using ICalItemByL1Operation::ICalItemByL1Operation;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    bool IsSectionInFile(TIniFile *file) const;
    bool IsDataValid() const { return m_isDataValid; }
    const Table &GetTable() const { return m_table; }

    // The rows in use: the target's RF chip count, at most kRowCount.
    int GetRficCount();

private:
    bool m_isDataValid = false;
    CMmrfCapability m_capability;
    Table m_table = {};
};
