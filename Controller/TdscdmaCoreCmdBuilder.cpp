#include "TdscdmaCoreCmdBuilder.h"

#include <QJsonArray>
#include <QStringList>

#include <cstddef>

#include "CalTextConverters.h"
#include "Items/TdscdmaTpc.h"
#include "JsonPath.h"
#include "TdscdmaDataModelCapUpdater.h"

namespace {

const QString kGroup1 = "cmdIf.request.group1.memberValue";
const QString kGroup2 = "cmdIf.request.group2.memberValue";

// A value of a memberValue object: decimal text, 0 when absent or no number.
qint64 Number(const QJsonObject &values, const char *member)
{
    return values.value(member).toString().toLongLong(nullptr, 10);
}

bool IsTrue(const QJsonObject &values, const char *member) { return values.value(member).toString() == "true"; }

// Bit i + 1 set for each of the five timeSlots whose text is `marked`.
uint8_t SlotMask(const QJsonArray &timeSlots, const QString &marked)
{
    uint8_t mask = 0;
    for (int i = 0; i < 5 && i < timeSlots.size(); ++i) {
        if (timeSlots[i].toString() == marked)
            mask |= uint8_t(1u << (i + 1));
    }
    return mask;
}

// ---- Calibration data: texts of widgets to stored values ----------------

const char *const kPaModes[3] = {"paH", "paM", "paL"};

// A decimal integer, 0 when the text is none; low 16 bits.
uint16_t Integer(const QString &text) { return uint16_t(text.toLongLong(nullptr, 10)); }

// The number in the text (0.0 when it is none) times `factor`, the fraction
// dropped towards zero; low 16 bits.
uint16_t Scaled(const QString &text, double factor) { return ScaledToStored(text.toDouble(), factor); }

// The memberValue object of group `group` of a calibration model.
QJsonObject Values(QJsonObject &model, int group)
{
    return GetJsonValue(model, QString("calDataIf.data.group%1.memberValue").arg(group)).toObject();
}

// Each element of `field` from the cell of the same index of a table
// column; a cell that is missing gives 0.
template <typename T, size_t N, typename Convert>
void FillColumn(T (&field)[N], const QJsonValue &column, Convert convert)
{
    const QJsonArray cells = column.toArray();
    for (size_t i = 0; i < N; ++i)
        field[i] = T(convert(int(i) < cells.size() ? cells.at(int(i)).toString() : QString()));
}

// Fills field[mode] from the paH, paM and paL columns of `values`.
template <typename T, size_t M, size_t N, typename Convert>
void FillPaModes(T (&field)[M][N], const QJsonObject &values, Convert convert)
{
    for (size_t mode = 0; mode < M; ++mode)
        FillColumn(field[mode], values.value(kPaModes[mode]), convert);
}

// As FillColumn, but a column the model does not have leaves the field as it is.
template <typename T, size_t N, typename Convert>
void FillColumnIfPresent(T (&field)[N], const QJsonValue &column, Convert convert)
{
    if (column.isArray())
        FillColumn(field, column, convert);
}

} // namespace

uint32_t CTdscdmaCoreCmdBuilder::PaModeOf(const QString &text)
{
    static const QStringList modes{"High", "Mid", "Low"};
    const int index = modes.indexOf(text);
    return index < 0 ? 0 : uint32_t(index);
}

uint32_t CTdscdmaCoreCmdBuilder::GainModeOf(const QString &text)
{
    static const QStringList modes{"High", "Mid", "Low", "Ext", "Ext0", "Ext1", "Ext2", "Ext3"};
    const int index = modes.indexOf(text);
    return index < 0 ? 0 : uint32_t(index);
}

SAfcStartCmd CTdscdmaCoreCmdBuilder::GetAfcStartCmd(QJsonObject model)
{
    const QJsonObject values = GetJsonValue(model, kGroup1).toObject();
    SAfcStartCmd cmd;
    cmd.uarfcn = uint16_t(Number(values, "uarfcn"));
    cmd.afcDac = uint16_t(Number(values, values.value("afcSelect").toString() == "AFC1" ? "afcdac1" : "afcdac2"));
    cmd.paMode = PaModeOf(values.value("paMode").toString());
    cmd.afcData = uint16_t(Number(values, "afcData"));
    cmd.capId = uint16_t(Number(values, "capId"));
    return cmd;
}

