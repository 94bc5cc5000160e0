#include "TdscdmaPathLossV3.h"

#include "ErrorCodeInfo.h"
#include "PathlossCommand.h"
#include "TavoApp.h"

namespace {

const CPathlossCommand kCommand(AST_Tavo_NVRAM_Pathloss_8level_Read_r, AST_Tavo_NVRAM_Pathloss_8level_Write_r,
                                AST_TAVO_NVRAM_PATHLOSS_8LEVEL_VERSION, AST_TAVO_NVRAM_PATHLOSS_8LEVEL_RECORD_SIZE);
constexpr int kModes = 8;

} // namespace

// Only a complete read makes the data good for the target.
uint32_t CTdscdmaPathLossV3::UploadFromFlash() { return UploadByCommand(kCommand, true); }

uint32_t CTdscdmaPathLossV3::DownloadToFlash() { return DownloadByCommand(kCommand); }

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
