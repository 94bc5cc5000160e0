#include "RfChipIdRecorder.h"

#include <iterator>

#include "ErrorCodeInfo.h"
#include "TIniFile.h"
#include "TavoCore.h"

namespace {

// Indexed by the TD-SCDMA RF chip id.
const char *const kTdscdmaRfChipNames[] = {
    "UNKNOWN",          "TL1D_RF_ID_RFA01", "TL1D_RF_ID_RFA02", "TL1D_RF_ID_RFA03", "TL1D_RF_ID_RFA04",
    "TL1D_RF_ID_RFA05", "TL1D_RF_ID_RFA06", "TL1D_RF_ID_RFA07", "TL1D_RF_ID_RFA08", "TL1D_RF_ID_RFA09",
    "",                 "",                 "",                 "",                 "",
    "",                 "TL1D_RF_ID_RFA10", "TL1D_RF_ID_RFA11", "TL1D_RF_ID_RFA12", "TL1D_RF_ID_RFA13",
    "",                 "",                 "",                 "",                 "",
    "",                 "",                 "",                 "",                 "",
    "",                 "",                 "TL1D_RF_ID_RFA14",
};
static_assert(std::size(kTdscdmaRfChipNames) == 33, "one name for each id from 0 to 32");

} // namespace

std::string CRfChipIdRecorder::TdscdmaRfChipName(uint32_t rfChipId)
{
    return rfChipId < std::size(kTdscdmaRfChipNames) ? kTdscdmaRfChipNames[rfChipId] : "Unknown";
}

void CRfChipIdRecorder::Write(TIniFile *file, const std::string &section, const std::string &name)
{
    file->WriteString(section, kRfChipIdKey, name);
    file->Save();
}

void CRfChipIdRecorder::WriteTdscdmaRfChipId(TIniFile *file, const std::string &section)
{
    if (file)
        Write(file, section, TdscdmaRfChipName(m_tdscdmaCapability.GetRfChipId()));
}

void CRfChipIdRecorder::WriteGsmRfChipId(TIniFile *file, const std::string &section)
{
    if (file)
        Write(file, section, TAVO_Rf_GetRfIdText(m_gsmCapability.GetGsmRfId()));
}

void CRfChipIdRecorder::WriteFddRfChipId(TIniFile *file, const std::string &section)
{
    if (file)
        Write(file, section, TAVO_3Grf_GetRfIdText(m_fddCapability.GetFddRfId()));
}

void CRfChipIdRecorder::WriteLteRfChipId(TIniFile *file, const std::string &section)
{
    if (file)
        Write(file, section, TAVO_ERf_GetRfIdText(m_lteCapability.GetLteRfId()));
}

bool CRfChipIdRecorder::CheckRfChipId(TIniFile *file, const std::string &section, QString &errorText)
{
    Q_UNUSED(section);
    errorText.clear();
    return file != nullptr;
}

uint32_t CRfChipIdRecorder::CheckFileSections(TIniFile *file, const std::vector<std::string> &sections,
                                              QString &errorText)
{
    errorText.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    bool anySection = false;
    for (const std::string &section : sections)
        anySection = anySection || file->IsSectionExist(section);
    if (!anySection)
        return ERROR_CODE_FILE_NO_DATA;
    for (const std::string &section : sections) {
        if (!CheckRfChipId(file, section, errorText))
            return ERROR_CODE_RF_CHIP_MISMATCH;
    }
    return ERROR_CODE_SUCCESS;
}
