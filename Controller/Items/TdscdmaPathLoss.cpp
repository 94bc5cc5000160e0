#include "TdscdmaPathLoss.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "CalTextConverters.h"
#include "ErrorCodeInfo.h"
#include "Nvram/CalDataIntegrity.h"
#include "PathlossCommand.h"
#include "TIniFile.h"

namespace {

struct SBand {
    const char *lid;
    const char *section;
};

const SBand kBands[CTdscdmaPathLoss::kBandCount] = {
    {"NVRAM_EF_AST_TL1_PATHLOSS_BAND33_35_37_39_LID", "TDSCDMA 1850-1930MHz RX loss"},
    {"NVRAM_EF_AST_TL1_PATHLOSS_BAND34_LID", "TDSCDMA 2010-2025MHz RX loss"},
    {"NVRAM_EF_AST_TL1_PATHLOSS_BAND36_LID", "TDSCDMA 1930-1990MHz RX loss"},
    {"NVRAM_EF_AST_TL1_PATHLOSS_BAND38_LID", "TDSCDMA 2570-2620MHz RX loss"},
    {"NVRAM_EF_AST_TL1_PATHLOSS_BAND40_LID", "TDSCDMA 2300-2400MHz RX loss"},
};

const char *const kGainModes[8] = {"high mode", "middle mode", "low mode",  "ext mode",
                                   "ext0 mode", "ext1 mode",   "ext2 mode", "ext3 mode"};
constexpr int kSubbands = 15;
constexpr int kTemperatures = 8;
constexpr double kDbPerStep = 0.125; // with extended AGC the records count in 1/8 dB

std::string Key(const char *format, int mode)
{
    char key[64];
    std::snprintf(key, sizeof key, format, kGainModes[mode]);
    return key;
}

std::string Zeros(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "0,";
    return text;
}

} // namespace

const char *CTdscdmaPathLoss::Lid(int band) { return IsBand(band) ? kBands[band].lid : nullptr; }
const char *CTdscdmaPathLoss::Section(int band) { return IsBand(band) ? kBands[band].section : nullptr; }

// ---- NVRAM records --------------------------------------------------------------

TAVO_RESULT CTdscdmaPathLoss::PrepareNvramBuffers()
{
    // The first LID the database knows stands for all: the records are alike.
    TAVO_RESULT result = TAVO_OK;
    const char *known = nullptr;
    for (int band = 0; band < kBandCount && !known; ++band) {
        int count = 0;
        result = TAVO_NVRAM_GetRecordCount(Lid(band), &count);
        if (result == TAVO_OK)
            known = Lid(band);
    }
    if (!known)
        return result;
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band) || !m_raw[size_t(band)].empty())
            continue;
        uint32_t size = 0;
        result = TAVO_NVRAM_GetRecordSize(known, &size);
        if (result != TAVO_OK)
            return result;
        m_raw[size_t(band)].assign(size, 0);
    }
    return TAVO_OK;
}

TAVO_RESULT CTdscdmaPathLoss::DecomposeNvramData()
{
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        TavoPathlossRecord decoded = {};
        const std::vector<uint8_t> &raw = m_raw[size_t(band)];
        const TAVO_RESULT result = TAVO_NVRAM_DecomposePathloss(&decoded, raw.data(), uint32_t(raw.size()));
        if (result != TAVO_OK)
            return result;
        _FTA_tl1cal_pathlossData_T &data = m_bandData[size_t(band)];
        std::memcpy(data.subbandMaxUarfcn, decoded.subbandMaxUarfcn, sizeof decoded.subbandMaxUarfcn);
        std::memcpy(data.subbandLoss, decoded.subbandLoss, sizeof decoded.subbandLoss);
        std::memcpy(data.tempLoss, decoded.tempLoss, sizeof decoded.tempLoss);
    }
    return TAVO_OK;
}

TAVO_RESULT CTdscdmaPathLoss::ComposeNvramData()
{
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band) || !m_isBandValid[size_t(band)])
            continue;
        const _FTA_tl1cal_pathlossData_T &data = m_bandData[size_t(band)];
        TavoPathlossRecord decoded = {};
        std::memcpy(decoded.subbandMaxUarfcn, data.subbandMaxUarfcn, sizeof decoded.subbandMaxUarfcn);
        std::memcpy(decoded.subbandLoss, data.subbandLoss, sizeof decoded.subbandLoss);
        std::memcpy(decoded.tempLoss, data.tempLoss, sizeof decoded.tempLoss);
        std::vector<uint8_t> &raw = m_raw[size_t(band)];
        const TAVO_RESULT result = TAVO_NVRAM_ComposePathloss(&decoded, raw.data(), uint32_t(raw.size()));
        if (result != TAVO_OK)
            return result;
    }
    return TAVO_OK;
}

uint32_t CTdscdmaPathLoss::UploadFromFlash()
{
    m_errorMessage.clear();
    SetAllValid(false);
    const uint32_t code = UploadNvramRecords([this](CNvramBatch &batch) {
        for (int band = 0; band < kBandCount; ++band) {
            if (IsBandSupported(band))
                batch.Add(Lid(band), uint32_t(m_raw[size_t(band)].size()), m_raw[size_t(band)].data());
        }
    });
    if (code == ERROR_CODE_SUCCESS)
        SetAllValid(true);
    return code;
}

uint32_t CTdscdmaPathLoss::DownloadToFlash()
{
    m_errorMessage.clear();
    return DownloadNvramRecords(m_isDataValid, [this](CNvramBatch &batch) {
        for (int band = 0; band < kBandCount; ++band) {
            if (IsBandSupported(band) && m_isBandValid[size_t(band)])
                batch.Add(Lid(band), uint32_t(m_raw[size_t(band)].size()), m_raw[size_t(band)].data());
        }
    });
}

