#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "CalItemByNvramOperation.h"
#include "Capability/GsmRfCapability.h"
#include "Capability/TdscdmaCapability.h"

class TIniFile;

// The TD-SCDMA temperature ADC item: the eight ADC values at which the
// target's temperature steps lie, kept in one NVRAM record, and the live
// measures of the temperature ADC.
//
// Its Cal/INI section "TDSCDMA Temperature Sensor" holds "RF Chip ID" and
// "ADC0" to "ADC7".
class CTdscdmaTadc : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static constexpr int kAdcCount = 8;
    using AdcTable = std::array<uint16_t, kAdcCount>;
    static const char *const kSection;

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    // The table, valid or not; the valid flag stays.
    AdcTable GetAdcTable() const { return m_adc; }
    void SetAdcTable(const AdcTable &values) { m_adc = values; }

    bool IsSectionInFile(TIniFile *file);

    // The ADC channel that measures the temperature; 0 on success, 3 when
    // the target could not tell.
    int GetTadcChannelIndex(uint8_t &channel);

    // The temperature ADC as the target measures it: by the GSM side's ADC
    // calls where the target says so (the sum of `count` measures, else a
    // single read), else by layer 1's RF temperature measure. 0 and the
    // value, or a code of the error table with the reason in the error text;
    // 2 when the target offers no way to measure.
    int Measure(uint16_t count, uint32_t &value);

    // The measures. Each gives 0 and the mean ADC value of `count` measures
    // (the fraction dropped; a count of 0 counts as 1), or a code of the
    // error table with the reason in the error text.
    //   MeasureAdcSum: `count` measures of the TADC channel added up by the target.
    //   ReadAdcValue: one measure.
    //   MeasureRfTemperature: `count` measures of layer 1's RF temperature sensor.
    int MeasureAdcSum(uint16_t count, uint32_t &value);
    int ReadAdcValue(uint32_t &value);
    int MeasureRfTemperature(uint16_t count, uint32_t &value);

private:
    bool m_isDataValid = false;
    uint32_t m_rawSize = 0;
    std::unique_ptr<uint8_t[]> m_rawBuffer;
    AdcTable m_adc = {};
    CTdscdmaCapability m_capability;
    CGsmRfCapability m_gsmCapability;
};
