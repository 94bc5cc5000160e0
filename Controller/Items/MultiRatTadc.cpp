#include "MultiRatTadc.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include "CalTextConverters.h"
#include "ErrorCodeInfo.h"
#include "Nvram/CalDataIntegrity.h"
#include "TIniFile.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;
const char *const kDefaultRow = "0,0,0,0,0,0,0,0,";

std::string RowKey(int row) { return "RFIC" + std::to_string(row); }

} // namespace

static_assert(sizeof(TavoMMTadcData) == sizeof(CMultiRatTadc::Table), "the table is the command's record");

const char *const CMultiRatTadc::kSection = "Multi-RAT Temperature Sensor";

int CMultiRatTadc::GetRficCount() { return int(std::min<uint32_t>(m_capability.GetRficCount(), kRowCount)); }

bool CMultiRatTadc::IsSectionInFile(TIniFile *file) const { return file && file->IsSectionExist(kSection); }

uint32_t CMultiRatTadc::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isDataValid = false;
    TavoMMTadcCnf cnf = {};
    const TAVO_RESULT result = TAVO_MMTadc_GetData(Handle(), kTimeoutMs, &cnf);
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    std::memcpy(m_table.data(), &cnf.data, sizeof m_table);
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CMultiRatTadc::DownloadToFlash()
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    TavoMMTadcData data;
    std::memcpy(&data, m_table.data(), sizeof data);
    const auto integrity = std::make_unique<CCalDataIntegrity>();
    const TAVO_RESULT result = TAVO_MMTadc_SetData(Handle(), kTimeoutMs, &data);
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    return ERROR_CODE_SUCCESS;
}

uint32_t CMultiRatTadc::ReadFromFile(TIniFile *file)
{
    m_isDataValid = false;
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, {kSection}, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;
    const int rows = GetRficCount();
    for (int row = 0; row < rows; ++row) {
        const std::string text = file->ReadString(kSection, RowKey(row), kDefaultRow);
        ParseUInt16List(text.c_str(), m_table[size_t(row)].data(), kPointCount);
    }
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CMultiRatTadc::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    const int rows = GetRficCount();
    for (int row = 0; row < rows; ++row) {
        char text[kPointCount * 7 + 1]; // "65535," per value
        FormatUInt16List(text, m_table[size_t(row)].data(), kPointCount, ',');
        file->WriteString(kSection, RowKey(row), text);
    }
    return ERROR_CODE_SUCCESS;
}