// ---- Layer 1's commands ------------------------------------------------------------

uint32_t CTdscdmaPathLoss::UploadByCommand(const CPathlossCommand &command, bool validOnlyWhenComplete)
{
    m_errorMessage.clear();
    SetAllValid(false);
    for (int band = 0; band < kBandCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        if (command.Read(Handle(), band, CommandRecord(band)) != TAVO_OK)
            return ERROR_CODE_TAVO_COMMAND_FAILED;
        m_isDataValid = m_isDataValid || !validOnlyWhenComplete;
        m_isBandValid[size_t(band)] = true;
    }
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaPathLoss::DownloadByCommand(const CPathlossCommand &command)
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    const auto integrity = std::make_unique<CCalDataIntegrity>();
    for (int band = 0; band < kBandCount; ++band) {
        if (IsBandSupported(band) && m_isBandValid[size_t(band)] &&
            command.Write(Handle(), band, CommandRecord(band)) != TAVO_OK)
            return ERROR_CODE_TAVO_COMMAND_FAILED;
    }
    return ERROR_CODE_SUCCESS;
}

// ---- Band data ------------------------------------------------------------------

_FTA_tl1cal_pathlossData_T CTdscdmaPathLoss::GetBandData(int band) const
{
    return IsBand(band) ? m_bandData[size_t(band)] : _FTA_tl1cal_pathlossData_T{};
}

void CTdscdmaPathLoss::SetBandData(int band, const _FTA_tl1cal_pathlossData_T &data)
{
    if (IsBand(band))
        m_bandData[size_t(band)] = data;
}

// ---- Cal/INI file ---------------------------------------------------------------

uint32_t CTdscdmaPathLoss::ReadFromFileSingleBand(TIniFile *file, int band)
{
    if (!file || !IsBand(band))
        return ERROR_CODE_FILE_NOT_OPERABLE;
    _FTA_tl1cal_pathlossData_T &data = m_bandData[size_t(band)];
    return ReadSection(file, band, {data.subbandMaxUarfcn, data.subbandLoss[0], data.tempLoss[0], FileModes()});
}

uint32_t CTdscdmaPathLoss::WriteToFileSingleBand(TIniFile *file, int band)
{
    if (!file || !IsBand(band))
        return ERROR_CODE_FILE_NOT_OPERABLE;
    _FTA_tl1cal_pathlossData_T &data = m_bandData[size_t(band)];
    return WriteSection(file, band, {data.subbandMaxUarfcn, data.subbandLoss[0], data.tempLoss[0], FileModes()});
}

uint32_t CTdscdmaPathLoss::ReadSection(TIniFile *file, int band, const SRows &rows)
{
    const std::string section = Section(band);
    const bool inEighths = m_capability.IsAgcExSupported();
    // One list of losses into `stored`; positions the text leaves out are 0.
    const auto readLosses = [&](const std::string &key, int16_t *stored, int count) {
        const std::string text = file->ReadString(section, key, Zeros(count));
        if (inEighths) {
            double values[kSubbands] = {};
            ParseDoubleList(text.c_str(), values, count);
            for (int i = 0; i < count; ++i)
                stored[i] = int16_t(ScaledToStored(values[i], 8.0));
        } else {
            quint16 values[kSubbands] = {};
            ParseUInt16List(text.c_str(), values, count);
            for (int i = 0; i < count; ++i)
                stored[i] = int16_t(values[i]);
        }
    };

    quint16 uarfcn[kSubbands] = {};
    ParseUInt16List(file->ReadString(section, "Subband Max UARFCN", Zeros(kSubbands)).c_str(), uarfcn, kSubbands);
    std::copy(uarfcn, uarfcn + kSubbands, rows.subbandMaxUarfcn);
    for (int mode = 0; mode < rows.modes; ++mode)
        readLosses(Key("Subband RX loss %s", mode), rows.subbandLoss + mode * kSubbands, kSubbands);
    for (int mode = 0; mode < rows.modes; ++mode)
        readLosses(Key("Temperature RX loss %s", mode), rows.tempLoss + mode * kTemperatures, kTemperatures);
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaPathLoss::WriteSection(TIniFile *file, int band, const SRows &rows)
{
    const std::string section = Section(band);
    const bool inEighths = m_capability.IsAgcExSupported();
    const auto writeLosses = [&](const std::string &key, const int16_t *stored, int count) {
        char text[kSubbands * 24];
        if (inEighths) {
            double values[kSubbands];
            for (int i = 0; i < count; ++i)
                values[i] = stored[i] * kDbPerStep;
            FormatDoubleList(text, values, count, ',', 3);
        } else {
            FormatInt16List(text, stored, count, ',');
        }
        file->WriteString(section, key, text);
    };

    m_rfChipIdRecorder.WriteTdscdmaRfChipId(file, section);
    char uarfcn[kSubbands * 8];
    FormatUInt16List(uarfcn, rows.subbandMaxUarfcn, kSubbands, ',');
    file->WriteString(section, "Subband Max UARFCN", uarfcn);
    for (int mode = 0; mode < rows.modes; ++mode)
        writeLosses(Key("Subband RX loss %s", mode), rows.subbandLoss + mode * kSubbands, kSubbands);
    for (int mode = 0; mode < rows.modes; ++mode)
        writeLosses(Key("Temperature RX loss %s", mode), rows.tempLoss + mode * kTemperatures, kTemperatures);
    return ERROR_CODE_SUCCESS;
}
