#include "BandCalItem.h"

#include <string>
#include <vector>

#include "ErrorCodeInfo.h"
#include "TIniFile.h"

void CBandCalItem::SetAllValid(bool valid)
{
    m_isDataValid = valid;
    m_isBandValid.fill(valid);
}

bool CBandCalItem::IsAnyBandSectionExist(TIniFile *file)
{
    if (!file)
        return false;
    for (int band = 0; band < kBandCount; ++band) {
        if (IsBandSupported(band) && file->IsSectionExist(BandSection(band)))
            return true;
    }
    return false;
}

uint32_t CBandCalItem::ReadFromFile(TIniFile *file)
{
    m_errorMessage.clear();
    SetAllValid(false);
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    std::vector<std::string> sections;
    for (int band = 0; band < kBandCount; ++band) {
        if (IsBandSupported(band))
            sections.push_back(BandSection(band));
    }
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, sections, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;

    m_isDataValid = true;
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band) || !file->IsSectionExist(BandSection(band)))
            continue;
        const uint32_t code = ReadFromFileSingleBand(file, band);
        if (code != ERROR_CODE_SUCCESS)
            return code;
        m_isBandValid[size_t(band)] = true;
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CBandCalItem::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        const uint32_t code = WriteToFileSingleBand(file, band);
        if (code != ERROR_CODE_SUCCESS)
            return code;
    }
    return ERROR_CODE_SUCCESS;
}
