#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "CalItemByNvramOperation.h"

// The target's IMEIs: one NVRAM record each, as many as the target holds
// (the target's own count wins over the database's), at most kMaxRecords.
// The packing of the digits into a record is the target library's; the
// tool moves the 16 text bytes.
//
// Cal/INI: section "IMEI", keys "IMEI", "IMEI2" ... "IMEI10". Failures carry
// the library's text alone.
class CIMEI : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static constexpr int kMaxRecords = 10;
    static constexpr int kTextSize = 16;
    static const char *const kSection;
    static const char *const kLid;

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    // Writes the valid records, the target sealing each anew.
    uint32_t DownloadToFlash() override;
    // The same with the seal the caller asks for.
    uint32_t DownloadToFlash(bool composeFlag);
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    bool IsSectionInFile(TIniFile *file) const;
    bool IsDataValid() const { return m_isDataValid; }
    // Makes the next movement ask the target for its record count again.
    void ResetRecordCount() { m_isCountKnown = false; }
    int GetRecordCount() const { return m_recordCount; }
    // The IMEI of record `index` (from 0) as text.
    QString GetImei(int index) const;

protected:
    QString DescribeTavoResult(TAVO_RESULT result) const override { return LibraryResultText(result); }

private:
    void QueryRecordCount();
    // The records the tool handles: the target's, at most kMaxRecords.
    int HandledRecords() const;
    // The text of a record number beyond what the tool supports.
    static QString TooManyText(int number);

    std::array<std::vector<uint8_t>, kMaxRecords> m_rawBuffer;
    std::array<uint32_t, kMaxRecords> m_rawSize = {};
    std::array<TavoImeiRecord, kMaxRecords> m_records = {};
    std::array<std::array<char, kTextSize>, kMaxRecords> m_imeiText = {};
    int m_recordCount = 1;
    bool m_composeFlag = true;
    bool m_isCountKnown = false;
    std::array<bool, kMaxRecords> m_recordValid = {};
    bool m_isDataValid = false;
};
