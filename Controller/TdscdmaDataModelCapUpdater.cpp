#include "TdscdmaDataModelCapUpdater.h"

#include <QFile>
#include <QJsonDocument>

#include "Items/TdscdmaTadc.h"
#include "Items/TdscdmaTpc.h"
#include "JsonPath.h"
#include "ModelUpdateResult.h"
#include "RadbenchLog.h"

namespace {

constexpr int kFallbackMin = -32768;
constexpr int kFallbackMax = 32767;

// Writes `value` at `path`; on failure marks the model with `failure`.
bool Write(QJsonObject &model, const QString &path, const QJsonValue &value, const QString &failure)
{
    if (SetJsonValue(model, path, value))
        return true;
    InsertModelUpdateResult(model, false, failure);
    return false;
}

QString ModelName(const QJsonObject &model) { return model.value("modelName").toString(); }

} // namespace

CTdscdmaDataModelCapUpdater::CTdscdmaDataModelCapUpdater()
{
    m_3gppModel = QJsonDocument::fromJson(QByteArray::fromStdString(Get3gppDataModel())).object();
    qCDebug(lcController) << m_3gppModel;
}

const QStringList &CTdscdmaDataModelCapUpdater::BandNames()
{
    static const QStringList names{"1900-1920MHz(a)", "2010-2025MHz(a)", "1850-1910MHz(b)", "1930-1990MHz(b)",
                                   "1910-1930MHz(c)", "2570-2620MHz(d)", "1880-1920MHz(f)", "2300-2400MHz(e)"};
    return names;
}

const QStringList &CTdscdmaDataModelCapUpdater::BandGroupNames()
{
    static const QStringList names{"1850-1930MHz", "2010-2025MHz", "1930-1990MHz", "2570-2620MHz", "2300-2400MHz"};
    return names;
}

std::string CTdscdmaDataModelCapUpdater::Get3gppDataModel()
{
    QFile file(":/Tdscdma3gpp.json");
    QJsonObject model;
    if (!ReadDataModel(file, model)) {
        qCCritical(lcController) << "CTdscdmaDataModelCapUpdater: no band plan, every band takes the fallback range";
        return std::string();
    }
    return ModelText(model);
}

QJsonValue CTdscdmaDataModelCapUpdater::GetOperatingBand(const QString &band) const
{
    const QJsonObject row = m_3gppModel.value("operatingBand").toObject().value(band).toObject();
    return row.isEmpty() ? QJsonValue() : QJsonValue(row);
}

// ---- Bands and UARFCN ranges -------------------------------------------------------

bool CTdscdmaDataModelCapUpdater::UpdateBandFreqInDataModel(QJsonObject &model, QList<SBandPathDir> bandPaths,
                                                            QList<SFreqPathDir> freqPaths, bool useBandGroups)
{
    QJsonArray bands;
    const QStringList &names = useBandGroups ? BandGroupNames() : BandNames();
    for (int i = 0; i < names.size(); ++i) {
        if (useBandGroups ? m_capability.IsBandGroupSupported(i) : m_capability.IsBandSupported(i))
            bands.append(names[i]);
    }

    for (const SBandPathDir &bandPath : qAsConst(bandPaths)) {
        qCDebug(lcController) << "CTdscdmaDataModelCapUpdater::UpdateBandFreqInDataModel bandList" << bands;
        if (!bands.isEmpty() && !SetJsonValue(model, bandPath.path, bands)) {
            InsertModelUpdateResult(model, false, "Update Band info failed");
            qCCritical(lcController) << ModelName(model) << "Update band mapping failed";
            return false;
        }
    }
    return UpdateFreqInDataModelBySupportBand(model, bands, freqPaths, useBandGroups);
}

QJsonObject CTdscdmaDataModelCapUpdater::FrequencyMap(QJsonObject &model, const QJsonArray &bands, bool uplink,
                                                      bool useBandGroups)
{
    QJsonObject map;
    for (const QJsonValue &bandValue : bands) {
        const QString band = bandValue.toString();
        const QJsonValue row = GetOperatingBand(band);
        int min = kFallbackMin;
        int max = kFallbackMax;
        if (IsJsonValueDefined(row)) {
            const QJsonObject range = row.toObject().value(uplink ? "uplink" : "downlink").toObject();
            min = range.value("low").toInt();
            max = range.value("high").toInt();
        } else if (!uplink) {
            AddModelUpdateResult(model, false, "Update Band" + band + " frequency range check failed");
        }
        QJsonObject entry{{"min", min}, {"max", max}};
        if (useBandGroups)
            entry.insert("rangeCheck", QString("%1~%2,0").arg(min).arg(max));
        map.insert(band, entry);
    }
    return map;
}

bool CTdscdmaDataModelCapUpdater::UpdateFreqInDataModelBySupportBand(QJsonObject &model, QJsonArray bands,
                                                                     QList<SFreqPathDir> freqPaths,
                                                                     bool useBandGroups)
{
    if (freqPaths.isEmpty())
        return true;
    const QJsonObject uplinkMap = FrequencyMap(model, bands, true, useBandGroups);
    const QJsonObject downlinkMap = FrequencyMap(model, bands, false, useBandGroups);

    for (const SFreqPathDir &freqPath : qAsConst(freqPaths)) {
        const QJsonObject &map = freqPath.direction ? uplinkMap : downlinkMap;
        if (!map.isEmpty() && !SetJsonValue(model, freqPath.path, map)) {
            AddModelUpdateResult(model, false, "Update frequency info failed");
            qCCritical(lcController) << ModelName(model) << "Update frequency mapping failed";
            return false;
        }
    }
    return true;
}

