#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "CalItemByNvramOperation.h"

// The target's barcode: up to 63 characters in its NVRAM record, one byte
// field each. Cal/INI: section "Barcode", key "Barcode". Failures carry the
// library's text alone.
class CBarcode : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static constexpr int kMaxLength = 63;
    static const char *const kSection;
    static const char *const kLid;

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    bool IsSectionInFile(TIniFile *file) const;
    bool IsDataValid() const { return m_isDataValid; }
    QString GetBarcode() const { return QString::fromLatin1(m_barcode.data()); }

protected:
    QString DescribeTavoResult(TAVO_RESULT result) const override { return LibraryResultText(result); }

private:
    // The 63 fields between the raw record and the text, stopping at the first failure.
    TAVO_RESULT MoveFields(bool toRecord);

    bool m_isDataValid = false;
    uint32_t m_rawSize = 0;
    std::vector<uint8_t> m_rawBuffer;
    std::array<char, kMaxLength + 1> m_barcode = {};
};
