#include "TdscdmaPathLossV3.h"

#include <memory>

#include "ErrorCodeInfo.h"
#include "Nvram/CalDataIntegrity.h"
#include "PathlossCommand.h"
#include "TavoApp.h"

namespace {

const CPathlossCommand kCommand(AST_Tavo_NVRAM_Pathloss_8level_Read_r, AST_Tavo_NVRAM_Pathloss_8level_Write_r,
                                AST_TAVO_NVRAM_PATHLOSS_8LEVEL_VERSION, AST_TAVO_NVRAM_PATHLOSS_8LEVEL_RECORD_SIZE);
constexpr int kModes = 8;

} // namespace

uint32_t CTdscdmaPathLossV3::UploadFromFlash()
{
    m_errorMessage.clear();
    SetAllValid(false);
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        if (kCommand.Read(Handle(), band, &m_bandDataV3[size_t(band)]) != TAVO_OK)
            return ERROR_CODE_TAVO_COMMAND_FAILED;
        m_isBandValid[size_t(band)] = true;
    }
    // Only a complete read makes the data good for the target.
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaPathLossV3::DownloadToFlash()
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    const auto integrity = std::make_unique<CCalDataIntegrity>();
    for (int band = 0; band < kBandCount; ++band) {
        if (IsBandSupported(band) && m_isBandValid[size_t(band)] &&
            kCommand.Write(Handle(), band, &m_bandDataV3[size_t(band)]) != TAVO_OK)
            return ERROR_CODE_TAVO_COMMAND_FAILED;
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaPathLossV3::ReadFromFileSingleBand(TIniFile *file, int band)
{
    if (!file || !IsBand(band))
        return ERROR_CODE_FILE_NOT_OPERABLE;
    _FTA_tl1cal_pathlossData_8level_T &data = m_bandDataV3[size_t(band)];
    return ReadSection(file, band, {data.subbandMaxUarfcn, data.subbandLoss[0], data.tempLoss[0], kModes});
}

uint32_t CTdscdmaPathLossV3::WriteToFileSingleBand(TIniFile *file, int band)
{
    if (!file || !IsBand(band))
        return ERROR_CODE_FILE_NOT_OPERABLE;
    _FTA_tl1cal_pathlossData_8level_T &data = m_bandDataV3[size_t(band)];
    return WriteSection(file, band, {data.subbandMaxUarfcn, data.subbandLoss[0], data.tempLoss[0], kModes});
}

_FTA_tl1cal_pathlossData_8level_T CTdscdmaPathLossV3::GetBandDataV3(int band) const
{
    return IsBand(band) ? m_bandDataV3[size_t(band)] : _FTA_tl1cal_pathlossData_8level_T{};
}

void CTdscdmaPathLossV3::SetBandDataV3(int band, const _FTA_tl1cal_pathlossData_8level_T &data)
{
    if (IsBand(band))
        m_bandDataV3[size_t(band)] = data;
}
