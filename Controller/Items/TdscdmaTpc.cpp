#include "TdscdmaTpc.h"

#include <cstdio>

#include "CalTextConverters.h"
#include "ErrorCodeInfo.h"
#include "TIniFile.h"

namespace {

const char *const kPaModes[3] = {"PA high mode", "PA middle mode", "PA low mode"};
const char *const kPdPoints[3] = {"Point 0", "Point 1", "Point 2"};
constexpr double kDbPerStep = 0.03125; // the records count in 1/32 dB

std::string Key(const char *format, const char *name)
{
    char key[96];
    std::snprintf(key, sizeof key, format, name);
    return key;
}

std::string Decibels(double stored)
{
    char text[48];
    std::snprintf(text, sizeof text, "%.5f", stored * kDbPerStep);
    return text;
}

std::string Repeated(const char *value, int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += value;
    return text;
}

template <typename T>
void WriteDecibelList(TIniFile *file, const std::string &section, const std::string &key, const T *stored, int count)
{
    double values[15];
    for (int i = 0; i < count; ++i)
        values[i] = stored[i] * kDbPerStep;
    char text[15 * 24];
    FormatDoubleList(text, values, count, ',', 5);
    file->WriteString(section, key, text);
}

void WriteIntegerList(TIniFile *file, const std::string &section, const std::string &key, const uint16_t *values,
                      int count)
{
    char text[15 * 8];
    FormatUInt16List(text, values, count, ',');
    file->WriteString(section, key, text);
}

// A list of dB values into `stored`; positions the text leaves out are 0.
template <typename T>
void ReadDecibelList(TIniFile *file, const std::string &section, const std::string &key, T *stored, int count)
{
    const std::string text = file->ReadString(section, key, Repeated("0.00000,", count));
    double values[15] = {};
    ParseDoubleList(text.c_str(), values, count);
    for (int i = 0; i < count; ++i)
        stored[i] = T(CTdscdmaTpc::DecibelsToStored(values[i]));
}

void ReadIntegerList(TIniFile *file, const std::string &section, const std::string &key, uint16_t *values, int count)
{
    const std::string text = file->ReadString(section, key, Repeated("0,", count));
    quint16 parsed[15] = {};
    ParseUInt16List(text.c_str(), parsed, count);
    for (int i = 0; i < count; ++i)
        values[i] = parsed[i];
}

int16_t ReadDecibels(TIniFile *file, const std::string &section, const std::string &key, double defaultValue)
{
    return CTdscdmaTpc::DecibelsToStored(file->ReadDouble(section, key, defaultValue));
}

} // namespace

int16_t CTdscdmaTpc::DecibelsToStored(double dB) { return int16_t(ScaledToStored(dB, 32.0)); }

// ---- NVRAM records --------------------------------------------------------------

TAVO_RESULT CTdscdmaTpc::AllocateRaw(const char *lid, SRawRecord &raw)
{
    if (!raw.buffer.empty())
        return TAVO_OK;
    uint32_t size = 0;
    const TAVO_RESULT result = TAVO_NVRAM_GetRecordSize(lid, &size);
    if (result == TAVO_OK)
        raw.buffer.assign(size, 0);
    return result;
}

TAVO_RESULT CTdscdmaTpc::PrepareNvramBuffers()
{
    TAVO_RESULT result = TAVO_OK;
    for (int band = 0; band < TdscdmaTpcBand::kCount; ++band) {
        int count = 0;
        result = TAVO_NVRAM_GetRecordCount(TdscdmaTpcBand::TxDacLid(band), &count);
        if (result == TAVO_OK)
            break;
    }
    if (result != TAVO_OK)
        return result;

    for (int band = 0; band < TdscdmaTpcBand::kCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        result = AllocateRaw(TdscdmaTpcBand::TxDacLid(band), m_txDacRaw[size_t(band)]);
        if (result == TAVO_OK && HasTxClpc())
            result = AllocateRaw(TdscdmaTpcBand::TxClpcLid(band), m_txClpcRaw[size_t(band)]);
        if (result != TAVO_OK)
            return result;
    }
    return TAVO_OK;
}

