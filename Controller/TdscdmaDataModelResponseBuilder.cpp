#include "TdscdmaDataModelResponseBuilder.h"

#include <QJsonArray>
#include <QVector>

#include <cstddef>

#include "JsonPath.h"
#include "ModelUpdateResult.h"

namespace {

// One member's new value and what the page is told when the member is missing.
struct SWrite {
    QString path;
    QJsonValue value;
    QString failure;
};

// Writes in order; the first write that fails gives the substitute model
// with its failure text, and no later write is made.
QJsonObject WriteAll(QJsonObject &model, const QVector<SWrite> &writes)
{
    for (const SWrite &write : writes) {
        if (!SetJsonValue(model, write.path, write.value))
            return BuildEmptyModelWithError(write.failure);
    }
    return model;
}

QString Fixed(double value, int decimals) { return QString::number(value, 'f', decimals); }

// ---- Calibration data: stored values to the texts of widgets --------------

const char *const kPaModes[3] = {"paH", "paM", "paL"};

// A value in 1/32 dB as dB with five decimals, which show every step exactly.
QString Db(double stored) { return Fixed(stored * 0.03125, 5); }

template <typename T, size_t N>
QJsonArray DbColumn(const T (&field)[N])
{
    QJsonArray column;
    for (const T value : field)
        column.append(Db(value));
    return column;
}

template <typename T, size_t N>
QJsonArray DecimalColumn(const T (&field)[N])
{
    QJsonArray column;
    for (const T value : field)
        column.append(QString::number(value));
    return column;
}

QString Default(int group, const QString &member)
{
    return QString("calDataIf.data.group%1.memberProperty.%2.trait.defaultValue").arg(group).arg(member);
}

// The paH, paM and paL columns of a group, one row of `field` each.
template <typename T, size_t M, size_t N, typename Column>
void AddPaModes(QVector<SWrite> &writes, int group, const T (&field)[M][N], Column column, const QString &failure)
{
    for (size_t mode = 0; mode < M; ++mode)
        writes.append({Default(group, kPaModes[mode]), column(field[mode]), failure});
}

} // namespace

std::string CTdscdmaDataModelResponseBuilder::GetTpcDataModel(QJsonObject model, STdscdmaUITpcDataByBand data)
{
    return ModelText(TpcDataModel(std::move(model), data));
}

std::string CTdscdmaDataModelResponseBuilder::GetTpcDataModelV3(QJsonObject model, STdscdmaUITpcDataByBandV3 data)
{
    return ModelText(TpcDataModelV3(std::move(model), data));
}

QJsonObject CTdscdmaDataModelResponseBuilder::TpcDataModel(QJsonObject model, const STdscdmaUITpcDataByBand &data)
{
    return WriteTpcModel(model, data, nullptr);
}

QJsonObject CTdscdmaDataModelResponseBuilder::TpcDataModelV3(QJsonObject model, const STdscdmaUITpcDataByBandV3 &data)
{
    return WriteTpcModel(model, data, &data);
}

