#include "IMEI.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "ErrorCodeInfo.h"
#include "TIniFile.h"

namespace {

constexpr uint32_t kCountTimeoutMs = 3000;

// "IMEI" for the first record, "IMEI2" ... for the others.
std::string KeyOf(int index) { return index == 0 ? "IMEI" : "IMEI" + std::to_string(index + 1); }

} // namespace

const char *const CIMEI::kSection = "IMEI";
const char *const CIMEI::kLid = "NVRAM_EF_IMEI_IMEISV_LID";

bool CIMEI::IsSectionInFile(TIniFile *file) const { return file && file->IsSectionExist(kSection); }

QString CIMEI::GetImei(int index) const
{
    if (index < 0 || index >= kMaxRecords)
        return QString();
    const auto &text = m_imeiText[size_t(index)];
    return QString::fromLatin1(text.data(), int(std::find(text.begin(), text.end(), '\0') - text.begin()));
}

int CIMEI::HandledRecords() const { return std::clamp(m_recordCount, 0, kMaxRecords); }

QString CIMEI::TooManyText(int number)
{
    return QString("Current IMEI number  = %1\nIMEI number max support in the tool = %2\nPlease update the tool version.")
        .arg(number)
        .arg(kMaxRecords);
}

void CIMEI::QueryRecordCount()
{
    if (m_isCountKnown)
        return;
    m_recordCount = 1;
    int count = 0;
    if (TAVO_NVRAM_GetRecordCount(kLid, &count) == TAVO_OK)
        m_recordCount = count;
    // The target's own number wins over the database's.
    uint16_t targetCount = 0;
    if (TAVO_QueryAPISupported_r(Handle(), kCountTimeoutMs, "TAVO_MISC_GetIMEIRecNum_r") == TAVO_OK &&
        TAVO_MISC_GetIMEIRecNum_r(Handle(), kCountTimeoutMs, &targetCount) == TAVO_OK)
        m_recordCount = targetCount;
    m_isCountKnown = true;
}

// ---- NVRAM records --------------------------------------------------------------

TAVO_RESULT CIMEI::PrepareNvramBuffers()
{
    for (int i = 0; i < HandledRecords(); ++i) {
        const TAVO_RESULT result = PrepareRecordBuffer(kLid, m_rawBuffer[size_t(i)], &m_rawSize[size_t(i)]);
        if (result != TAVO_OK)
            return result;
    }
    return TAVO_OK;
}

TAVO_RESULT CIMEI::DecomposeNvramData()
{
    for (int i = 0; i < HandledRecords(); ++i) {
        const TAVO_RESULT result =
            TAVO_NVRAM_DecomposeImei(&m_records[size_t(i)], m_rawBuffer[size_t(i)].data(), m_rawSize[size_t(i)]);
        if (result != TAVO_OK)
            return result;
        std::memcpy(m_imeiText[size_t(i)].data(), m_records[size_t(i)].imei, kTextSize);
    }
    return TAVO_OK;
}

TAVO_RESULT CIMEI::ComposeNvramData()
{
    // A record that cannot be composed is left out of the write; the others go on.
    TAVO_RESULT last = TAVO_OK;
    for (int i = 0; i < HandledRecords(); ++i) {
        if (!m_recordValid[size_t(i)])
            continue;
        std::memcpy(m_records[size_t(i)].imei, m_imeiText[size_t(i)].data(), kTextSize);
        const TAVO_RESULT result = TAVO_NVRAM_ComposeImei(&m_records[size_t(i)], m_rawBuffer[size_t(i)].data(),
                                                          m_rawSize[size_t(i)], m_composeFlag);
        if (result != TAVO_OK) {
            m_recordValid[size_t(i)] = false;
            last = result;
        }
    }
    return last;
}

// ---- Movements ------------------------------------------------------------------

