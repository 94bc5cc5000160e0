#include "TdscdmaTadc.h"

#include <cstdio>

#include "ErrorCodeInfo.h"
#include "TIniFile.h"

namespace {

const char *const kLid = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
constexpr uint32_t kTimeoutMs = 10000;

uint32_t Mean(uint32_t sum, uint16_t count) { return sum / (count ? count : 1u); }

std::string AdcKey(int index)
{
    char key[8];
    std::snprintf(key, sizeof key, "ADC%d", index);
    return key;
}

} // namespace

const char *const CTdscdmaTadc::kSection = "TDSCDMA Temperature Sensor";

bool CTdscdmaTadc::IsSectionInFile(TIniFile *file) { return file && file->IsSectionExist(kSection); }

// ---- NVRAM record -----------------------------------------------------------------

TAVO_RESULT CTdscdmaTadc::PrepareNvramBuffers()
{
    if (m_rawBuffer)
        return TAVO_OK;
    uint32_t size = 0;
    const TAVO_RESULT result = TAVO_NVRAM_GetRecordSize(kLid, &size);
    if (result != TAVO_OK)
        return result;
    m_rawSize = size;
    m_rawBuffer = std::make_unique<uint8_t[]>(size);
    return TAVO_OK;
}

TAVO_RESULT CTdscdmaTadc::DecomposeNvramData()
{
    return TAVO_NVRAM_DecomposeTadc(m_adc.data(), m_rawBuffer.get(), m_rawSize);
}

TAVO_RESULT CTdscdmaTadc::ComposeNvramData()
{
    return TAVO_NVRAM_ComposeTadc(m_adc.data(), m_rawBuffer.get(), m_rawSize);
}

uint32_t CTdscdmaTadc::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isDataValid = false;
    const uint32_t code =
        UploadNvramRecords([this](CNvramBatch &batch) { batch.Add(kLid, m_rawSize, m_rawBuffer.get()); });
    m_isDataValid = code == ERROR_CODE_SUCCESS;
    return code;
}

uint32_t CTdscdmaTadc::DownloadToFlash()
{
    m_errorMessage.clear();
    return DownloadNvramRecords(m_isDataValid,
                                [this](CNvramBatch &batch) { batch.Add(kLid, m_rawSize, m_rawBuffer.get()); });
}

// ---- Cal/INI file ------------------------------------------------------------------

uint32_t CTdscdmaTadc::ReadFromFile(TIniFile *file)
{
    m_errorMessage.clear();
    m_isDataValid = false;
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, {kSection}, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;
    m_isDataValid = true;
    for (int i = 0; i < kAdcCount; ++i)
        m_adc[size_t(i)] = uint16_t(file->ReadInt(kSection, AdcKey(i), 0));
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaTadc::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    m_rfChipIdRecorder.WriteTdscdmaRfChipId(file, kSection);
    for (int i = 0; i < kAdcCount; ++i)
        file->WriteInt(kSection, AdcKey(i), m_adc[size_t(i)]);
    return ERROR_CODE_SUCCESS;
}

// ---- Measures ------------------------------------------------------------------------

int CTdscdmaTadc::GetTadcChannelIndex(uint8_t &channel)
{
    const TAVO_RESULT result = TAVO_MISC_GetTADCChannelIndex_r(Handle(), kTimeoutMs, &channel);
    if (result != TAVO_OK) {
        m_errorMessage = "Get the TADC channel failed";
        return ERROR_CODE_TAVO_COMMAND_FAILED;
    }
    return ERROR_CODE_SUCCESS;
}

int CTdscdmaTadc::Measure(uint16_t count, uint32_t &value)
{
    if (!m_capability.IsTadcByCalCommand())
        return MeasureRfTemperature(count, value);
    if (m_gsmCapability.IsTadcMeasureSumSupported())
        return MeasureAdcSum(count, value);
    if (m_gsmCapability.IsTadcSingleReadSupported())
        return ReadAdcValue(value);
    m_errorMessage = "The target offers no temperature ADC measure";
    return ERROR_CODE_NOT_EXECUTED;
}

int CTdscdmaTadc::MeasureAdcSum(uint16_t count, uint32_t &value)
{
    m_errorMessage.clear();
    uint8_t channel = 0;
    const int code = GetTadcChannelIndex(channel);
    if (code != ERROR_CODE_SUCCESS)
        return code;
    TavoAdcMeasureSum answer = {};
    if (TAVO_MISC_GetADCMeasureSum_r(Handle(), kTimeoutMs, channel, count, &answer) != TAVO_OK) {
        m_errorMessage = "Get the ADC measure sum failed";
        return ERROR_CODE_TAVO_COMMAND_FAILED;
    }
    if (answer.status != TAVO_ADC_STATUS_OK) {
        m_errorMessage = "Success status code is 0 but current status code is " + QString::number(answer.status);
        return ERROR_CODE_L1_STATUS;
    }
    value = Mean(answer.sum, count);
    return ERROR_CODE_SUCCESS;
}

int CTdscdmaTadc::ReadAdcValue(uint32_t &value)
{
    m_errorMessage.clear();
    uint16_t adc = 0;
    const TAVO_RESULT result = TAVO_MISC_GetADCValue_r(Handle(), kTimeoutMs, &adc);
    if (result != TAVO_OK)
        return int(FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result));
    value = adc;
    return ERROR_CODE_SUCCESS;
}

int CTdscdmaTadc::MeasureRfTemperature(uint16_t count, uint32_t &value)
{
    m_errorMessage.clear();
    TavoRfTemperature answer = {};
    const TAVO_RESULT result = AST_GetRfTemperature_r(Handle(), kTimeoutMs, count, &answer);
    if (result != TAVO_OK)
        return int(FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result));
    if (answer.status == 0) {
        m_errorMessage = "The RF temperature could not be measured: status code is 0";
        return ERROR_CODE_L1_STATUS;
    }
    value = Mean(answer.sum, count);
    return ERROR_CODE_SUCCESS;
}
