#include "GsmDcxoLpm.h"

#include "ErrorCodeInfo.h"
#include "TIniFile.h"

namespace {

const char *const kField = "cload_freq_offset";

} // namespace

const char *const CGsmDcxoLpm::kSection = "DCXO low power mode data";
const char *const CGsmDcxoLpm::kLid = "NVRAM_EF_L1_CLOAD_FREQ_OFFSET_LID";

TAVO_RESULT CGsmDcxoLpm::PrepareNvramBuffers() { return PrepareRecordBuffer(kLid, m_rawBuffer); }

TAVO_RESULT CGsmDcxoLpm::DecomposeNvramData()
{
    return TAVO_NVRAM_GetField(kLid, kField, m_rawBuffer.data(), uint32_t(m_rawBuffer.size()), &m_cload,
                               sizeof m_cload);
}

TAVO_RESULT CGsmDcxoLpm::ComposeNvramData()
{
    return TAVO_NVRAM_SetField(kLid, kField, m_rawBuffer.data(), uint32_t(m_rawBuffer.size()), &m_cload,
                               sizeof m_cload);
}

uint32_t CGsmDcxoLpm::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isDataValid = false;
    const uint32_t code = UploadNvramRecords(
        [this](CNvramBatch &batch) { batch.Add(kLid, uint32_t(m_rawBuffer.size()), m_rawBuffer.data()); });
    m_isDataValid = code == ERROR_CODE_SUCCESS;
    return code;
}

uint32_t CGsmDcxoLpm::DownloadToFlash()
{
    m_errorMessage.clear();
    return DownloadNvramRecords(m_isDataValid, [this](CNvramBatch &batch) {
        batch.Add(kLid, uint32_t(m_rawBuffer.size()), m_rawBuffer.data());
    });
}

uint32_t CGsmDcxoLpm::ReadFromFile(TIniFile *file)
{
    m_errorMessage.clear();
    m_isDataValid = false;
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    // Without the section the value stays at the file's default and the
    // data invalid; the read itself does not fail.
    m_isDataValid = file->IsSectionExist(kSection);
    m_cload = file->ReadInt(kSection, "cload", kDefaultCload);
    return ERROR_CODE_SUCCESS;
}

uint32_t CGsmDcxoLpm::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    m_rfChipIdRecorder.WriteGsmRfChipId(file, kSection);
    file->WriteInt(kSection, "cload", m_cload);
    return ERROR_CODE_SUCCESS;
}
