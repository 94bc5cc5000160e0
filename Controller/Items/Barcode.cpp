#include "Barcode.h"

#include <algorithm>
#include <string>

#include "ErrorCodeInfo.h"
#include "TIniFile.h"

const char *const CBarcode::kSection = "Barcode";
const char *const CBarcode::kLid = "NVRAM_EF_BARCODE_NUM_LID";

bool CBarcode::IsSectionInFile(TIniFile *file) const { return file && file->IsSectionExist(kSection); }

TAVO_RESULT CBarcode::PrepareNvramBuffers() { return PrepareRecordBuffer(kLid, m_rawBuffer, &m_rawSize); }

TAVO_RESULT CBarcode::MoveFields(bool toRecord)
{
    for (int i = 0; i < kMaxLength; ++i) {
        const std::string field = "nvram_ef_barcode_num[" + std::to_string(i) + "]";
        char *value = &m_barcode[size_t(i)];
        const TAVO_RESULT result =
            toRecord ? TAVO_NVRAM_SetField(kLid, field.c_str(), m_rawBuffer.data(), m_rawSize, value, 1)
                     : TAVO_NVRAM_GetField(kLid, field.c_str(), m_rawBuffer.data(), m_rawSize, value, 1);
        if (result != TAVO_OK)
            return result;
    }
    m_barcode[kMaxLength] = '\0';
    return TAVO_OK;
}

TAVO_RESULT CBarcode::DecomposeNvramData() { return MoveFields(false); }

TAVO_RESULT CBarcode::ComposeNvramData() { return MoveFields(true); }

uint32_t CBarcode::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isDataValid = false;
    const uint32_t code =
        UploadNvramRecords([this](CNvramBatch &batch) { batch.Add(kLid, m_rawSize, m_rawBuffer.data()); });
    m_isDataValid = code == ERROR_CODE_SUCCESS;
    return code;
}

uint32_t CBarcode::DownloadToFlash()
{
    m_errorMessage.clear();
    return DownloadNvramRecords(m_isDataValid,
                                [this](CNvramBatch &batch) { batch.Add(kLid, m_rawSize, m_rawBuffer.data()); });
}

uint32_t CBarcode::ReadFromFile(TIniFile *file)
{
    m_isDataValid = false;
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, {kSection}, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;
    m_isDataValid = true;
    // A longer text is cut; the rest of the record is zeros.
    const std::string text = file->ReadString(kSection, "Barcode", "");
    m_barcode.fill('\0');
    std::copy_n(text.begin(), std::min<size_t>(text.size(), kMaxLength), m_barcode.begin());
    return ERROR_CODE_SUCCESS;
}

uint32_t CBarcode::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    file->WriteString(kSection, "Barcode", m_barcode.data());
    return ERROR_CODE_SUCCESS;
}