TAVO_RESULT CTdscdmaTpc::DecomposeNvramData()
{
    for (int band = 0; band < TdscdmaTpcBand::kCount; ++band) {
        if (!IsBandSupported(band))
            continue;
        STdscdmaUITpcDataByBand &data = m_bandData[size_t(band)];
        const SRawRecord &txDac = m_txDacRaw[size_t(band)];
        TAVO_RESULT result = TAVO_NVRAM_DecomposeTxDac(&data.txDac, txDac.buffer.data(), txDac.Size());
        if (result == TAVO_OK && HasTxClpc()) {
            const SRawRecord &txClpc = m_txClpcRaw[size_t(band)];
            result = TAVO_NVRAM_DecomposeTxClpc(&data.txClpc, txClpc.buffer.data(), txClpc.Size());
        }
        if (result != TAVO_OK)
            return result;
    }
    return TAVO_OK;
}

TAVO_RESULT CTdscdmaTpc::ComposeNvramData()
{
    for (int band = 0; band < TdscdmaTpcBand::kCount; ++band) {
        if (!IsBandSupported(band) || !m_isBandValid[size_t(band)])
            continue;
        const STdscdmaUITpcDataByBand &data = m_bandData[size_t(band)];
        SRawRecord &txDac = m_txDacRaw[size_t(band)];
        TAVO_RESULT result = TAVO_NVRAM_ComposeTxDac(&data.txDac, txDac.buffer.data(), txDac.Size());
        if (result == TAVO_OK && HasTxClpc()) {
            SRawRecord &txClpc = m_txClpcRaw[size_t(band)];
            result = TAVO_NVRAM_ComposeTxClpc(&data.txClpc, txClpc.buffer.data(), txClpc.Size());
        }
        if (result != TAVO_OK)
            return result;
    }
    return TAVO_OK;
}

void CTdscdmaTpc::CollectRecords(CNvramBatch &batch, bool validBandsOnly)
{
    for (int band = 0; band < TdscdmaTpcBand::kCount; ++band) {
        if (!IsBandSupported(band) || (validBandsOnly && !m_isBandValid[size_t(band)]))
            continue;
        SRawRecord &txDac = m_txDacRaw[size_t(band)];
        batch.Add(TdscdmaTpcBand::TxDacLid(band), txDac.Size(), txDac.buffer.data());
        if (HasTxClpc()) {
            SRawRecord &txClpc = m_txClpcRaw[size_t(band)];
            batch.Add(TdscdmaTpcBand::TxClpcLid(band), txClpc.Size(), txClpc.buffer.data());
        }
    }
}

uint32_t CTdscdmaTpc::UploadFromFlash()
{
    m_errorMessage.clear();
    SetAllValid(false);
    const uint32_t code = UploadNvramRecords([this](CNvramBatch &batch) { CollectRecords(batch, false); });
    if (code == ERROR_CODE_SUCCESS)
        SetAllValid(true);
    return code;
}

uint32_t CTdscdmaTpc::DownloadToFlash()
{
    m_errorMessage.clear();
    return DownloadNvramRecords(m_isDataValid, [this](CNvramBatch &batch) { CollectRecords(batch, true); });
}

// ---- Cal/INI file ---------------------------------------------------------------