uint32_t CIMEI::UploadFromFlash()
{
    m_errorMessage.clear();
    m_recordValid.fill(false);
    m_isDataValid = false;
    QueryRecordCount();
    // More records than the tool supports: nothing of the target is touched.
    if (m_recordCount > kMaxRecords) {
        m_errorMessage = QString("IMEI number queried from target or DB = %1\nIMEI number support in the tool = "
                                 "%2\nPlease update the tool version.")
                             .arg(m_recordCount)
                             .arg(kMaxRecords);
        return ERROR_CODE_GENERAL;
    }
    const uint32_t code = UploadNvramRecords([this](CNvramBatch &batch) {
        for (int i = 0; i < HandledRecords(); ++i)
            batch.Add(kLid, m_rawSize[size_t(i)], m_rawBuffer[size_t(i)].data(), uint16_t(i + 1));
    });
    if (code != ERROR_CODE_SUCCESS)
        return code;
    m_isDataValid = true;
    std::fill_n(m_recordValid.begin(), HandledRecords(), true);
    return ERROR_CODE_SUCCESS;
}

uint32_t CIMEI::DownloadToFlash() { return DownloadToFlash(true); }

uint32_t CIMEI::DownloadToFlash(bool composeFlag)
{
    m_errorMessage.clear();
    m_composeFlag = composeFlag;
    QueryRecordCount();
    if (!m_isDataValid)
        return FailDataNotValid();
    TAVO_RESULT result = PrepareNvramBuffers();
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_NVRAM_DB_BUFFER, result);
    const TAVO_RESULT composed = ComposeNvramData();

    CNvramBatch batch;
    QString report;
    bool leftOut = false;
    for (int i = 0; i < m_recordCount; ++i) {
        const int number = i + 1;
        if (number > kMaxRecords) {
            m_errorMessage = TooManyText(number);
            return ERROR_CODE_GENERAL;
        }
        if (m_recordValid[size_t(i)]) {
            batch.Add(kLid, m_rawSize[size_t(i)], m_rawBuffer[size_t(i)].data(), uint16_t(number));
            report += QString("\nIMEI %1| Downloaded to flash successfully.").arg(number);
        } else {
            leftOut = true;
            report += QString("\nIMEI %1| Not downloaded.").arg(number);
        }
    }
    result = WriteBatch(batch);
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    if (composed != TAVO_OK) {
        m_errorMessage = DescribeTavoResult(composed) + report;
        return ERROR_CODE_NVRAM_COMPOSE;
    }
    m_errorMessage = report;
    return leftOut && !report.isEmpty() ? ERROR_CODE_PARTIAL_UPDATE : ERROR_CODE_SUCCESS;
}

// ---- Cal/INI file ---------------------------------------------------------------

uint32_t CIMEI::ReadFromFile(TIniFile *file)
{
    m_recordValid.fill(false);
    m_isDataValid = false;
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, {kSection}, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;
    m_isDataValid = true;
    QueryRecordCount();
    for (int i = 0; i < m_recordCount; ++i) {
        if (i >= kMaxRecords) {
            m_errorMessage = TooManyText(i + 1);
            return ERROR_CODE_GENERAL;
        }
        // An absent key leaves its record out; that is no failure.
        if (!file->IsKeyExist(kSection, KeyOf(i)))
            continue;
        const std::string text = file->ReadString(kSection, KeyOf(i), "FFFFFFFF");
        // The decoded record holds 17 characters and their end.
        char *record = reinterpret_cast<char *>(&m_records[size_t(i)]);
        const size_t length = std::min(text.size(), sizeof(TavoImeiRecord) - 1);
        std::memcpy(record, text.data(), length);
        record[length] = '\0';
        std::memcpy(m_imeiText[size_t(i)].data(), record, kTextSize);
        m_recordValid[size_t(i)] = true;
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CIMEI::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    QueryRecordCount();
    for (int i = 0; i < m_recordCount; ++i) {
        if (i >= kMaxRecords) {
            m_errorMessage = TooManyText(i + 1);
            return ERROR_CODE_GENERAL;
        }
        if (m_recordValid[size_t(i)])
            file->WriteString(kSection, KeyOf(i), GetImei(i).toStdString());
    }
    return ERROR_CODE_SUCCESS;
}
