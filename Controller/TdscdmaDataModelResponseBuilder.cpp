#include "TdscdmaDataModelResponseBuilder.h"

#include <QJsonDocument>

#include <initializer_list>
#include <utility>

#include "JsonPath.h"
#include "ModelUpdateResult.h"

namespace {

// Writes each (path, text) in order; the first that fails gives the
// substitute model with its failure text.
std::string WriteAll(QJsonObject &model,
                     std::initializer_list<std::pair<const char *, std::pair<QString, const char *>>> writes)
{
    for (const auto &write : writes) {
        if (!SetJsonValue(model, write.first, write.second.first))
            return BuildEmptyModelStringWithError(write.second.second);
    }
    return QJsonDocument(model).toJson(QJsonDocument::Compact).toStdString();
}

QString Fixed(double value, int decimals) { return QString::number(value, 'f', decimals); }

} // namespace

std::string CTdscdmaDataModelResponseBuilder::UpdateTadcMeasureResult(QJsonObject model, QString result)
{
    return WriteAll(model, {{"cmdIf.response.group1.memberProperty.adc.trait.defaultValue",
                             {result, "Update measure result failed."}}});
}

std::string CTdscdmaDataModelResponseBuilder::UpdateRssiResult(QJsonObject model, bool isAgcEx, SRssiResult result)
{
    const QString rssi = isAgcEx ? Fixed(result.rssiEx * 0.125, 3) : QString::number(result.rssi);
    const QString dspPower = m_capability.IsDspPowerInQ3() ? Fixed((int(result.dspPower) - 65536) * 0.125, 3)
                                                           : Fixed(result.dspPower, 2);
    return WriteAll(model, {
                               {"cmdIf.response.group1.memberProperty.rssi.trait.defaultValue",
                                {rssi, "Update Rssi result failed."}},
                               {"cmdIf.response.group1.memberProperty.dspPower.trait.defaultValue",
                                {dspPower, "Update DSP power result failed."}},
                               {"cmdIf.response.group1.memberProperty.usedGain.trait.defaultValue",
                                {QString::number(result.usedGain), "Update Used Gain result failed."}},
                           });
}

std::string CTdscdmaDataModelResponseBuilder::UpdateRegisterResult(QJsonObject model, uint16_t value)
{
    return WriteAll(model, {{"cmdIf.response.group1.memberProperty.regValue.trait.defaultValue",
                             {QString::number(value), "Update baseband register result failed."}}});
}
