#include <QtTest>

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "RadbenchResources.h"

// The stored models against rows written out by hand: one row per model,
// group, member and band, in the order and notation of the model tables, so
// that the two can be read side by side. Values in JSON fragments are written
// as they stand in the files: text in quotes, numbers bare.

namespace {

const char kContTx[] = ":/TdscdmaContTx.json";
const char kContRx[] = ":/TdscdmaContRx.json";
const char kDpchTx[] = ":/TdscdmaDpchTx.json";
const char kRssi[] = ":/TdscdmaRssi.json";
const char kBBReg[] = ":/TdscdmaBBReg.json";
const char kAfc[] = ":/TdscdmaAfc.json";
const char kTadc[] = ":/TdscdmaTadc.json";
const char kTpc[] = ":/TdscdmaTpc.json";
const char kTpcV3[] = ":/TdscdmaTpcV3.json";
const char kPathloss[] = ":/TdscdmaPathloss.json";
const char kPathlossV3[] = ":/TdscdmaPathlossV3.json";
const char k3gpp[] = ":/Tdscdma3gpp.json";

struct ModelRow {
    const char *resource;
    const char *modelName;
    const char *interface; // "" for the band table
    const char *groups;    // section to number of groups
};

const ModelRow kModels[] = {
    {kContTx, "ContTx", "cmdIf", R"({"request": 1, "response": 1})"},
    {kContRx, "ContTx", "cmdIf", R"({"request": 1, "response": 1})"},
    {kDpchTx, "DPCH TX", "cmdIf", R"({"request": 2, "response": 1})"},
    {kRssi, "RSSI", "cmdIf", R"({"request": 1, "response": 1})"},
    {kBBReg, "BBReg", "cmdIf", R"({"request": 2, "response": 1})"},
    {kAfc, "Afc Control", "cmdIf", R"({"request": 1, "response": 1})"},
    {kTadc, "TADC", "cmdIf", R"({"request": 1, "response": 2})"},
    {kTpc, "TPC profile", "calDataIf", R"({"config": 1, "data": 8})"},
    {kTpcV3, "TPC profile", "calDataIf", R"({"config": 1, "data": 9})"},
    {kPathloss, "PathLoss", "calDataIf", R"({"config": 1, "data": 2})"},
    {kPathlossV3, "PathLoss", "calDataIf", R"({"config": 1, "data": 2})"},
    {k3gpp, "3GPP", "", "{}"},
};

struct GroupRow {
    const char *resource;
    const char *group;
    int groupType;
    const char *groupName; // nullptr: no groupName
    const char *memberList;
    const char *dimension; // the column keys of a type 3 group
};

const GroupRow kGroups[] = {
    {kContTx, "cmdIf.request.group1", 1, "Config", R"(["band", "uarfcn"])", "{}"},
    {kContTx, "cmdIf.response.group1", 1, nullptr, "[]", "{}"},

    {kDpchTx, "cmdIf.request.group1", 1, "Carrier Config", R"(["band", "afcdac", "wantedPower", "apcData", "uarfcn", "paMode", "fixPower"])", "{}"},
    {kDpchTx, "cmdIf.request.group2", 3, "TS setting", R"(["direction", "modulation"])", R"({"dimentionCount": 5, "startIndex": 1, "indexStep": 1})"},
    {kDpchTx, "cmdIf.response.group1", 1, nullptr, "[]", "{}"},

    {kRssi, "cmdIf.request.group1", 1, "Config", R"(["band", "afcdac", "gain", "uarfcn", "mode", "agcTracking"])", "{}"},
    {kRssi, "cmdIf.response.group1", 1, "output", R"(["rssi", "dspPower", "usedGain"])", "{}"},

    {kBBReg, "cmdIf.request.group1", 1, "RegRead", R"(["regAddr"])", "{}"},
    {kBBReg, "cmdIf.request.group2", 1, "RegWrite", R"(["regAddr", "regValue"])", "{}"},
    {kBBReg, "cmdIf.response.group1", 1, "RegRead", R"(["regValue"])", "{}"},

    {kAfc, "cmdIf.request.group1", 1, "Carrier Config", R"(["band", "afcSelect", "afcdac1", "afcdac2", "afcData", "uarfcn", "paMode", "capId"])", "{}"},
    {kAfc, "cmdIf.response.group1", 1, "Calibration data", R"(["initAfcdac", "slope", "capId"])", "{}"},

    {kTadc, "cmdIf.request.group1", 1, "Temperature ADC Read", R"(["count"])", "{}"},
    {kTadc, "cmdIf.response.group1", 1, "Temperature ADC Read", R"(["adc"])", "{}"},
    {kTadc, "cmdIf.response.group2", 1, "Temperature ADC Read", R"(["adc0", "adc1", "adc2", "adc3", "adc4", "adc5", "adc6", "adc7"])", "{}"},

    {kTpc, "calDataIf.config.group1", 1, "Config", R"(["band"])", "{}"},
    {kTpc, "calDataIf.data.group1", 1, "Default PD compensation", R"(["pdPoint0", "pdPoint1", "pdPoint2"])", "{}"},
    {kTpc, "calDataIf.data.group2", 1, "Hysteresis", R"(["hysteresisStart0", "hysteresisEnd0", "hysteresisStart1", "hysteresisEnd1"])", "{}"},
    {kTpc, "calDataIf.data.group3", 1, "MaxPower ", R"(["maxPower", "vgaDac"])", "{}"},
    {kTpc, "calDataIf.data.group4", 3, "VGA DAC", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {kTpc, "calDataIf.data.group5", 3, "Power (dBm)", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {kTpc, "calDataIf.data.group6", 3, "VGA compensation by sub-band", R"(["uarfcn", "paH", "paM", "paL"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {kTpc, "calDataIf.data.group7", 3, "PD compensation by sub-band", R"(["comp"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {kTpc, "calDataIf.data.group8", 3, "VGA compensation by temperature", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},

    {kTpcV3, "calDataIf.config.group1", 1, "Config", R"(["band"])", "{}"},
    {kTpcV3, "calDataIf.data.group1", 1, "Default PD compensation", R"(["pdPoint0", "pdPoint1", "pdPoint2"])", "{}"},
    {kTpcV3, "calDataIf.data.group2", 1, "Hysteresis", R"(["hysteresisStart0", "hysteresisEnd0", "hysteresisStart1", "hysteresisEnd1"])", "{}"},
    {kTpcV3, "calDataIf.data.group3", 1, "MaxPower ", R"(["maxPower", "vgaDac"])", "{}"},
    {kTpcV3, "calDataIf.data.group4", 1, "TX Power Setting", R"(["wantedPowerOffset", "paMidPowerOffset"])", "{}"},
    {kTpcV3, "calDataIf.data.group5", 3, "VGA DAC", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {kTpcV3, "calDataIf.data.group6", 3, "Power (dBm)", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 4, "startIndex": 0, "indexStep": 1})"},
    {kTpcV3, "calDataIf.data.group7", 3, "VGA compensation by sub-band", R"(["uarfcn", "paH", "paM", "paL"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {kTpcV3, "calDataIf.data.group8", 3, "PD compensation by sub-band", R"(["comp"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {kTpcV3, "calDataIf.data.group9", 3, "VGA compensation by temperature", R"(["paH", "paM", "paL"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},

    {kPathloss, "calDataIf.config.group1", 1, "Config", R"(["band"])", "{}"},
    {kPathloss, "calDataIf.data.group1", 3, "RX Main", R"(["uarfcn", "loss0", "loss1", "loss2", "loss3"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {kPathloss, "calDataIf.data.group2", 3, "temperature", R"(["loss0", "loss1", "loss2", "loss3"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},

    {kPathlossV3, "calDataIf.config.group1", 1, "Config", R"(["band"])", "{}"},
    {kPathlossV3, "calDataIf.data.group1", 3, "RX Main", R"(["uarfcn", "loss0", "loss1", "loss2", "loss3", "loss4", "loss5", "loss6", "loss7"])", R"({"dimentionCount": 15, "startIndex": 0, "indexStep": 1})"},
    {kPathlossV3, "calDataIf.data.group2", 3, "temperature", R"(["loss0", "loss1", "loss2", "loss3", "loss4", "loss5", "loss6", "loss7"])", R"({"dimentionCount": 8, "startIndex": 0, "indexStep": 1})"},
};

struct MemberRow {
    const char *resource;
    const char *group;
    const char *member;
    const char *caption;
    const char *dataType;
    const char *defaultValue; // JSON
    const char *space;        // trait keys beside dataType and defaultValue
    int enable;               // defaultEnableStatus
    int support;              // defaultSupport
    const char *relations;    // member keys beside caption, trait and the two above
};

const MemberRow kMembers[] = {
    {kContTx, "cmdIf.request.group1", "band", "Band", "list", R"j("1900-1920MHz(a)")j", R"j({"value": ["1900-1920MHz(a)", "2010-2025MHz(a)"]})j", 1, 1, R"({"publishValueList": ["request.group1.memberProperty.uarfcn"]})"},
    {kContTx, "cmdIf.request.group1", "uarfcn", "UARFCN", "range", R"("9550")", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "request.group1.memberProperty.band"})"},

    {kDpchTx, "cmdIf.request.group1", "band", "Band", "list", R"j("1900-1920MHz(a)")j", R"j({"value": ["1900-1920MHz(a)", "2010-2025MHz(a)"]})j", 1, 1, R"({"publishValueList": ["request.group1.memberProperty.uarfcn"]})"},
    {kDpchTx, "cmdIf.request.group1", "afcdac", "AFC DAC", "range", R"("4096")", R"({"value": {"min": 0, "max": 8191}})", 1, 1, "{}"},
    {kDpchTx, "cmdIf.request.group1", "wantedPower", "Wanted Power(dBm)", "range", R"("24")", R"({"value": {"min": -128, "max": 127}})", 1, 1, "{}"},
    {kDpchTx, "cmdIf.request.group1", "uarfcn", "UARFCN", "range", R"("9550")", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "request.group1.memberProperty.band"})"},
    {kDpchTx, "cmdIf.request.group1", "paMode", "PA Mode", "list", R"("High")", R"({"value": ["High", "Mid", "Low"]})", 1, 1, "{}"},
    {kDpchTx, "cmdIf.request.group1", "apcData", "AFC data", "range", R"("12")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kDpchTx, "cmdIf.request.group1", "fixPower", "Fix Power", "boolean", R"("false")", R"({"value": ["true", "false"]})", 1, 1, "{}"},
    {kDpchTx, "cmdIf.request.group2", "direction", "Direction", "list", R"(["UL", "DL", "DL", "DL", "DL"])", R"({"value": ["DL", "UL"]})", 1, 1, "{}"},
    {kDpchTx, "cmdIf.request.group2", "modulation", "Modulation", "list", R"(["QPSK", "QPSK", "QPSK", "QPSK", "QPSK"])", R"({"value": ["QPSK", "16QAM"]})", 1, 1, "{}"},

    {kRssi, "cmdIf.request.group1", "band", "Band", "list", R"j("1900-1920MHz(a)")j", R"j({"value": ["1900-1920MHz(a)", "2010-2025MHz(a)"]})j", 1, 1, R"({"publishValueList": ["request.group1.memberProperty.uarfcn"]})"},
    {kRssi, "cmdIf.request.group1", "afcdac", "AFC DAC", "range", R"("4096")", R"({"value": {"min": 0, "max": 8191}})", 1, 1, "{}"},
    {kRssi, "cmdIf.request.group1", "gain", "Wanted Power(dBm)", "range", R"("60")", R"({"value": {"min": 0, "max": 255}})", 1, 1, "{}"},
    {kRssi, "cmdIf.request.group1", "uarfcn", "UARFCN", "range", R"("9550")", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "request.group1.memberProperty.band"})"},
    {kRssi, "cmdIf.request.group1", "mode", "Mode", "list", R"("High")", R"({"value": ["High", "Mid", "Low"]})", 1, 1, "{}"},
    {kRssi, "cmdIf.request.group1", "agcTracking", "AGC Tracking", "boolean", R"("false")", R"({"value": ["true", "false"]})", 1, 1, "{}"},
    {kRssi, "cmdIf.response.group1", "rssi", "RSSI", "label", R"("")", "{}", 1, 1, "{}"},
    {kRssi, "cmdIf.response.group1", "dspPower", "DSP Power", "label", R"("")", "{}", 1, 1, "{}"},
    {kRssi, "cmdIf.response.group1", "usedGain", "USED Gain", "label", R"("")", "{}", 1, 1, "{}"},

    {kBBReg, "cmdIf.request.group1", "regAddr", "Register Address", "range", R"("16")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kBBReg, "cmdIf.request.group2", "regAddr", "Register Address", "range", R"("16")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kBBReg, "cmdIf.request.group2", "regValue", "Register Value", "range", R"("16")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kBBReg, "cmdIf.response.group1", "regValue", "Register Value", "label", R"("N/A")", "{}", 1, 1, "{}"},

    {kAfc, "cmdIf.request.group1", "band", "Band", "list", R"j("1900-1920MHz(a)")j", R"j({"value": ["1900-1920MHz(a)", "2010-2025MHz(a)"]})j", 1, 1, R"({"publishValueList": ["request.group1.memberProperty.uarfcn"]})"},
    {kAfc, "cmdIf.request.group1", "afcSelect", "AFC Select", "list", R"("AFC1")", R"({"value": ["AFC1", "AFC2"]})", 1, 1, R"({"publishEnableStatusList": ["request.group1.memberProperty.afcdac1", "request.group1.memberProperty.afcdac2"]})"},
    {kAfc, "cmdIf.request.group1", "afcdac1", "DAC1", "range", R"("4096")", R"({"value": {"min": 0, "max": 8191}, "enableStatusPair": {"AFC1": 1, "AFC2": 0}})", 1, 1, "{}"},
    {kAfc, "cmdIf.request.group1", "afcdac2", "DAC2", "range", R"("5000")", R"({"value": {"min": 0, "max": 8191}, "enableStatusPair": {"AFC1": 0, "AFC2": 1}})", 0, 1, "{}"},
    {kAfc, "cmdIf.request.group1", "uarfcn", "UARFCN", "range", R"("9550")", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "request.group1.memberProperty.band"})"},
    {kAfc, "cmdIf.request.group1", "paMode", "PA Mode", "list", R"("High")", R"({"value": ["High", "Mid", "Low"]})", 1, 1, "{}"},
    {kAfc, "cmdIf.request.group1", "capId", "CAP ID", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kAfc, "cmdIf.request.group1", "afcData", "AFC data", "range", R"("12")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kAfc, "cmdIf.response.group1", "initAfcdac", "Init AFC Dac", "range", R"("2200")", R"({"value": {"min": 0, "max": 8191}})", 1, 1, "{}"},
    {kAfc, "cmdIf.response.group1", "slope", "Slope", "pointRange", R"("5")", R"({"value": {"min": 0.062501, "max": 2147483647}})", 1, 1, "{}"},
    {kAfc, "cmdIf.response.group1", "capId", "CAP ID", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},

    {kTadc, "cmdIf.request.group1", "count", "Measure Count", "range", R"("16")", R"({"value": {"min": 1, "max": 65535, "displayBase": 16}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group1", "adc", "ADC", "label", R"("N/A")", "{}", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc0", "ADC0", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc1", "ADC1", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc2", "ADC2", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc3", "ADC3", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc4", "ADC4", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc5", "ADC5", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc6", "ADC6", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTadc, "cmdIf.response.group2", "adc7", "ADC7", "range", R"("0")", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},

    {kTpc, "calDataIf.config.group1", "band", "Band", "list", R"("1850-1930MHz")", R"({"value": ["1850-1930MHz"]})", 1, 1, R"({"publishValueList": ["data.group6.memberProperty.uarfcn"], "publishEnableStatusList": ["data.group3.memberProperty.maxPower", "data.group3.memberProperty.vgaDac"]})"},
    {kTpc, "calDataIf.data.group1", "pdPoint0", "Point_0 (dB)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group1", "pdPoint1", "Point_1 (dB)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group1", "pdPoint2", "Point_2 (dB)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group2", "hysteresisStart0", "Start0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group2", "hysteresisEnd0", "End0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group2", "hysteresisStart1", "Start0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group2", "hysteresisEnd1", "End0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group3", "maxPower", "Max Power (dBm)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023}, "enableStatusPair": {"1": 0}})", 1, 1, R"({"subscribeEnableStatus": "config.group1.memberProperty.band"})"},
    {kTpc, "calDataIf.data.group3", "vgaDac", "VGA DAC", "pointRange", R"("0")", R"({"value": {"min": 0, "max": 2047.96875}, "enableStatusPair": {"1": 0}})", 1, 1, R"({"subscribeEnableStatus": "config.group1.memberProperty.band"})"},
    {kTpc, "calDataIf.data.group4", "paH", "PA_H", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group4", "paM", "PA_M", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group4", "paL", "PA_L", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group5", "paH", "PA_H", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group5", "paM", "PA_M", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group5", "paL", "PA_L", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group6", "paH", "PA_H (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group6", "paM", "PA_M (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group6", "paL", "PA_L (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group6", "uarfcn", "UARFCN", "range", R"(["0"])", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "config.group1.memberProperty.band"})"},
    {kTpc, "calDataIf.data.group7", "comp", "Comp. (dB)", "pointRange", R"(["0"])", R"({"value": {"min": 0, "max": 50.0}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group8", "paH", "PA_H (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group8", "paM", "PA_M (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpc, "calDataIf.data.group8", "paL", "PA_L (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},

    {kTpcV3, "calDataIf.config.group1", "band", "Band", "list", R"("1850-1930MHz")", R"({"value": ["1850-1930MHz"]})", 1, 1, R"({"publishValueList": ["data.group7.memberProperty.uarfcn"]})"},
    {kTpcV3, "calDataIf.data.group1", "pdPoint0", "Point_0 (dB)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group1", "pdPoint1", "Point_1 (dB)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group1", "pdPoint2", "Point_2 (dB)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group2", "hysteresisStart0", "Start0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group2", "hysteresisEnd0", "End0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group2", "hysteresisStart1", "Start0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group2", "hysteresisEnd1", "End0", "range", R"("0")", R"({"value": {"min": 0, "max": 100}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group3", "maxPower", "Max Power (dBm)", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group3", "vgaDac", "VGA DAC", "pointRange", R"("0")", R"({"value": {"min": 0, "max": 2047}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group4", "wantedPowerOffset", "Wanted Power Offset", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group4", "paMidPowerOffset", "PA Middle Power Offset", "pointRange", R"("0")", R"({"value": {"min": -1024, "max": 1023}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group5", "paH", "PA_H", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group5", "paM", "PA_M", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group5", "paL", "PA_L", "range", R"(["0"])", R"({"value": {"min": 0, "max": 65535}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group6", "paH", "PA_H", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group6", "paM", "PA_M", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group6", "paL", "PA_L", "pointRange", R"(["0"])", R"({"value": {"min": -60, "max": 25}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group7", "paH", "PA_H (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group7", "paM", "PA_M (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group7", "paL", "PA_L (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group7", "uarfcn", "UARFCN", "range", R"(["0"])", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "config.group1.memberProperty.band"})"},
    {kTpcV3, "calDataIf.data.group8", "comp", "Comp. (dB)", "pointRange", R"(["0"])", R"({"value": {"min": 0, "max": 50.0}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group9", "paH", "PA_H (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group9", "paM", "PA_M (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},
    {kTpcV3, "calDataIf.data.group9", "paL", "PA_L (dB)", "pointRange", R"(["0"])", R"({"value": {"min": -8, "max": 7.96875}})", 1, 1, "{}"},

    {kPathloss, "calDataIf.config.group1", "band", "Band", "list", R"("1850-1930MHz")", R"({"value": ["1850-1930MHz"]})", 1, 1, R"({"publishValueList": ["data.group1.memberProperty.uarfcn"]})"},
    {kPathloss, "calDataIf.data.group1", "uarfcn", "UARFCN", "range", R"(["0"])", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "config.group1.memberProperty.band"})"},
    {kPathloss, "calDataIf.data.group1", "loss0", "LNA_H_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathloss, "calDataIf.data.group1", "loss1", "LNA_M_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathloss, "calDataIf.data.group1", "loss2", "LNA_L_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathloss, "calDataIf.data.group1", "loss3", "LNA_EXT_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},
    {kPathloss, "calDataIf.data.group2", "loss0", "LNA_H_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathloss, "calDataIf.data.group2", "loss1", "LNA_M_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathloss, "calDataIf.data.group2", "loss2", "LNA_L_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathloss, "calDataIf.data.group2", "loss3", "LNA_EXT_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},

    {kPathlossV3, "calDataIf.config.group1", "band", "Band", "list", R"("1850-1930MHz")", R"({"value": ["1850-1930MHz"]})", 1, 1, R"({"publishValueList": ["data.group1.memberProperty.uarfcn"]})"},
    {kPathlossV3, "calDataIf.data.group1", "uarfcn", "UARFCN", "range", R"(["0"])", R"j({"valuePair": {"1900-1920MHz(a)": {"min": 9504, "max": 9596}}})j", 1, 1, R"({"subscribeValue": "config.group1.memberProperty.band"})"},
    {kPathlossV3, "calDataIf.data.group1", "loss0", "LNA_H_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group1", "loss1", "LNA_M_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group1", "loss2", "LNA_L_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group1", "loss3", "LNA_EXT_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},
    {kPathlossV3, "calDataIf.data.group1", "loss4", "LNA_EXT0_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group1", "loss5", "LNA_EXT1_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group1", "loss6", "LNA_EXT2_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group1", "loss7", "LNA_EXT3_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss0", "LNA_H_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss1", "LNA_M_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss2", "LNA_L_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss3", "LNA_EXT_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss4", "LNA_EXT0_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss5", "LNA_EXT1_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss6", "LNA_EXT2_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 1, "{}"},
    {kPathlossV3, "calDataIf.data.group2", "loss7", "LNA_EXT3_LOSS", "pointRange", R"(["0"])", R"({"value": {"min": -32, "max": 31.75, "decimals": 3}})", 1, 0, "{}"},
};

struct BandRow {
    const char *band;
    int uplinkLow, uplinkHigh, downlinkLow, downlinkHigh;
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

QByteArray ReadResource(const QString &resource)
{
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

// The parsed document of a resource; an empty object when it can't be read.
QJsonObject Model(const QString &resource)
{
    static QHash<QString, QJsonObject> cache;
    if (!cache.contains(resource))
        cache.insert(resource, QJsonDocument::fromJson(ReadResource(resource)).object());
    return cache.value(resource);
}

QJsonValue At(const QJsonObject &object, const QString &path)
{
    QJsonValue value = object;
    for (const QString &key : path.split('.'))
        value = value.toObject().value(key);
    return value;
}

QStringList SortedKeys(const QJsonObject &object)
{
    QStringList keys = object.keys();
    keys.sort();
    return keys;
}

QStringList Sorted(QStringList list)
{
    list.sort();
    return list;
}

bool HasMemberRow(const QString &resource, const QString &group, const QString &member)
{
    for (const MemberRow &row : kMembers)
        if (resource == row.resource && group == row.group && member == row.member)
            return true;
    return false;
}

} // namespace

class TestStoredModels : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { InitRadbenchResources(); }

    void models_data();
    void models();
    void groups_data();
    void groups();
    void members_data();
    void members();
    void contRxIsContTxText();
    void bandTable_data();
    void bandTable();
    void bandTableHoldsOnlyTheseBands();
};

void TestStoredModels::models_data()
{
    QTest::addColumn<QString>("resource");
    QTest::addColumn<QString>("modelName");
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("groups");
    for (const ModelRow &row : kModels)
        QTest::newRow(row.resource) << row.resource << row.modelName << row.interface << row.groups;
}

void TestStoredModels::models()
{
    QFETCH(QString, resource);
    QFETCH(QString, modelName);
    QFETCH(QString, interface);
    QFETCH(QString, groups);

    const QByteArray text = ReadResource(resource);
    QVERIFY2(!text.isEmpty(), "resource missing or empty");
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(text, &error);
    QVERIFY2(error.error == QJsonParseError::NoError,
             qPrintable(QString("%1 at offset %2").arg(error.errorString()).arg(error.offset)));
    QVERIFY(doc.isObject());
    const QJsonObject model = doc.object();

    QCOMPARE(Text(model.value("modelName")), Text(QJsonValue(modelName)));
    QCOMPARE(Text(model.value("modelVersion")), Text(QJsonValue(1)));
    if (interface.isEmpty()) {
        QCOMPARE(SortedKeys(model), Sorted({"modelName", "modelVersion", "releaseVersion", "operatingBand"}));
        return;
    }
    // One interface; no integrity block or substitute marker in a stored model.
    QCOMPARE(SortedKeys(model), Sorted({"modelName", "modelVersion", interface}));

    const QJsonObject expected = Json(groups).toObject();
    const QJsonObject sections = model.value(interface).toObject();
    QCOMPARE(SortedKeys(sections), SortedKeys(expected));
    for (const QString &section : expected.keys()) {
        QStringList names;
        for (int n = 1; n <= expected.value(section).toInt(); ++n)
            names << QString("group%1").arg(n);
        QCOMPARE(SortedKeys(sections.value(section).toObject()), Sorted(names));
    }
}

void TestStoredModels::groups_data()
{
    QTest::addColumn<QString>("resource");
    QTest::addColumn<QString>("group");
    QTest::addColumn<int>("groupType");
    QTest::addColumn<QString>("groupName");
    QTest::addColumn<QString>("memberList");
    QTest::addColumn<QString>("dimension");
    for (const GroupRow &row : kGroups)
        QTest::addRow("%s %s", row.resource, row.group)
            << row.resource << row.group << row.groupType << (row.groupName ? QString(row.groupName) : QString())
            << row.memberList << row.dimension;
}

void TestStoredModels::groups()
{
    QFETCH(QString, resource);
    QFETCH(QString, group);
    QFETCH(int, groupType);
    QFETCH(QString, groupName);
    QFETCH(QString, memberList);
    QFETCH(QString, dimension);

    const QJsonObject object = At(Model(resource), group).toObject();
    QStringList keys{"groupType", "memberList", "memberProperty"};
    if (!groupName.isNull())
        keys << "groupName";
    QCOMPARE(SortedKeys(object), Sorted(keys));
    QCOMPARE(Text(object.value("groupType")), Text(QJsonValue(groupType)));
    if (!groupName.isNull())
        QCOMPARE(Text(object.value("groupName")), Text(QJsonValue(groupName)));
    QCOMPARE(Text(object.value("memberList")), Text(Json(memberList)));

    // memberProperty: exactly the listed members, and in a table group the
    // keys of its columns.
    const QJsonObject properties = object.value("memberProperty").toObject();
    const QJsonObject columns = Json(dimension).toObject();
    QStringList members;
    for (const QJsonValue &member : Json(memberList).toArray())
        members << member.toString();
    QCOMPARE(SortedKeys(properties), Sorted(members + columns.keys()));
    for (const QString &key : columns.keys())
        QCOMPARE(Text(properties.value(key)), Text(columns.value(key)));

    for (const QString &member : members)
        QVERIFY2(HasMemberRow(resource, group, member), qPrintable("no member row for " + member));
}

void TestStoredModels::members_data()
{
    QTest::addColumn<QString>("resource");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("dataType");
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QString>("space");
    QTest::addColumn<int>("enable");
    QTest::addColumn<int>("support");
    QTest::addColumn<QString>("relations");
    for (const MemberRow &row : kMembers)
        QTest::addRow("%s %s.%s", row.resource, row.group, row.member)
            << row.resource << row.group << row.member << row.caption << row.dataType << row.defaultValue
            << row.space << row.enable << row.support << row.relations;
}

void TestStoredModels::members()
{
    QFETCH(QString, resource);
    QFETCH(QString, group);
    QFETCH(QString, member);
    QFETCH(QString, caption);
    QFETCH(QString, dataType);
    QFETCH(QString, defaultValue);
    QFETCH(QString, space);
    QFETCH(int, enable);
    QFETCH(int, support);
    QFETCH(QString, relations);

    const QJsonObject model = Model(resource);
    const QJsonObject groupObject = At(model, group).toObject();
    QJsonObject actual = groupObject.value("memberProperty").toObject().value(member).toObject();
    QVERIFY2(!actual.isEmpty(), "member missing");

    QCOMPARE(Text(actual.take("caption")), Text(QJsonValue(caption)));
    QCOMPARE(Text(actual.take("defaultEnableStatus")), Text(QJsonValue(enable)));
    QCOMPARE(Text(actual.take("defaultSupport")), Text(QJsonValue(support)));

    QJsonObject trait = Json(space).toObject();
    trait.insert("dataType", dataType);
    trait.insert("defaultValue", Json(defaultValue));
    QCOMPARE(Text(actual.take("trait")), Text(trait));
    QCOMPARE(Text(actual), Text(Json(relations))); // what is left: the relations

    // Values are text: one per member in a single-field group, one per column
    // in a table; a combo box column needs an entry of its own.
    const QJsonValue value = trait.value("defaultValue");
    if (groupObject.value("groupType").toInt() == 3) {
        QVERIFY(value.isArray());
        for (const QJsonValue &entry : value.toArray())
            QVERIFY(entry.isString());
        if (dataType == "list") {
            const int columns = groupObject.value("memberProperty").toObject().value("dimentionCount").toInt();
            QCOMPARE(value.toArray().size(), columns);
        }
    } else {
        QVERIFY(value.isString());
    }

    // Every short path of a relation names a member of the same model.
    const QString interface = group.section('.', 0, 0);
    const QJsonObject related = Json(relations).toObject();
    for (const QString &key : related.keys()) {
        const QJsonValue paths = related.value(key);
        const QJsonArray list = paths.isArray() ? paths.toArray() : QJsonArray{paths};
        for (const QJsonValue &path : list)
            QVERIFY2(At(model, interface + "." + path.toString()).toObject().contains("trait"),
                     qPrintable(key + " names no member: " + path.toString()));
    }
}

void TestStoredModels::contRxIsContTxText()
{
    const QByteArray contTx = ReadResource(kContTx);
    QVERIFY(!contTx.isEmpty());
    QCOMPARE(ReadResource(kContRx), contTx);
}

void TestStoredModels::bandTable_data()
{
    QTest::addColumn<QString>("band");
    QTest::addColumn<int>("uplinkLow");
    QTest::addColumn<int>("uplinkHigh");
    QTest::addColumn<int>("downlinkLow");
    QTest::addColumn<int>("downlinkHigh");
    for (const BandRow &row : kBands)
        QTest::newRow(row.band) << row.band << row.uplinkLow << row.uplinkHigh << row.downlinkLow << row.downlinkHigh;
}

void TestStoredModels::bandTable()
{
    QFETCH(QString, band);
    QFETCH(int, uplinkLow);
    QFETCH(int, uplinkHigh);
    QFETCH(int, downlinkLow);
    QFETCH(int, downlinkHigh);

    const QJsonObject row = Model(k3gpp).value("operatingBand").toObject().value(band).toObject();
    QCOMPARE(SortedKeys(row), Sorted({"uplink", "downlink"}));
    const QJsonObject uplink = row.value("uplink").toObject();
    const QJsonObject downlink = row.value("downlink").toObject();
    QCOMPARE(SortedKeys(uplink), Sorted({"low", "high"}));
    QCOMPARE(SortedKeys(downlink), Sorted({"low", "high"}));
    QCOMPARE(Text(uplink.value("low")), Text(QJsonValue(uplinkLow)));
    QCOMPARE(Text(uplink.value("high")), Text(QJsonValue(uplinkHigh)));
    QCOMPARE(Text(downlink.value("low")), Text(QJsonValue(downlinkLow)));
    QCOMPARE(Text(downlink.value("high")), Text(QJsonValue(downlinkHigh)));
}

void TestStoredModels::bandTableHoldsOnlyTheseBands()
{
    const QJsonObject table = Model(k3gpp);
    QCOMPARE(Text(table.value("releaseVersion")), Text(QJsonValue("14.3.0")));
    QStringList bands;
    for (const BandRow &row : kBands)
        bands << row.band;
    QCOMPARE(SortedKeys(table.value("operatingBand").toObject()), Sorted(bands));
}

QTEST_GUILESS_MAIN(TestStoredModels)
#include "tst_StoredModels.moc"