// ---- What each page's target lacks or names otherwise ---------------------------------

bool CTdscdmaDataModelCapUpdater::UpdateTpcCaptions(QJsonObject &model)
{
    const QString group = "calDataIf.data.group3.memberProperty.";
    if (m_capability.IsApcExSupported())
        return Write(model, group + "maxPower.caption", "Max Power Offset (dB)", "Update cpation failed: max Power") &&
               Write(model, group + "vgaDac.caption", "UPA Max Power Offset (dB)",
                     "Update cpation failed: UPA Max Power");
    // Without APC extension the field is the raw DAC word, which the stored
    // models' 1/32 range would cut: the widget takes any word.
    return Write(model, group + "maxPower.caption", "Max Power (dBm)", "Update cpation failed: max Power") &&
           Write(model, group + "vgaDac.caption", "VGA DAC", "Update cpation failed: VGA DAC") &&
           Write(model, group + "vgaDac.trait.value.max", 65535, "Update range failed: VGA DAC");
}

bool CTdscdmaDataModelCapUpdater::UpdateTpcClpcSupport(QJsonObject &model, const QString &compGroup)
{
    const int support = m_capability.GetTxClpcMode() == 1 ? 1 : 0;
    for (const QString point : {"pdPoint0", "pdPoint1", "pdPoint2"}) {
        if (!Write(model, "calDataIf.data.group1.memberProperty." + point + ".defaultSupport", support,
                   "Update DefaultSupport Failed: default PD compensation " + point))
            return false;
    }
    return Write(model, "calDataIf.data." + compGroup + ".memberProperty.comp.defaultSupport", support,
                 "Update DefaultSupport Failed: PD compensation by sub-band");
}

bool CTdscdmaDataModelCapUpdater::UpdateTpcDefaultSupport(CTdscdmaTpc *tpc, QJsonObject &model)
{
    QJsonObject enableByGroup;
    bool anyMaxPower = false;
    for (int index = 0; index < BandGroupNames().size(); ++index) {
        if (!m_capability.IsBandGroupSupported(index))
            continue;
        const bool present = tpc && tpc->IsMaxPaPowerFieldPresent(index);
        enableByGroup.insert(BandGroupNames()[index], present ? 1 : 0);
        anyMaxPower = anyMaxPower || present;
    }

    const QString group = "calDataIf.data.group3.memberProperty.";
    if (!Write(model, group + "maxPower.defaultSupport", anyMaxPower ? 1 : 0, "Update DefaultSupport Failed: max Power") ||
        !Write(model, group + "vgaDac.defaultSupport", anyMaxPower ? 1 : 0, "Update DefaultSupport Failed: vgaDac"))
        return false;
    if (anyMaxPower &&
        (!Write(model, group + "maxPower.trait.enableStatusPair", enableByGroup,
                "Update enableStatusPair failed: maxPower") ||
         !Write(model, group + "vgaDac.trait.enableStatusPair", enableByGroup,
                "Update enableStatusPair failed: vgaDac") ||
         !UpdateTpcCaptions(model)))
        return false;
    return UpdateTpcClpcSupport(model, "group7");
}

bool CTdscdmaDataModelCapUpdater::UpdateTpcV3DefaultSupport(QJsonObject &model)
{
    return UpdateTpcCaptions(model) && UpdateTpcClpcSupport(model, "group8");
}

bool CTdscdmaDataModelCapUpdater::UpdatePathlossDefaultEnableStatus(QJsonObject &model)
{
    const int support = m_capability.IsRxExtendModeSupported() ? 1 : 0;
    for (const QString path : {"calDataIf.data.group1.memberProperty.loss3.defaultSupport",
                               "calDataIf.data.group2.memberProperty.loss3.defaultSupport"}) {
        if (!SetJsonValue(model, path, support)) {
            qCCritical(lcController) << "Update failed: " << path;
            InsertModelUpdateResult(model, false, "Update exten mode enable status failed");
            return false;
        }
    }
    return true;
}

bool CTdscdmaDataModelCapUpdater::UpdateTadcCaption(CTdscdmaTadc *tadc, QJsonObject &model)
{
    uint8_t channel = 0;
    const QString text = tadc && tadc->GetTadcChannelIndex(channel) == 0 ? QString::number(channel) : "Invalid";
    return Write(model, "cmdIf.response.group1.memberProperty.adc.caption", "ADC Channel( " + text + " )",
                 "Update cpation failed: adc");
}

bool CTdscdmaDataModelCapUpdater::UpdateDpchTxDefaultSupport(QJsonObject &model)
{
    const int support = m_capability.IsApcExSupported() ? 1 : 0;
    const QString group = "cmdIf.request.group1.memberProperty.";
    return Write(model, group + "fixPower.defaultSupport", support, "Update DefaultSupport Failed: Fix Power") &&
           Write(model, group + "wantedPower.defaultSupport", support, "Update DefaultSupport Failed: Wanted Power");
}

bool CTdscdmaDataModelCapUpdater::UpdateRssiModeList(QJsonObject &model)
{
    QJsonArray modes{"High", "Mid", "Low"};
    if (m_capability.IsRxExtendModeSupported())
        modes.append("Ext");
    if (m_capability.IsPathlossV3()) {
        for (const char *mode : {"Ext0", "Ext1", "Ext2", "Ext3"})
            modes.append(mode);
    }
    return Write(model, "cmdIf.request.group1.memberProperty.mode.trait.value", modes, "Update Value Failed: Mode");
}
