#include "TdscdmaPathLossV2.h"

#include <memory>

#include "ErrorCodeInfo.h"
#include "Nvram/CalDataIntegrity.h"
#include "PathlossCommand.h"
#include "TavoApp.h"

namespace {

const CPathlossCommand kCommand(AST_Tavo_NVRAM_Pathloss_Read_r, AST_Tavo_NVRAM_Pathloss_Write_r,
                                AST_TAVO_NVRAM_PATHLOSS_VERSION, AST_TAVO_NVRAM_PATHLOSS_RECORD_SIZE);

} // namespace

uint32_t CTdscdmaPathLossV2::UploadFromFlash()
{
    m_errorMessage.clear();
    SetAllValid(false);
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        if (kCommand.Read(Handle(), band, &m_bandData[size_t(band)]) != TAVO_OK)
            return ERROR_CODE_TAVO_COMMAND_FAILED;
        m_isDataValid = true;
        m_isBandValid[size_t(band)] = true;
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaPathLossV2::DownloadToFlash()
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    const auto integrity = std::make_unique<CCalDataIntegrity>();
    for (int band = 0; band < kBandCount; ++band) {
        if (IsBandSupported(band) && m_isBandValid[size_t(band)] &&
            kCommand.Write(Handle(), band, &m_bandData[size_t(band)]) != TAVO_OK)
            return ERROR_CODE_TAVO_COMMAND_FAILED;
    }
    return ERROR_CODE_SUCCESS;
}