SDpchTxCmd CTdscdmaCoreCmdBuilder::GetDpchTxCmd(QJsonObject model)
{
    const QJsonObject values = GetJsonValue(model, kGroup1).toObject();
    const QJsonObject timeSlots = GetJsonValue(model, kGroup2).toObject();
    SDpchTxCmd cmd;
    cmd.uarfcn = uint16_t(Number(values, "uarfcn"));
    cmd.afcDac = uint16_t(Number(values, "afcdac"));
    cmd.apcData = uint16_t(Number(values, "apcData"));
    cmd.paMode = PaModeOf(values.value("paMode").toString());
    cmd.directionMask = SlotMask(timeSlots.value("direction").toArray(), "UL");
    cmd.modulationMask = SlotMask(timeSlots.value("modulation").toArray(), "16QAM");
    cmd.fixPowerFlag = IsTrue(values, "fixPower") ? 1 : 0;
    cmd.wantedPower = int8_t(Number(values, "wantedPower"));
    cmd.useFixPower = cmd.fixPowerFlag;
    return cmd;
}

SRssiCmd CTdscdmaCoreCmdBuilder::GetRssiCmd(QJsonObject model)
{
    const QJsonObject values = GetJsonValue(model, kGroup1).toObject();
    SRssiCmd cmd;
    cmd.uarfcn = uint16_t(Number(values, "uarfcn"));
    cmd.afcDac = uint16_t(Number(values, "afcdac"));
    cmd.mode = GainModeOf(values.value("mode").toString());
    cmd.gain = uint8_t(Number(values, "gain"));
    cmd.agcTracking = IsTrue(values, "agcTracking") ? 1 : 0;
    return cmd;
}

uint16_t CTdscdmaCoreCmdBuilder::GetRegReadAddr(QJsonObject model)
{
    return uint16_t(Number(GetJsonValue(model, kGroup1).toObject(), "regAddr"));
}

SRegWriteCmd CTdscdmaCoreCmdBuilder::GetRegWriteCmd(QJsonObject model)
{
    const QJsonObject values = GetJsonValue(model, kGroup2).toObject();
    SRegWriteCmd cmd;
    cmd.regAddr = uint16_t(Number(values, "regAddr"));
    cmd.regValue = uint16_t(Number(values, "regValue"));
    return cmd;
}

int CTdscdmaCoreCmdBuilder::GetBandIndexByName(const QString &bandText)
{
    return qMax(0, CTdscdmaDataModelCapUpdater::BandGroupNames().indexOf(bandText));
}

STdscdmaUITpcDataByBand CTdscdmaCoreCmdBuilder::GetTpcCalDataCmd(void *item, QJsonObject model,
                                                                 STdscdmaUITpcDataByBand current)
{
    ReadTpcModel(item, model, 0, current);
    return current;
}

STdscdmaUITpcDataByBandV3 CTdscdmaCoreCmdBuilder::GetTpcCalDataCmdV3(void *item, QJsonObject model,
                                                                     STdscdmaUITpcDataByBandV3 current)
{
    ReadTpcModel(item, model, 1, current);
    const QJsonObject offsets = Values(model, 4);
    current.wantedPowerOffset = int16_t(Scaled(offsets.value("wantedPowerOffset").toString(), 32));
    current.paMidPowerOffset = int16_t(Scaled(offsets.value("paMidPowerOffset").toString(), 32));
    return current;
}