QJsonObject CTdscdmaDataModelResponseBuilder::WriteTpcModel(QJsonObject &model, const STdscdmaUITpcDataByBand &data,
                                                            const STdscdmaUITpcDataByBandV3 *offsets)
{
    if (!IsJsonValueDefined(GetJsonValueConst(model, "calDataIf.data")))
        return model;

    // The V3 model has its "TX Power Setting" group fourth, and the groups
    // from there on one further down.
    const int shift = offsets ? 1 : 0;
    const TavoTxDacRecord &dac = data.txDac;
    const auto dbColumn = [](const auto &field) { return DbColumn(field); };
    const auto decimalColumn = [](const auto &field) { return DecimalColumn(field); };
    QVector<SWrite> writes;

    if (m_capability.GetTxClpcMode() == 1) {
        for (int i = 0; i < 3; ++i)
            writes.append(
                {Default(1, QString("pdPoint%1").arg(i)), Db(data.txClpc.pdPoint[i]), "Update pdPoint failed"});
        writes.append({Default(7 + shift, "comp"), DbColumn(data.txClpc.pdSubbandComp),
                       "Update PD compensation by sub-band failed"});
    }

    const QString hysteresis = "Update hysteresis failed";
    writes.append({Default(2, "hysteresisStart0"), QString::number(dac.hysteresisStart0), hysteresis});
    writes.append({Default(2, "hysteresisEnd0"), QString::number(dac.hysteresisEnd0), hysteresis});
    writes.append({Default(2, "hysteresisStart1"), QString::number(dac.hysteresisStart1), hysteresis});
    writes.append({Default(2, "hysteresisEnd1"), QString::number(dac.hysteresisEnd1), hysteresis});

    writes.append({Default(3, "maxPower"), Db(dac.maxPower), "Update maxPower failed"});
    // The UPA power offset of an APC-extended target is in 1/32 dB. Else the
    // member shows the raw VGA DAC word as it is, the word the file keeps and
    // the command builder stores back unscaled: a read-back gives what was
    // written.
    writes.append({Default(3, "vgaDac"),
                   m_capability.IsApcExSupported() ? Db(dac.maxVgaDac) : QString::number(dac.maxVgaDac),
                   "Update vgaDac failed"});

    if (offsets) {
        writes.append({Default(4, "wantedPowerOffset"), Db(offsets->wantedPowerOffset),
                       "Update wanted Power Offset failed"});
        writes.append({Default(4, "paMidPowerOffset"), Db(offsets->paMidPowerOffset),
                       "Update pa Mid Power Offset failed"});
    }

    AddPaModes(writes, 4 + shift, dac.paVgaDac, decimalColumn, "Update VGA DAC with H M L mode failed");
    AddPaModes(writes, 5 + shift, dac.paPower, dbColumn, "Update Power with H M L mode failed");
    const QString subband = "Update VGA compensation by sub-band failed";
    AddPaModes(writes, 6 + shift, dac.subbandPowerComp, dbColumn, subband);
    writes.append({Default(6 + shift, "uarfcn"), DecimalColumn(dac.subbandMaxUarfcn), subband});
    AddPaModes(writes, 8 + shift, dac.tempPowerComp, dbColumn, "Update VGA compensation by temperature failed");

    return WriteAll(model, writes);
}

template <size_t N>
QJsonArray CTdscdmaDataModelResponseBuilder::LossColumn(const int16_t (&losses)[N])
{
    if (!m_capability.IsAgcExSupported())
        return DecimalColumn(losses);
    QJsonArray column;
    for (const int16_t loss : losses)
        column.append(Fixed(loss * 0.125, 3));
    return column;
}

std::string CTdscdmaDataModelResponseBuilder::UpdatePathlossDataModel(QJsonObject &model,
                                                                      _FTA_tl1cal_pathlossData_T data)
{
    return ModelText(PathlossDataModel(model, data));
}

std::string CTdscdmaDataModelResponseBuilder::UpdatePathlossDataModelV3(QJsonObject &model,
                                                                        _FTA_tl1cal_pathlossData_8level_T data)
{
    return ModelText(PathlossDataModelV3(model, data));
}

QJsonObject CTdscdmaDataModelResponseBuilder::PathlossDataModel(QJsonObject &model,
                                                                const _FTA_tl1cal_pathlossData_T &data)
{
    if (!IsJsonValueDefined(GetJsonValueConst(model, "calDataIf.data")))
        return model;
    const QString failure = "Update RX pathloss data failed";
    QVector<SWrite> writes;
    for (int group = 1; group <= 2; ++group) {
        for (int mode = 0; mode < 4; ++mode) {
            writes.append({Default(group, QString("loss%1").arg(mode)),
                           group == 1 ? LossColumn(data.subbandLoss[mode]) : LossColumn(data.tempLoss[mode]), failure});
        }
    }
    writes.append({Default(1, "uarfcn"), DecimalColumn(data.subbandMaxUarfcn), failure});
    return WriteAll(model, writes);
}

