#include <QtTest>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "RadbenchResources.h"

// The stored models against rows written out by hand, in the order and
// notation of the model tables, so that the two can be read side by side.
// A row may stand for several models, groups and members (separated by
// blanks, captions by '|'); each of them is checked on its own. A model is
// named as in ":/Tdscdma<name>.json". Values in JSON fragments are written as
// they stand in the files: text in quotes, numbers bare.

namespace {

struct ModelRow {
    const char *model, *modelName;
    const char *interface; // "" for the band table
    const char *groups;    // section to number of groups
};

struct GroupRow {
    const char *models, *group;
    int groupType;
    const char *groupName; // nullptr: no groupName
    const char *memberList;
    const char *dimension; // the column keys of a type 3 group
};

struct MemberRow {
    const char *models, *groups, *members, *captions, *dataType;
    const char *defaultValue; // JSON
    const char *space;        // trait keys beside dataType and defaultValue
    int enable;               // defaultEnableStatus
    int support;              // defaultSupport
    const char *relations;    // member keys beside caption, trait and the two above
};

struct BandRow {
    const char *band;
    int uplinkLow, uplinkHigh, downlinkLow, downlinkHigh;
};

const ModelRow kModels[] = {
    {"ContTx", "ContTx", "cmdIf", R"({"request": 1, "response": 1})"},
    {"ContRx", "ContTx", "cmdIf", R"({"request": 1, "response": 1})"},
    {"DpchTx", "DPCH TX", "cmdIf", R"({"request": 2, "response": 1})"},
    {"Rssi", "RSSI", "cmdIf", R"({"request": 1, "response": 1})"},
    {"BBReg", "BBReg", "cmdIf", R"({"request": 2, "response": 1})"},
    {"Afc", "Afc Control", "cmdIf", R"({"request": 1, "response": 1})"},
    {"Tadc", "TADC", "cmdIf", R"({"request": 1, "response": 2})"},
    {"Tpc", "TPC profile", "calDataIf", R"({"config": 1, "data": 8})"},
    {"TpcV3", "TPC profile", "calDataIf", R"({"config": 1, "data": 9})"},
    {"Pathloss", "PathLoss", "calDataIf", R"({"config": 1, "data": 2})"},
    {"PathlossV3", "PathLoss", "calDataIf", R"({"config": 1, "data": 2})"},
    {"3gpp", "3GPP", "", "{}"},
};

const GroupRow kGroups[] = {
    {"ContTx", "cmdIf.request.group1", 1, "Config", R"(["band", "uarfcn"])", "{}"},
    {"ContTx DpchTx", "cmdIf.response.group1", 1, nullptr, "[]", "{}"},
    {"DpchTx", "cmdIf.request.group1", 1, "Carrier Config", R"(["band", "afcdac", "wantedPower", "apcData", "uarfcn", "paMode", "fixPower"])", "{}"},
    {"DpchTx", "cmdIf.request.group2", 3, "TS setting", R"(["direction", "modulation"])", R"({"dimentionCount": 5, "startIndex": 1, "indexStep": 1})"},
    {"Rssi", "cmdIf.request.group1", 1, "Config", R"(["band", "afcdac", "gain", "uarfcn", "mode", "agcTracking"])", "{}"},
    {"Rssi", "cmdIf.response.group1", 1, "output", R"(["rssi", "dspPower", "usedGain"])", "{}"},
    {"BBReg", "cmdIf.request.group1", 1, "RegRead", R"(["regAddr"])", "{}"},
    {"BBReg", "cmdIf.request.group2", 1, "RegWrite", R"(["regAddr", "regValue"])", "{}"},
    {"BBReg", "cmdIf.response.group1", 1, "RegRead", R"(["regValue"])", "{}"},
    {"Afc", "cmdIf.request.group1", 1, "Carrier Config", R"(["band", "afcSelect", "afcdac1", "afcdac2", "afcData", "uarfcn", "paMode", "capId"])", "{}"},
    {"Afc", "cmdIf.response.group1", 1, "Calibration data", R"(["initAfcdac", "slope", "capId"])", "{}"},
    {"Tadc", "cmdIf.request.group1", 1, "Temperature ADC Read", R"(["count"])", "{}"},
    {"Tadc", "cmdIf.response.group1", 1, "Temperature ADC Read", R"(["adc"])", "{}"},
    {"Tadc", "cmdIf.response.group2", 1, "Temperature ADC Read", R"(["adc0", "adc1", "adc2", "adc3", "adc4", "adc5", "adc6", "adc7"])", "{}"},
    {"Tpc TpcV3 Pathloss PathlossV3", "calDataIf.config.group1", 1, "Config", R"(["band"])", "{}"},
    {"Tpc TpcV3", "calDataIf.data.group1", 1, "Default PD compensation", R"(["pdPoint0", "pdPoint1", "pdPoint2"])", "{}"},
    {"Tpc TpcV3", "calDataIf.data.group2", 1, "Hysteresis", R"(["hysteresisStart0", "hysteresisEnd0", "hysteresisStart1", "hysteresisEnd1"])", "{}"},
    {"Tpc TpcV3", "calDataIf.data.group3", 1, "MaxPower ", R"(["maxPower", "vgaDac"])", "{}"},
    {"Tpc", "calDataIf.data.group4", 3, "VGA DAC", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {"Tpc", "calDataIf.data.group5", 3, "Power (dBm)", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {"Tpc", "calDataIf.data.group6", 3, "VGA compensation by sub-band", R"(["uarfcn", "paH", "paM", "paL"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {"Tpc", "calDataIf.data.group7", 3, "PD compensation by sub-band", R"(["comp"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {"Tpc", "calDataIf.data.group8", 3, "VGA compensation by temperature", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},
    {"TpcV3", "calDataIf.data.group4", 1, "TX Power Setting", R"(["wantedPowerOffset", "paMidPowerOffset"])", "{}"},
    {"TpcV3", "calDataIf.data.group5", 3, "VGA DAC", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {"TpcV3", "calDataIf.data.group6", 3, "Power (dBm)", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {"TpcV3", "calDataIf.data.group7", 3, "VGA compensation by sub-band", R"(["uarfcn", "paH", "paM", "paL"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {"TpcV3", "calDataIf.data.group8", 3, "PD compensation by sub-band", R"(["comp"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {"TpcV3", "calDataIf.data.group9", 3, "VGA compensation by temperature", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},
    {"Pathloss", "calDataIf.data.group1", 3, "RX Main", R"(["uarfcn", "loss0", "loss1", "loss2", "loss3"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {"Pathloss", "calDataIf.data.group2", 3, "temperature", R"(["loss0", "loss1", "loss2", "loss3"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},
    {"PathlossV3", "calDataIf.data.group1", 3, "RX Main", R"(["uarfcn", "loss0", "loss1", "loss2", "loss3", "loss4", "loss5", "loss6", "loss7"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {"PathlossV3", "calDataIf.data.group2", 3, "temperature", R"(["loss0", "loss1", "loss2", "loss3", "loss4", "loss5", "loss6", "loss7"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},
};

const MemberRow kMembers[] = {
    {"ContTx DpchTx Rssi Afc", "cmdIf.request.group1", "band", "Band", "list", R"j("1900-1920MHz(a)")j", R"j({"value": ["1900-1920MHz(a)", "2010-2025MHz(a)"]})j", 1, 1, R"({"publishValueList": ["request.group1.memberProperty.uarfcn"]})"},
    {"ContTx DpchTx Rssi Afc", "cmdIf.request.group1", "uarfcn", "UARFCN", "range", R"("9550")", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "request.group1.memberProperty.band"})"},
    {"DpchTx Rssi", "cmdIf.request.group1", "afcdac", "AFC DAC", "range", R"("4096")", R"({"value": {"min": 0, "max": 8191}})", 1, 1, "{}"},
    {"DpchTx", "cmdIf.request.group1", "wantedPower", "Wanted Power(dBm)", "range", R"("24")", R"({"value": {"min": -128, "max": 127}})", 1, 1, "{}"},
    {"DpchTx Afc", "cmdIf.request.group1", "paMode", "PA Mode", "list", R"("High")", R"({"value": ["High", "Mid", "Low"]})", 1, 1, "{}"},
    {"DpchTx", "cmdIf.request.group1", "apcData", "AFC data", "range", R"("12")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"DpchTx", "cmdIf.request.group1", "fixPower", "Fix Power", "boolean", R"("false")", R"({"value": ["true", "false"]})", 1, 1, "{}"},
    {"DpchTx", "cmdIf.request.group2", "direction", "Direction", "list", R"(["UL", "DL", "DL", "DL", "DL"])", R"({"value": ["DL", "UL"]})", 1, 1, "{}"},
    {"DpchTx", "cmdIf.request.group2", "modulation", "Modulation", "list", R"(["QPSK", "QPSK", "QPSK", "QPSK", "QPSK"])", R"({"value": ["QPSK", "16QAM"]})", 1, 1, "{}"},
    {"Rssi", "cmdIf.request.group1", "gain", "Wanted Power(dBm)", "range", R"("60")", R"({"value": {"min": 0, "max": 255}})", 1, 1, "{}"},
    {"Rssi", "cmdIf.request.group1", "mode", "Mode", "list", R"("High")", R"({"value": ["High", "Mid", "Low"]})", 1, 1, "{}"},
    {"Rssi", "cmdIf.request.group1", "agcTracking", "AGC Tracking", "boolean", R"("false")", R"({"value": ["true", "false"]})", 1, 1, "{}"},
    {"Rssi", "cmdIf.response.group1", "rssi dspPower usedGain", "RSSI|DSP Power|USED Gain", "label", R"("")", "{}", 1, 1, "{}"},
    {"BBReg", "cmdIf.request.group1", "regAddr", "Register Address", "range", R"("16")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"BBReg", "cmdIf.request.group2", "regAddr regValue", "Register Address|Register Value", "range", R"("16")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"BBReg", "cmdIf.response.group1", "regValue", "Register Value", "label", R"("N/A")", "{}", 1, 1, "{}"},
    {"Afc", "cmdIf.request.group1", "afcSelect", "AFC Select", "list", R"("AFC1")", R"({"value": ["AFC1", "AFC2"]})", 1, 1, R"({"publishEnableStatusList": ["request.group1.memberProperty.afcdac1", "request.group1.memberProperty.afcdac2"]})"},
    {"Afc", "cmdIf.request.group1", "afcdac1", "DAC1", "range", R"("4096")", R"({"value": {"min": 0, "max": 8191}, "enableStatusPair": {"AFC1": 1, "AFC2": 0}})", 1, 1, "{}"},
    {"Afc", "cmdIf.request.group1", "afcdac2", "DAC2", "range", R"("5000")", R"({"value": {"min": 0, "max": 8191}, "enableStatusPair": {"AFC1": 0, "AFC2": 1}})", 0, 1, "{}"},
    {"Afc", "cmdIf.request.group1 cmdIf.response.group1", "capId", "CAP ID", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"Afc", "cmdIf.request.group1", "afcData", "AFC data", "range", R"("12")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"Afc", "cmdIf.response.group1", "initAfcdac", "Init AFC Dac", "range", R"("2200")", R"({"value": {"min": 0, "max": 8191}})", 1, 1, "{}"},
    {"Afc", "cmdIf.response.group1", "slope", "Slope", "pointRange", R"("5")", R"({"value": {"min": 0.062501, "max": 2147483647}})", 1, 1, "{}"},
    {"Tadc", "cmdIf.request.group1", "count", "Measure Count", "range", R"("16")", R"({"value": {"min": 1, "max": 65535, "displayBase": 16}})", 1, 1, "{}"},
    {"Tadc", "cmdIf.response.group1", "adc", "ADC", "label", R"("N/A")", "{}", 1, 1, "{}"},
    {"Tadc", "cmdIf.response.group2", "adc0 adc1 adc2 adc3 adc4 adc5 adc6 adc7", "ADC0|ADC1|ADC2|ADC3|ADC4|ADC5|ADC6|ADC7", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"Tpc", "calDataIf.config.group1", "band", "Band", "list", R"("1850-1930MHz")", R"({"value": ["1850-1930MHz"]})", 1, 1, R"({"publishValueList": ["data.group6.memberProperty.uarfcn"], "publishEnableStatusList": ["data.group3.memberProperty.maxPower", "data.group3.memberProperty.vgaDac"]})"},
    {"Tpc TpcV3", "calDataIf.data.group1", "pdPoint0 pdPoint1 pdPoint2", "Point_0 (dB)|Point_1 (dB)|Point_2 (dB)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023.96875}})", 1, 1, "{}"},
    {"Tpc TpcV3", "calDataIf.data.group2", "hysteresisStart0 hysteresisEnd0 hysteresisStart1 hysteresisEnd1", "Start0|End0|Start0|End0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {"Tpc", "calDataIf.data.group3", "maxPower", "Max Power (dBm)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023}, "enableStatusPair": {"1": 0}})", 1, 1, R"({"subscribeEnableStatus": "config.group1.memberProperty.band"})"},
    {"Tpc", "calDataIf.data.group3", "vgaDac", "VGA DAC", "pointRange", R"("0")", R"({"value": {"min": 0, "max": 2047.96875}, "enableStatusPair": {"1": 0}})", 1, 1, R"({"subscribeEnableStatus": "config.group1.memberProperty.band"})"},
    {"Tpc", "calDataIf.data.group4", "paH paM paL", "PA_H|PA_M|PA_L", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"Tpc", "calDataIf.data.group5", "paH paM paL", "PA_H|PA_M|PA_L", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {"Tpc", "calDataIf.data.group6 calDataIf.data.group8", "paH paM paL", "PA_H (dB)|PA_M (dB)|PA_L (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {"Tpc", "calDataIf.data.group6", "uarfcn", "UARFCN", "range", R"(["0"])", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "config.group1.memberProperty.band"})"},
    {"Tpc", "calDataIf.data.group7", "comp", "Comp. (dB)", "pointRange", R"(["0"])", R"({"value": {"min": 0, "max": 50.0}})", 1, 1, "{}"},
    {"TpcV3", "calDataIf.config.group1", "band", "Band", "list", R"("1850-1930MHz")", R"({"value": ["1850-1930MHz"]})", 1, 1, R"({"publishValueList": ["data.group7.memberProperty.uarfcn"]})"},
    {"TpcV3", "calDataIf.data.group3", "maxPower", "Max Power (dBm)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023}})", 1, 1, "{}"},
    {"TpcV3", "calDataIf.data.group3", "vgaDac", "VGA DAC", "pointRange", R"("0")", R"({"value": {"min": 0, "max": 2047}})", 1, 1, "{}"},
    {"TpcV3", "calDataIf.data.group4", "wantedPowerOffset paMidPowerOffset", "Wanted Power Offset|PA Middle Power Offset", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023}})", 1, 1, "{}"},
    {"TpcV3", "calDataIf.data.group5", "paH paM paL", "PA_H|PA_M|PA_L", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {"TpcV3", "calDataIf.data.group6", "paH paM paL", "PA_H|PA_M|PA_L", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {"TpcV3", "calDataIf.data.group7 calDataIf.data.group9", "paH paM paL", "PA_H (dB)|PA_M (dB)|PA_L (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {"TpcV3", "calDataIf.data.group7", "uarfcn", "UARFCN", "range", R"(["0"])", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "config.group1.memberProperty.band"})"},
    {"TpcV3", "calDataIf.data.group8", "comp", "Comp. (dB)", "pointRange", R"(["0"])", R"({"value": {"min": 0, "max": 50.0}})", 1, 1, "{}"},
    {"Pathloss PathlossV3", "calDataIf.config.group1", "band", "Band", "list", R"("1850-1930MHz")", R"({"value": ["1850-1930MHz"]})", 1, 1, R"({"publishValueList": ["data.group1.memberProperty.uarfcn"]})"},
    {"Pathloss PathlossV3", "calDataIf.data.group1", "uarfcn", "UARFCN", "range", R"(["0"])", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "config.group1.memberProperty.band"})"},
    {"Pathloss", "calDataIf.data.group1 calDataIf.data.group2", "loss0 loss1 loss2", "LNA_H_LOSS|LNA_M_LOSS|LNA_L_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {"Pathloss", "calDataIf.data.group1 calDataIf.data.group2", "loss3", "LNA_EXT_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},
    {"PathlossV3", "calDataIf.data.group1 calDataIf.data.group2", "loss0 loss1 loss2 loss4 loss5 loss6", "LNA_H_LOSS|LNA_M_LOSS|LNA_L_LOSS|LNA_EXT0_LOSS|LNA_EXT1_LOSS|LNA_EXT2_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {"PathlossV3", "calDataIf.data.group1 calDataIf.data.group2", "loss3 loss7", "LNA_EXT_LOSS|LNA_EXT3_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},
};

const BandRow kBands[] = {
    {"1900-1920MHz(a)", 9500, 9600, 9500, 9600},
    {"2010-2025MHz(a)", 10050, 10125, 10050, 10125},
    {"1850-1910MHz(b)", 9250, 9550, 9250, 9550},
    {"1930-1990MHz(b)", 9650, 9950, 9650, 9950},
    {"1910-1930MHz(c)", 9550, 9650, 9550, 9650},
    {"2570-2620MHz(d)", 12850, 13100, 12850, 13100},
    {"1880-1920MHz(f)", 9400, 9600, 9400, 9600},
    {"2300-2400MHz(e)", 11500, 12000, 11500, 12000},
    {"1850-1930MHz", 9250, 9650, 9250, 9650},
    {"2010-2025MHz", 10050, 10125, 10050, 10125},
    {"1930-1990MHz", 9650, 9950, 9650, 9950},
    {"2570-2620MHz", 12850, 13100, 12850, 13100},
    {"2300-2400MHz", 11500, 12000, 11500, 12000},
};

// A JSON fragment of the rows above; a row that is no valid JSON stops the test.
QJsonValue Json(const QString &text)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson("[" + text.toUtf8() + "]", &error);
    if (error.error != QJsonParseError::NoError || doc.array().size() != 1)
        qFatal("Bad JSON in a test row: %s", qPrintable(text));
    return doc.array().at(0);
}

QString Text(const QJsonValue &value)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact)).mid(1).chopped(1);
}

QByteArray ReadModel(const QString &model)
{
    QFile file(":/Tdscdma" + model + ".json");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The parsed document of a model; an empty object when it can't be read.
QJsonObject Model(const QString &model)
{
    static QHash<QString, QJsonObject> cache;
    if (!cache.contains(model))
        cache.insert(model, QJsonDocument::fromJson(ReadModel(model)).object());
    return cache.value(model);
}

QJsonValue At(const QJsonObject &object, const QString &path)
{
    QJsonValue value = object;
    for (const QString &key : path.split('.'))
        value = value.toObject().value(key);
    return value;
}

QStringList Sorted(QStringList list)
{
    list.sort();
    return list;
}

QStringList Keys(const QJsonObject &object) { return Sorted(object.keys()); }

// Every model, group and member a member row stands for, with its caption
// and the row's index.
struct Member {
    QString model, group, member, caption;
    int row;
};

QVector<Member> Members()
{
    QVector<Member> members;
    for (int row = 0; row < int(std::size(kMembers)); ++row) {
        const MemberRow &r = kMembers[row];
        const QStringList names = QString(r.members).split(' '), captions = QString(r.captions).split('|');
        if (names.size() != captions.size())
            qFatal("Members and captions do not pair up in the row of %s", r.members);
        for (const QString &model : QString(r.models).split(' '))
            for (const QString &group : QString(r.groups).split(' '))
                for (int i = 0; i < names.size(); ++i)
                    members.append({model, group, names[i], captions[i], row});
    }
    return members;
}

} // namespace

class TestStoredModels : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { InitRadbenchResources(); }

    void models_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < int(std::size(kModels)); ++row)
            QTest::newRow(kModels[row].model) << row;
    }
    void models()
    {
        QFETCH(int, row);
        const ModelRow &expected = kModels[row];
        const QJsonObject model = Model(expected.model);
        QVERIFY2(!model.isEmpty(), "resource missing, empty or no JSON object");

        QCOMPARE(Text(model.value("modelName")), Text(QJsonValue(expected.modelName)));
        QCOMPARE(Text(model.value("modelVersion")), Text(QJsonValue(1)));
        const QString interface = expected.interface;
        if (interface.isEmpty()) {
            QCOMPARE(Keys(model), Sorted({"modelName", "modelVersion", "releaseVersion", "operatingBand"}));
            QCOMPARE(Text(model.value("releaseVersion")), Text(QJsonValue("14.3.0")));
            QStringList bands;
            for (const BandRow &band : kBands)
                bands << band.band;
            QCOMPARE(Keys(model.value("operatingBand").toObject()), Sorted(bands));
            return;
        }
        // One interface; no integrity block or substitute marker in a stored model.
        QCOMPARE(Keys(model), Sorted({"modelName", "modelVersion", interface}));

        const QJsonObject groups = Json(expected.groups).toObject();
        const QJsonObject sections = model.value(interface).toObject();
        QCOMPARE(Keys(sections), Keys(groups));
        for (const QString &section : groups.keys()) {
            QStringList names;
            for (int n = 1; n <= groups.value(section).toInt(); ++n)
                names << QString("group%1").arg(n);
            QCOMPARE(Keys(sections.value(section).toObject()), Sorted(names));
        }
    }

    void groups_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<int>("row");
        for (int row = 0; row < int(std::size(kGroups)); ++row)
            for (const QString &model : QString(kGroups[row].models).split(' '))
                QTest::addRow("%s %s", qPrintable(model), kGroups[row].group) << model << row;
    }
    void groups()
    {
        QFETCH(QString, model);
        QFETCH(int, row);
        const GroupRow &expected = kGroups[row];

        const QJsonObject object = At(Model(model), expected.group).toObject();
        QStringList keys{"groupType", "memberList", "memberProperty"};
        if (expected.groupName)
            keys << "groupName";
        QCOMPARE(Keys(object), Sorted(keys));
        QCOMPARE(Text(object.value("groupType")), Text(QJsonValue(expected.groupType)));
        if (expected.groupName)
            QCOMPARE(Text(object.value("groupName")), Text(QJsonValue(expected.groupName)));
        QCOMPARE(Text(object.value("memberList")), Text(Json(expected.memberList)));

        // memberProperty: exactly the listed members, and in a table group the
        // keys of its columns; every member has a row.
        const QJsonObject properties = object.value("memberProperty").toObject();
        const QJsonObject columns = Json(expected.dimension).toObject();
        QStringList members;
        for (const QJsonValue &member : Json(expected.memberList).toArray())
            members << member.toString();
        QCOMPARE(Keys(properties), Sorted(members + columns.keys()));
        for (const QString &key : columns.keys())
            QCOMPARE(Text(properties.value(key)), Text(columns.value(key)));
        QStringList withRow;
        for (const Member &member : Members()) {
            if (member.model == model && member.group == expected.group)
                withRow << member.member;
        }
        QCOMPARE(Sorted(withRow), Sorted(members));
    }

    void members_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("group");
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("row");
        for (const Member &m : Members())
            QTest::addRow("%s %s.%s", qPrintable(m.model), qPrintable(m.group), qPrintable(m.member))
                << m.model << m.group << m.member << m.caption << m.row;
    }
    void members()
    {
        QFETCH(QString, model);
        QFETCH(QString, group);
        QFETCH(QString, member);
        QFETCH(QString, caption);
        QFETCH(int, row);
        const MemberRow &expected = kMembers[row];

        const QJsonObject groupObject = At(Model(model), group).toObject();
        QJsonObject actual = groupObject.value("memberProperty").toObject().value(member).toObject();
        QVERIFY2(!actual.isEmpty(), "member missing");

        QCOMPARE(Text(actual.take("caption")), Text(QJsonValue(caption)));
        QCOMPARE(Text(actual.take("defaultEnableStatus")), Text(QJsonValue(expected.enable)));
        QCOMPARE(Text(actual.take("defaultSupport")), Text(QJsonValue(expected.support)));

        QJsonObject trait = Json(expected.space).toObject();
        trait.insert("dataType", expected.dataType);
        trait.insert("defaultValue", Json(expected.defaultValue));
        QCOMPARE(Text(actual.take("trait")), Text(trait));
        QCOMPARE(Text(actual), Text(Json(expected.relations))); // what is left: the relations

        // Values are text: one per member in a single-field group, one per column
        // in a table; a combo box column needs an entry of its own.
        const QJsonValue value = trait.value("defaultValue");
        if (groupObject.value("groupType").toInt() == 3) {
            QVERIFY(value.isArray());
            for (const QJsonValue &entry : value.toArray())
                QVERIFY(entry.isString());
            if (QString(expected.dataType) == "list") {
                const int columns = groupObject.value("memberProperty").toObject().value("dimentionCount").toInt();
                QCOMPARE(value.toArray().size(), columns);
            }
        } else {
            QVERIFY(value.isString());
        }

        // Every short path of a relation names a member of the same model.
        const QJsonObject related = Json(expected.relations).toObject();
        for (const QString &key : related.keys()) {
            const QJsonValue paths = related.value(key);
            for (const QJsonValue &path : paths.isArray() ? paths.toArray() : QJsonArray{paths})
                QVERIFY2(At(Model(model), group.section('.', 0, 0) + "." + path.toString()).toObject().contains("trait"),
                         qPrintable(key + " names no member: " + path.toString()));
        }
    }

    void contRxIsContTxText()
    {
        const QByteArray contTx = ReadModel("ContTx");
        QVERIFY(!contTx.isEmpty());
        QCOMPARE(ReadModel("ContRx"), contTx);
    }

    void bandTable_data()
    {
        QTest::addColumn<QString>("band");
        QTest::addColumn<QString>("ranges");
        for (const BandRow &row : kBands) {
            const QJsonObject ranges{{"uplink", QJsonObject{{"low", row.uplinkLow}, {"high", row.uplinkHigh}}},
                                     {"downlink", QJsonObject{{"low", row.downlinkLow}, {"high", row.downlinkHigh}}}};
            QTest::newRow(row.band) << row.band << Text(ranges);
        }
    }
    void bandTable()
    {
        QFETCH(QString, band);
        QTEST(Text(Model("3gpp").value("operatingBand").toObject().value(band)), "ranges");
    }
};

QTEST_GUILESS_MAIN(TestStoredModels)
#include "tst_StoredModels.moc"