void CTdscdmaCoreCmdBuilder::ReadTpcModel(void *item, QJsonObject &model, int groupShift,
                                          STdscdmaUITpcDataByBand &data)
{
    const auto dB = [](const QString &text) { return Scaled(text, 32); };
    TavoTxDacRecord &dac = data.txDac;

    // Only a target with closed-loop power control has the TX CLPC record.
    if (m_capability.GetTxClpcMode() == 1) {
        const QJsonObject points = Values(model, 1);
        for (int i = 0; i < 3; ++i)
            data.txClpc.pdPoint[i] = int16_t(dB(points.value(QString("pdPoint%1").arg(i)).toString()));
        FillColumn(data.txClpc.pdSubbandComp, Values(model, 7 + groupShift).value("comp"), dB);
    }

    const QJsonObject hysteresis = Values(model, 2);
    dac.hysteresisStart0 = Integer(hysteresis.value("hysteresisStart0").toString());
    dac.hysteresisStart1 = Integer(hysteresis.value("hysteresisStart1").toString());
    dac.hysteresisEnd0 = Integer(hysteresis.value("hysteresisEnd0").toString());
    dac.hysteresisEnd1 = Integer(hysteresis.value("hysteresisEnd1").toString());

    // maxVgaDac is the UPA power offset in 1/32 dB on an APC-extended
    // target, else the raw VGA DAC word, shown and taken as it is.
    const int band = GetBandIndexByName(GetJsonValue(model, "calDataIf.config.group1.memberValue.band").toString());
    if (item && static_cast<CTdscdmaTpc *>(item)->IsMaxPaPowerFieldPresent(band)) {
        const QJsonObject maxPower = Values(model, 3);
        dac.maxPower = int16_t(dB(maxPower.value("maxPower").toString()));
        dac.maxVgaDac = Scaled(maxPower.value("vgaDac").toString(), m_capability.IsApcExSupported() ? 32 : 1);
    }

    FillPaModes(dac.paVgaDac, Values(model, 4 + groupShift), Integer);
    FillPaModes(dac.paPower, Values(model, 5 + groupShift), dB);
    const QJsonObject subbands = Values(model, 6 + groupShift);
    FillColumn(dac.subbandMaxUarfcn, subbands.value("uarfcn"), Integer);
    FillPaModes(dac.subbandPowerComp, subbands, dB);
    FillPaModes(dac.tempPowerComp, Values(model, 8 + groupShift), dB);
}

template <typename Record>
void CTdscdmaCoreCmdBuilder::ReadPathlossModel(QJsonObject &model, int modes, Record &record)
{
    // On a target without extended AGC a loss is whole dB; the page's three
    // decimals (13.000) read as a number all the same.
    const double factor = m_capability.IsAgcExSupported() ? 8.0 : 1.0;
    const auto loss = [factor](const QString &text) { return Scaled(text, factor); };
    const QJsonObject byFrequency = Values(model, 1);
    const QJsonObject byTemperature = Values(model, 2);
    FillColumn(record.subbandMaxUarfcn, byFrequency.value("uarfcn"), Integer);
    for (int mode = 0; mode < modes; ++mode) {
        const QString member = QString("loss%1").arg(mode);
        FillColumnIfPresent(record.subbandLoss[mode], byFrequency.value(member), loss);
        FillColumnIfPresent(record.tempLoss[mode], byTemperature.value(member), loss);
    }
}

_FTA_tl1cal_pathlossData_T CTdscdmaCoreCmdBuilder::GetPathlossCalDataCmd(QJsonObject model,
                                                                         _FTA_tl1cal_pathlossData_T current)
{
    ReadPathlossModel(model, 4, current);
    return current;
}

_FTA_tl1cal_pathlossData_8level_T
CTdscdmaCoreCmdBuilder::GetPathlossCalDataCmdV3(QJsonObject model, _FTA_tl1cal_pathlossData_8level_T current)
{
    ReadPathlossModel(model, 8, current);
    return current;
}

TavoAfcRecord CTdscdmaCoreCmdBuilder::GetAfcCalDataCmd(QJsonObject model)
{
    const QJsonObject values = GetJsonValue(model, "cmdIf.response.group1.memberValue").toObject();
    TavoAfcRecord record = {};
    record.initAfcDac = Integer(values.value("initAfcdac").toString());
    const float slope = float(values.value("slope").toString().toDouble());
    record.slopeInverse = RoundedToStored(4096.0f / slope);
    record.capId = uint32_t(values.value("capId").toString().toLongLong(nullptr, 10));
    return record;
}

CTdscdmaTadc::AdcTable CTdscdmaCoreCmdBuilder::GetTadcCalDataCmd(QJsonObject model)
{
    const QJsonObject values = GetJsonValue(model, "cmdIf.response.group2.memberValue").toObject();
    CTdscdmaTadc::AdcTable table = {};
    for (int i = 0; i < CTdscdmaTadc::kAdcCount; ++i)
        table[size_t(i)] = Integer(values.value(QString("adc%1").arg(i)).toString());
    return table;
}

uint16_t CTdscdmaCoreCmdBuilder::GetTadcMeasureCount(QJsonObject model)
{
    return uint16_t(Number(GetJsonValue(model, kGroup1).toObject(), "count"));
}