QJsonObject CTdscdmaDataModelResponseBuilder::PathlossDataModelV3(QJsonObject &model,
                                                                  const _FTA_tl1cal_pathlossData_8level_T &data)
{
    if (!IsJsonValueDefined(GetJsonValueConst(model, "calDataIf.data")))
        return model;
    QVector<SWrite> writes{{Default(1, "uarfcn"), DecimalColumn(data.subbandMaxUarfcn),
                            "Update RX pathloss frequency failed"}};
    for (int mode = 0; mode < 8; ++mode) {
        const QString member = QString("loss%1").arg(mode);
        writes.append({Default(1, member), LossColumn(data.subbandLoss[mode]),
                       "Update RX pathloss data by frequency failed"});
        writes.append({Default(2, member), LossColumn(data.tempLoss[mode]),
                       "Update RX pathloss data by temperature failed"});
    }
    return WriteAll(model, writes);
}

std::string CTdscdmaDataModelResponseBuilder::GetAfcDataModel(QJsonObject model, TavoAfcRecord data)
{
    const QString group = "cmdIf.response.group1.memberProperty.";
    const float slope = 4096.0f / float(data.slopeInverse);
    return ModelText(WriteAll(model, {{group + "initAfcdac.trait.defaultValue", QString::number(data.initAfcDac),
                             "Update Init AFC DAC failed"},
                            {group + "slope.trait.defaultValue", QString::number(slope, 'g', 6), "Update slope failed"},
                            {group + "capId.trait.defaultValue", QString::number(data.capId), "Update cap ID failed"}}));
}

bool CTdscdmaDataModelResponseBuilder::SetTadcTable(QJsonObject &model, const CTdscdmaTadc::AdcTable &adc)
{
    for (int i = 0; i < CTdscdmaTadc::kAdcCount; ++i) {
        const QString path = QString("cmdIf.response.group2.memberProperty.adc%1.trait.defaultValue").arg(i);
        if (!SetJsonValue(model, path, QString::number(adc[size_t(i)])))
            return false;
    }
    return true;
}

std::string CTdscdmaDataModelResponseBuilder::GetTadcDataModel(QJsonObject model, CTdscdmaTadc::AdcTable adc)
{
    if (!SetTadcTable(model, adc))
        return BuildEmptyModelString();
    return ModelText(model);
}

std::string CTdscdmaDataModelResponseBuilder::UpdateTadcMeasureResult(QJsonObject model, QString result)
{
    return ModelText(WriteAll(model, {{"cmdIf.response.group1.memberProperty.adc.trait.defaultValue", result,
                                  "Update measure result failed."}}));
}

std::string CTdscdmaDataModelResponseBuilder::UpdateRssiResult(QJsonObject model, bool isAgcEx, SRssiResult result)
{
    const QString rssi = isAgcEx ? Fixed(result.rssiEx * 0.125, 3) : QString::number(result.rssi);
    const QString dspPower = m_capability.IsDspPowerInQ3() ? Fixed((int(result.dspPower) - 65536) * 0.125, 3)
                                                           : Fixed(result.dspPower, 2);
    return ModelText(WriteAll(model, {
                                    {"cmdIf.response.group1.memberProperty.rssi.trait.defaultValue", rssi,
                                     "Update Rssi result failed."},
                                    {"cmdIf.response.group1.memberProperty.dspPower.trait.defaultValue", dspPower,
                                     "Update DSP power result failed."},
                                    {"cmdIf.response.group1.memberProperty.usedGain.trait.defaultValue",
                                     QString::number(result.usedGain), "Update Used Gain result failed."},
                                }));
}

std::string CTdscdmaDataModelResponseBuilder::UpdateRegisterResult(QJsonObject model, uint16_t value)
{
    return ModelText(WriteAll(model, {{"cmdIf.response.group1.memberProperty.regValue.trait.defaultValue",
                                  QString::number(value), "Update baseband register result failed."}}));
}
