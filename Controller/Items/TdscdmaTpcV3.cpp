#include "TdscdmaTpcV3.h"

#include <QtEndian>

#include <cstring>

#include "ErrorCodeInfo.h"
#include "TIniFile.h"
#include "TavoApp.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;
constexpr uint16_t kVersion = 2;
constexpr uint16_t kNvramOperSuccess = AST_TAVO_NVRAM_OPER_SUCCESS;
constexpr int kHeadSize = AST_TAVO_NVRAM_TX_HEAD_SIZE;

// What follows the head of a TX DAC command: the record and the two offsets.
struct STxDacPayload {
    TavoTxDacRecord record;
    int16_t wantedPowerOffset;
    int16_t paMidPowerOffset;
};
static_assert(sizeof(STxDacPayload) + AST_TAVO_NVRAM_TX_HEAD_SIZE == AST_TAVO_NVRAM_TX_DAC_SIZE, "TX DAC command");

} // namespace

uint32_t CTdscdmaTpcV3::Exchange(bool write, int band, uint16_t lidCode, const void *payload, void *answer,
                                 int payloadSize)
{
    uint8_t request[kHeadSize + sizeof(STxDacPayload)] = {};
    uint8_t confirm[kHeadSize + sizeof(STxDacPayload)] = {};
    qToLittleEndian<uint16_t>(uint16_t(band), request);
    qToLittleEndian<uint16_t>(kVersion, request + 2);
    qToLittleEndian<uint16_t>(lidCode, request + 4);
    if (write)
        std::memcpy(request + kHeadSize, payload, size_t(payloadSize));

    const TAVO_RESULT result = write ? AST_Tavo_NVRAM_TX_Write_r(Handle(), kTimeoutMs, request, confirm)
                                     : AST_Tavo_NVRAM_TX_Read_r(Handle(), kTimeoutMs, request, confirm);
    if (result != TAVO_OK)
        return ERROR_CODE_TAVO_COMMAND_FAILED;
    const uint16_t resultCode = qFromLittleEndian<uint16_t>(confirm + 4);
    if (resultCode != kNvramOperSuccess) {
        m_errorMessage = QString("result code != NVRAM_OPER_SUCCESS\nresult_code:%1\nNVRAM_OPER_SUCCESS:%2")
                             .arg(resultCode)
                             .arg(kNvramOperSuccess);
        return ERROR_CODE_GENERAL;
    }
    if (!write)
        std::memcpy(answer, confirm + kHeadSize, size_t(payloadSize));
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaTpcV3::UploadFromFlash()
{
    m_errorMessage.clear();
    SetAllValid(false);
    for (int band = 0; band < TdscdmaTpcBand::kCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        STxDacPayload txDac = {};
        uint32_t code = Exchange(false, band, AST_TAVO_NVRAM_TX_DAC_READ, nullptr, &txDac, sizeof txDac);
        if (code != ERROR_CODE_SUCCESS)
            return code;
        STdscdmaUITpcDataByBand &data = m_bandData[size_t(band)];
        data.txDac = txDac.record;
        m_wantedPowerOffset[size_t(band)] = txDac.wantedPowerOffset;
        m_paMidPowerOffset[size_t(band)] = txDac.paMidPowerOffset;
        if (HasTxClpc()) {
            code = Exchange(false, band, AST_TAVO_NVRAM_TX_CLPC_READ, nullptr, &data.txClpc, sizeof data.txClpc);
            if (code != ERROR_CODE_SUCCESS)
                return code;
        }
        m_isDataValid = true;
        m_isBandValid[size_t(band)] = true;
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaTpcV3::DownloadToFlash()
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    for (int band = 0; band < TdscdmaTpcBand::kCount; ++band) {
        if (!IsBandSupported(band) || !m_isBandValid[size_t(band)])
            continue;
        const STdscdmaUITpcDataByBand &data = m_bandData[size_t(band)];
        const STxDacPayload txDac = {data.txDac, m_wantedPowerOffset[size_t(band)], m_paMidPowerOffset[size_t(band)]};
        uint32_t code = Exchange(true, band, AST_TAVO_NVRAM_TX_DAC_WRITE, &txDac, nullptr, sizeof txDac);
        if (code == ERROR_CODE_SUCCESS && HasTxClpc())
            code = Exchange(true, band, AST_TAVO_NVRAM_TX_CLPC_WRITE, &data.txClpc, nullptr, sizeof data.txClpc);
        if (code != ERROR_CODE_SUCCESS)
            return code;
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaTpcV3::ReadFromFileSingleBand(TIniFile *file, int band)
{
    const uint32_t code = CTdscdmaTpc::ReadFromFileSingleBand(file, band);
    if (code != ERROR_CODE_SUCCESS)
        return code;
    const std::string section = TdscdmaTpcBand::Section(band);
    m_wantedPowerOffset[size_t(band)] = DecibelsToStored(file->ReadDouble(section, "Wanted Power Offset", 0.0));
    m_paMidPowerOffset[size_t(band)] = DecibelsToStored(file->ReadDouble(section, "PA Middle Power Offset", 0.0));
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaTpcV3::WriteToFileSingleBand(TIniFile *file, int band)
{
    const uint32_t code = CTdscdmaTpc::WriteToFileSingleBand(file, band);
    if (code != ERROR_CODE_SUCCESS)
        return code;
    const std::string section = TdscdmaTpcBand::Section(band);
    file->WriteDouble(section, "Wanted Power Offset", m_wantedPowerOffset[size_t(band)] * 0.03125);
    file->WriteDouble(section, "PA Middle Power Offset", m_paMidPowerOffset[size_t(band)] * 0.03125);
    return ERROR_CODE_SUCCESS;
}

bool CTdscdmaTpcV3::IsMaxPaPowerFieldPresent(int band)
{
    Q_UNUSED(band);
    return true;
}

STdscdmaUITpcDataByBandV3 CTdscdmaTpcV3::GetBandDataV3(int band) const
{
    STdscdmaUITpcDataByBandV3 data = {};
    if (IsBand(band)) {
        static_cast<STdscdmaUITpcDataByBand &>(data) = m_bandData[size_t(band)];
        data.wantedPowerOffset = m_wantedPowerOffset[size_t(band)];
        data.paMidPowerOffset = m_paMidPowerOffset[size_t(band)];
    }
    return data;
}

void CTdscdmaTpcV3::SetBandDataV3(int band, const STdscdmaUITpcDataByBandV3 &data)
{
    if (!IsBand(band))
        return;
    m_bandData[size_t(band)] = data;
    m_wantedPowerOffset[size_t(band)] = data.wantedPowerOffset;
    m_paMidPowerOffset[size_t(band)] = data.paMidPowerOffset;
}
