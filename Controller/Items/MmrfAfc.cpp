#include "MmrfAfc.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>

#include "ErrorCodeInfo.h"
#include "Nvram/CalDataIntegrity.h"
#include "TIniFile.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;

// What the file gives for a key it lacks.
constexpr int kDefaultInitAfcDac = 4100;
constexpr double kDefaultSlope = 1.0;
constexpr int kDefaultCapId = 31;
constexpr int kDefaultAac = 0;
constexpr int kDefaultCload = 90000;

// The smallest slope a file can mean; it stands in for a slope of 0.
constexpr float kSmallestSlope = 1e-7f;

// The record fields every version carries.
template <typename Record>
void TakeCommon(SMmrfAfcData &data, const Record &record)
{
    data.initAfcDac = record.initAfcDac;
    data.slope = record.slope;
    data.capId = record.capId;
}

template <typename Record>
Record CommonRecord(const SMmrfAfcData &data)
{
    Record record = {};
    record.initAfcDac = uint16_t(data.initAfcDac);
    record.slope = data.slope;
    record.capId = data.capId;
    return record;
}

} // namespace

const char *const CMmrfAfc::kSection = "MMRF AFC control";
const char *const CMmrfAfc::kOldSection = "AFC control";
const char *const CMmrfAfc::kOldCrystalSection = "Crystal AFC control";
const char *const CMmrfAfc::kDcxoSection = "DCXO low power mode data";

int32_t CMmrfAfc::SlopeToTargetValue(float slope)
{
    constexpr int32_t kOutOfRange = std::numeric_limits<int32_t>::min();
    if (slope == 0.0f)
        return kOutOfRange;
    const float quotient = 4096.0f / slope;
    const float rounded = quotient > 0.0f ? quotient + 0.5f : quotient - 0.5f;
    // A float converts to 32 bits only inside the range; beyond it (and for
    // what is no number) the value has no 32-bit form.
    if (!(rounded >= -2147483648.0f && rounded < 2147483648.0f))
        return kOutOfRange;
    return int32_t(rounded);
}

float CMmrfAfc::TargetValueToSlope(int32_t value) { return 4096.0f / float(value == 0 ? 1 : value); }

bool CMmrfAfc::HasDcxoLpm() { return m_capability.GetAfcVersion() >= 2 && m_capability.IsDcxoLpmSupported(); }

bool CMmrfAfc::IsSectionInFile(TIniFile *file)
{
    if (!file)
        return false;
    const bool hasAfc = file->IsSectionExist(kSection) ||
                        (file->IsSectionExist(kOldSection) && file->IsSectionExist(kOldCrystalSection));
    return hasAfc && (!HasDcxoLpm() || file->IsSectionExist(kDcxoSection));
}

uint32_t CMmrfAfc::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isDataValid = false;
    TAVO_RESULT result = TAVO_OK;
    switch (m_capability.GetAfcVersion()) {
    case 3: {
        TavoMMAfcDataV3 record = {};
        result = TAVO_MMAfc_GetDataV3(Handle(), kTimeoutMs, &record);
        if (result == TAVO_OK) {
            TakeCommon(m_afcData, record);
            m_afcData.aac = record.aac;
            m_afcData.cload = record.cload;
        }
        break;
    }
    case 2: {
        TavoMMAfcDataV2 record = {};
        result = TAVO_MMAfc_GetDataV2(Handle(), kTimeoutMs, &record);
        if (result == TAVO_OK) {
            TakeCommon(m_afcData, record);
            m_afcData.cload = record.cload;
        }
        break;
    }
    default: {
        TavoMMAfcData record = {};
        result = TAVO_MMAfc_GetData(Handle(), kTimeoutMs, &record);
        if (result == TAVO_OK)
            TakeCommon(m_afcData, record);
        break;
    }
    }
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CMmrfAfc::DownloadToFlash()
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    const auto integrity = std::make_unique<CCalDataIntegrity>();
    TAVO_RESULT result = TAVO_OK;
    switch (m_capability.GetAfcVersion()) {
    case 3: {
        auto record = CommonRecord<TavoMMAfcDataV3>(m_afcData);
        record.aac = m_afcData.aac;
        record.cload = m_afcData.cload;
        result = TAVO_MMAfc_SetDataV3(Handle(), kTimeoutMs, &record);
        break;
    }
    case 2: {
        auto record = CommonRecord<TavoMMAfcDataV2>(m_afcData);
        record.cload = m_capability.IsDcxoLpmSupported() ? m_afcData.cload : 0;
        result = TAVO_MMAfc_SetDataV2(Handle(), kTimeoutMs, &record);
        break;
    }
    default: {
        const auto record = CommonRecord<TavoMMAfcData>(m_afcData);
        result = TAVO_MMAfc_SetData(Handle(), kTimeoutMs, &record);
        break;
    }
    }
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    return ERROR_CODE_SUCCESS;
}

uint32_t CMmrfAfc::ReadFromFile(TIniFile *file)
{
    m_errorMessage.clear();
    m_isDataValid = false;
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;

    const char *afcSection = kSection;
    const char *capSection = kSection;
    if (!file->IsSectionExist(kSection)) {
        if (!file->IsSectionExist(kOldSection) || !file->IsSectionExist(kOldCrystalSection))
            return ERROR_CODE_FILE_NO_DATA;
        if (HasDcxoLpm() && !file->IsSectionExist(kDcxoSection))
            return ERROR_CODE_FILE_NO_DATA;
        afcSection = kOldSection;
        capSection = kOldCrystalSection;
    }

    m_afcData.initAfcDac = uint16_t(file->ReadInt(afcSection, "Initial value", kDefaultInitAfcDac));
    const float slope = float(file->ReadDouble(afcSection, "Slope", kDefaultSlope));
    m_afcData.capId = uint32_t(file->ReadInt(capSection, "cap_id", kDefaultCapId));
    m_afcData.slope = SlopeToTargetValue(slope == 0.0f ? kSmallestSlope : slope);
    if (HasDcxoLpm())
        m_afcData.cload = uint32_t(file->ReadInt(kDcxoSection, "cload", kDefaultCload));
    if (m_capability.GetAfcVersion() == 3)
        m_afcData.aac = int16_t(file->ReadInt(kSection, "aac", kDefaultAac));
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CMmrfAfc::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    file->WriteInt(kSection, "Initial value", int(m_afcData.initAfcDac));
    file->WriteString(kSection, "Slope",
                      QString::asprintf("%.4f", double(TargetValueToSlope(m_afcData.slope))).toStdString());
    file->WriteInt(kSection, "cap_id", int(m_afcData.capId));
    if (m_capability.GetAfcVersion() == 3)
        file->WriteInt(kSection, "aac", m_afcData.aac);
    if (HasDcxoLpm())
        file->WriteInt(kDcxoSection, "cload", int(m_afcData.cload));
    return ERROR_CODE_SUCCESS;
}
