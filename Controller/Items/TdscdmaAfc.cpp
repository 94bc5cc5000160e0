#include "TdscdmaAfc.h"

#include <cstdio>

#include "CalTextConverters.h"
#include "ErrorCodeInfo.h"
#include "TIniFile.h"

namespace {

const char *const kAfcLid = "NVRAM_EF_AST_TL1_AFC_DATA_LID";
const char *const kCapLid = "NVRAM_EF_AST_TL1_CAP_DATA_LID";
constexpr uint32_t kTimeoutMs = 10000;

// 4096 over the slope, rounded half away from zero in single precision, low
// 16 bits. A slope of 0 stands for the smallest one the file can mean.
uint16_t SlopeInverse(double slope) { return RoundedToStored(4096.0f / (slope == 0.0 ? 1e-7f : float(slope))); }

} // namespace

const char *const CTdscdmaAfc::kSection = "TDSCDMA AFC control";

bool CTdscdmaAfc::HasCap() const { return TAVO_NVRAM_LidExists(kCapLid) == TAVO_OK; }

bool CTdscdmaAfc::FileHasCapId()
{
    const uint32_t version = m_capability.GetNvramVerNum();
    return version != 1 && version != 2;
}

bool CTdscdmaAfc::IsSectionInFile(TIniFile *file) { return file && file->IsSectionExist(kSection); }

int CTdscdmaAfc::StartAfc(const SAfcStartCmd &cmd)
{
    const TAVO_RESULT result =
        AST_CAL_afc_start_r(Handle(), kTimeoutMs, cmd.uarfcn, cmd.afcDac, cmd.paMode, cmd.afcData, cmd.capId);
    return result == TAVO_OK ? ERROR_CODE_SUCCESS : ERROR_CODE_TAVO_COMMAND_FAILED;
}

// ---- NVRAM records --------------------------------------------------------------

TAVO_RESULT CTdscdmaAfc::PrepareNvramBuffers()
{
    const TAVO_RESULT result = PrepareRecordBuffer(kAfcLid, m_afcBuffer);
    if (result != TAVO_OK || !HasCap())
        return result;
    return PrepareRecordBuffer(kCapLid, m_capBuffer);
}

TAVO_RESULT CTdscdmaAfc::DecomposeNvramData()
{
    TAVO_RESULT result = TAVO_NVRAM_DecomposeAfc(&m_afcData, m_afcBuffer.data(), uint32_t(m_afcBuffer.size()));
    if (result == TAVO_OK && HasCap())
        result = TAVO_NVRAM_GetField(kCapLid, "capId", m_capBuffer.data(), uint32_t(m_capBuffer.size()),
                                     &m_afcData.capId, sizeof m_afcData.capId);
    return result;
}

TAVO_RESULT CTdscdmaAfc::ComposeNvramData()
{
    TAVO_RESULT result = TAVO_NVRAM_ComposeAfc(&m_afcData, m_afcBuffer.data(), uint32_t(m_afcBuffer.size()));
    if (result == TAVO_OK && HasCap())
        result = TAVO_NVRAM_SetField(kCapLid, "capId", m_capBuffer.data(), uint32_t(m_capBuffer.size()),
                                     &m_afcData.capId, sizeof m_afcData.capId);
    return result;
}

uint32_t CTdscdmaAfc::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isAfcValid = m_isCapValid = false;
    const uint32_t code = UploadNvramRecords([this](CNvramBatch &batch) {
        batch.Add(kAfcLid, uint32_t(m_afcBuffer.size()), m_afcBuffer.data());
        if (HasCap())
            batch.Add(kCapLid, uint32_t(m_capBuffer.size()), m_capBuffer.data());
    });
    if (code == ERROR_CODE_SUCCESS)
        m_isAfcValid = m_isCapValid = true;
    return code;
}

uint32_t CTdscdmaAfc::DownloadToFlash()
{
    m_errorMessage.clear();
    return DownloadNvramRecords(m_isAfcValid || m_isCapValid, [this](CNvramBatch &batch) {
        if (m_isAfcValid)
            batch.Add(kAfcLid, uint32_t(m_afcBuffer.size()), m_afcBuffer.data());
        if (m_isCapValid && HasCap())
            batch.Add(kCapLid, uint32_t(m_capBuffer.size()), m_capBuffer.data());
    });
}

// ---- Cal/INI file ---------------------------------------------------------------

uint32_t CTdscdmaAfc::ReadFromFile(TIniFile *file)
{
    m_errorMessage.clear();
    m_isAfcValid = m_isCapValid = false;
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, {kSection}, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;
    m_isAfcValid = m_isCapValid = true;
    m_afcData.initAfcDac = uint16_t(file->ReadInt(kSection, "Initial value", 2550));
    m_afcData.slopeInverse = SlopeInverse(file->ReadDouble(kSection, "Slope", 1.0));
    if (FileHasCapId())
        m_afcData.capId = uint32_t(file->ReadInt(kSection, "CAP ID", 160));
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaAfc::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    m_rfChipIdRecorder.WriteTdscdmaRfChipId(file, kSection);
    file->WriteInt(kSection, "Initial value", m_afcData.initAfcDac);
    if (m_afcData.slopeInverse == 0)
        m_afcData.slopeInverse = 1;
    char slope[32];
    std::snprintf(slope, sizeof slope, "%.4f", double(4096.0f / float(m_afcData.slopeInverse)));
    file->WriteString(kSection, "Slope", slope);
    if (FileHasCapId())
        file->WriteInt(kSection, "CAP ID", int(m_afcData.capId));
    return ERROR_CODE_SUCCESS;
}
