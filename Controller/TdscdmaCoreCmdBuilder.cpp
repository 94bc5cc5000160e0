#include "TdscdmaCoreCmdBuilder.h"

#include <QJsonArray>
#include <QStringList>

#include "JsonPath.h"

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