uint32_t CTdscdmaTpc::WriteToFileSingleBand(TIniFile *file, int band)
{
    if (!file || !IsBand(band))
        return ERROR_CODE_FILE_NOT_OPERABLE;
    const std::string section = TdscdmaTpcBand::Section(band);
    const STdscdmaUITpcDataByBand &data = m_bandData[size_t(band)];
    const TavoTxDacRecord &txDac = data.txDac;

    m_rfChipIdRecorder.WriteTdscdmaRfChipId(file, section);
    for (int mode = 0; mode < 3; ++mode)
        WriteIntegerList(file, section, Key("VGA DAC, %s", kPaModes[mode]), txDac.paVgaDac[mode], 4);
    for (int mode = 0; mode < 3; ++mode)
        WriteDecibelList(file, section, Key("Power, %s", kPaModes[mode]), txDac.paPower[mode], 4);
    WriteIntegerList(file, section, "Subband Max UARFCN", txDac.subbandMaxUarfcn, 15);
    for (int mode = 0; mode < 3; ++mode) {
        WriteDecibelList(file, section, Key("Subband power compensation, %s", kPaModes[mode]),
                         txDac.subbandPowerComp[mode], 15);
    }
    for (int mode = 0; mode < 3; ++mode)
        WriteDecibelList(file, section, Key("Temperature compensation, %s", kPaModes[mode]), txDac.tempPowerComp[mode], 8);
    file->WriteInt(section, "START1", txDac.hysteresisStart0);
    file->WriteInt(section, "END1", txDac.hysteresisEnd0);
    file->WriteInt(section, "START2", txDac.hysteresisStart1);
    file->WriteInt(section, "END2", txDac.hysteresisEnd1);
    if (IsMaxPaPowerFieldPresent(band)) {
        if (m_capability.IsApcExSupported()) {
            file->WriteString(section, "Max Power Offset (dB)", Decibels(txDac.maxPower));
            file->WriteString(section, "UPA Max Power Offset (dB)", Decibels(txDac.maxVgaDac));
        } else {
            file->WriteString(section, "Max Power", Decibels(txDac.maxPower));
            file->WriteInt(section, "Max VGA DAC", txDac.maxVgaDac);
        }
    }
    if (HasTxClpc()) {
        for (int point = 0; point < 3; ++point) {
            file->WriteString(section, Key("PD power compensation (db), %s", kPdPoints[point]),
                              Decibels(data.txClpc.pdPoint[point]));
        }
        WriteDecibelList(file, section, "PD Subband power compensation (db)", data.txClpc.pdSubbandComp, 15);
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CTdscdmaTpc::ReadFromFileSingleBand(TIniFile *file, int band)
{
    if (!file || !IsBand(band))
        return ERROR_CODE_FILE_NOT_OPERABLE;
    const std::string section = TdscdmaTpcBand::Section(band);
    STdscdmaUITpcDataByBand &data = m_bandData[size_t(band)];
    TavoTxDacRecord &txDac = data.txDac;

    for (int mode = 0; mode < 3; ++mode) {
        const char *paMode = kPaModes[mode];
        ReadIntegerList(file, section, Key("VGA DAC, %s", paMode), txDac.paVgaDac[mode], 4);
        ReadDecibelList(file, section, Key("Power, %s", paMode), txDac.paPower[mode], 4);
        ReadDecibelList(file, section, Key("Subband power compensation, %s", paMode), txDac.subbandPowerComp[mode], 15);
        ReadDecibelList(file, section, Key("Temperature compensation, %s", paMode), txDac.tempPowerComp[mode], 8);
    }
    ReadIntegerList(file, section, "Subband Max UARFCN", txDac.subbandMaxUarfcn, 15);
    txDac.hysteresisStart0 = uint16_t(file->ReadInt(section, "START1", 12));
    txDac.hysteresisEnd0 = uint16_t(file->ReadInt(section, "END1", 12));
    txDac.hysteresisStart1 = uint16_t(file->ReadInt(section, "START2", 24));
    txDac.hysteresisEnd1 = uint16_t(file->ReadInt(section, "END2", 24));
    if (m_capability.IsApcExSupported()) {
        txDac.maxPower = ReadDecibels(file, section, "Max Power Offset (dB)", 0.0);
        txDac.maxVgaDac = uint16_t(ReadDecibels(file, section, "UPA Max Power Offset (dB)", 0.0));
    } else {
        txDac.maxPower = ReadDecibels(file, section, "Max Power", 23.5);
        txDac.maxVgaDac = uint16_t(file->ReadInt(section, "Max VGA DAC", 3190));
    }
    if (HasTxClpc()) {
        for (int point = 0; point < 3; ++point) {
            data.txClpc.pdPoint[point] =
                ReadDecibels(file, section, Key("PD power compensation (db), %s", kPdPoints[point]), 0.0);
        }
        ReadDecibelList(file, section, "PD Subband power compensation (db)", data.txClpc.pdSubbandComp, 15);
    }
    return ERROR_CODE_SUCCESS;
}

bool CTdscdmaTpc::IsMaxPaPowerFieldPresent(int band)
{
    const char *lid = TdscdmaTpcBand::TxDacLid(band);
    int exists = 0;
    return lid && TAVO_NVRAM_FieldExists(lid, "maxPaPower", &exists) == TAVO_OK && exists != 0;
}

// ---- Band data ------------------------------------------------------------------

STdscdmaUITpcDataByBand CTdscdmaTpc::GetBandData(int band) const
{
    return IsBand(band) ? m_bandData[size_t(band)] : STdscdmaUITpcDataByBand{};
}

void CTdscdmaTpc::SetBandData(int band, const STdscdmaUITpcDataByBand &data)
{
    if (IsBand(band))
        m_bandData[size_t(band)] = data;
}
