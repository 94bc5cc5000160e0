#pragma once

#include <cstdint>
#include <vector>

#include "Capability/TdscdmaCapability.h"
#include "CalItemByNvramOperation.h"
#include "TestCommandRecords.h"

// The TD-SCDMA AFC calibration item of targets whose layer 1 does not keep
// AFC data itself: the DAC value at which the crystal is on frequency and
// the inverse slope (4096 over Hz per DAC step) from the AFC record, and the
// crystal's load capacitor id from the CAP record where the target's
// database has one. The same object starts the AFC test.
//
// Its Cal/INI section "TDSCDMA AFC control" holds "Initial value", "Slope"
// in Hz per DAC step and, except on structure versions 1 and 2, "CAP ID".
class CTdscdmaAfc : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static const char *const kSection;

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    // The data, valid or not; the valid flags stay.
    TavoAfcRecord GetAfcData() const { return m_afcData; }
    void SetAfcData(const TavoAfcRecord &data) { m_afcData = data; }

    // Starts the AFC test: 0, or 3 when the target refuses.
    int StartAfc(const SAfcStartCmd &cmd);

    bool IsSectionInFile(TIniFile *file);
    bool IsAfcValid() const { return m_isAfcValid; }

private:
    bool HasCap() const;
    // Structure versions 1 and 2 keep no CAP ID in the file.
    bool FileHasCapId();

    std::vector<uint8_t> m_afcBuffer;
    std::vector<uint8_t> m_capBuffer;
    TavoAfcRecord m_afcData = {};
    bool m_isCapValid = false;
    bool m_isAfcValid = false;
    CTdscdmaCapability m_capability;
};
