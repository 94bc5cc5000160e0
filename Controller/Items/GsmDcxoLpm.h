#pragma once

#include <cstdint>
#include <vector>

#include "CalItemByNvramOperation.h"

// The load value of the crystal oscillator in its low power mode, as the
// GSM side keeps it in its NVRAM record. The multi-RAT AFC item carries the
// same value to targets whose layer 1 keeps it.
//
// Cal/INI: "DCXO low power mode data" with "cload", after the GSM RF chip.
class CGsmDcxoLpm : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static const char *const kSection;
    static const char *const kLid;
    static constexpr int32_t kDefaultCload = 90000;

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    bool IsDataValid() const { return m_isDataValid; }
    int32_t GetCload() const { return m_cload; }

private:
    std::vector<uint8_t> m_rawBuffer;
    bool m_isDataValid = false;
    int32_t m_cload = kDefaultCload;
};
