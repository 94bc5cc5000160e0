#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QtTest>

#include <cstring>

#include "Items/TdscdmaTpcV3.h"
#include "JsonPath.h"
#include "ModelUpdateResult.h"
#include "RadbenchResources.h"
#include "TavoSimControl.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"
#include "TestLog.h"

// The TPC data between a page's model and the record of a band: what the
// response builder shows, the command builder stores back.

namespace {

QJsonObject Stored(const QString &name)
{
    QFile file(":/Tdscdma" + name + ".json");
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

QJsonObject Parsed(const std::string &text)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
}

// The model as the page hands it in: each group's memberValue holds what
// its members show.
QJsonObject Packed(QJsonObject model)
{
    for (const QString path : {"calDataIf.config", "calDataIf.data"}) {
        QJsonObject groups = GetJsonValue(model, path).toObject();
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            QJsonObject members = group.value().toObject();
            QJsonObject values;
            for (const QJsonValue name : members.value("memberList").toArray())
                values.insert(name.toString(),
                              GetJsonValue(members, "memberProperty." + name.toString() + ".trait.defaultValue"));
            members.insert("memberValue", values);
            group.value() = members;
        }
        SetJsonValue(model, path, groups);
    }
    return model;
}

// The simulated target on `profile`, its TX CLPC mode patched unless -1,
// with its NVRAM database, and the capability asked anew.
void Target(const QString &profile, int clpcMode = -1)
{
    TavoSim::LoadProfile(profile);
    if (clpcMode >= 0)
        TavoSim::PatchProfile({{"tdscdma", QJsonObject{{"rfCapability", QJsonObject{{"txClpcMode", clpcMode}}}}}});
    TavoSim::LoadDatabase();
    CTdscdmaCapability::ResetTdscdmaCapability();
    CTdscdmaCapability().GetCapabilityQueryStatus();
}

// A record of random words, negative values and words above 32767 among them.
STdscdmaUITpcDataByBandV3 Pattern(quint32 seed)
{
    quint32 words[sizeof(STdscdmaUITpcDataByBandV3) / 4];
    QRandomGenerator(seed).fillRange(words);
    STdscdmaUITpcDataByBandV3 record;
    std::memcpy(&record, words, sizeof record);
    return record;
}

QByteArray Bytes(const STdscdmaUITpcDataByBandV3 &record)
{
    return QByteArray(reinterpret_cast<const char *>(&record), sizeof record).toHex(' ');
}

// The record field behind the first cell of a member of the TPC model.
uint16_t &FieldOf(STdscdmaUITpcDataByBand &record, const QString &member)
{
    if (member == "group5.paH")
        return reinterpret_cast<uint16_t &>(record.txDac.paPower[0][0]);
    if (member == "group3.maxPower")
        return reinterpret_cast<uint16_t &>(record.txDac.maxPower);
    if (member == "group4.paH")
        return record.txDac.paVgaDac[0][0];
    return record.txDac.maxVgaDac;
}

QString Text(const std::string &text) { return QString::fromStdString(text); }

} // namespace

class TestCalBuilders : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        InitRadbenchResources();
        TestLog::SetChannel(QtCriticalMsg, false);
    }
    void cleanup()
    {
        TavoSim::LoadProfile("default");
        CTdscdmaCapability::ResetTdscdmaCapability();
    }

    void tpcRoundTrip_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<int>("clpcMode");
        QTest::addColumn<bool>("v3");
        for (const bool v3 : {false, true}) {
            QTest::addRow("%s, CLPC 1, APC-ex", v3 ? "V3" : "V1") << "default" << 1 << v3;
            QTest::addRow("%s, CLPC 2, no APC-ex", v3 ? "V3" : "V1") << "v1-pathloss-v2" << 2 << v3;
        }
    }
    // Record to page and back gives the record, and page to record and back
    // the page; what the target lacks passes through.
    void tpcRoundTrip()
    {
        QFETCH(QString, profile);
        QFETCH(int, clpcMode);
        QFETCH(bool, v3);
        Target(profile, clpcMode);
        QCOMPARE(CTdscdmaCapability().GetTxClpcMode(), clpcMode);

        STdscdmaUITpcDataByBandV3 written = Pattern(1);
        written.txDac.maxVgaDac = 65535;
        written.txDac.paPower[0][0] = 32767;
        written.txDac.paPower[0][1] = -32768;
        const STdscdmaUITpcDataByBandV3 untouched = Pattern(2);
        STdscdmaUITpcDataByBandV3 expected = written;
        if (clpcMode != 1)
            expected.txClpc = untouched.txClpc;
        CTdscdmaTpcV3 item;
        CTdscdmaDataModelResponseBuilder response;
        CTdscdmaCoreCmdBuilder command;

        const QJsonObject stored = Stored(v3 ? "TpcV3" : "Tpc");
        const std::string shown = v3 ? response.GetTpcDataModelV3(stored, written)
                                     : response.GetTpcDataModel(stored, written);
        const QJsonObject model = Packed(Parsed(shown));
        QVERIFY(!model.contains("modelIntegrity"));
        STdscdmaUITpcDataByBandV3 read = untouched;
        if (v3) {
            read = command.GetTpcCalDataCmdV3(&item, model, untouched);
        } else {
            static_cast<STdscdmaUITpcDataByBand &>(read) = command.GetTpcCalDataCmd(&item, model, untouched);
            expected.wantedPowerOffset = untouched.wantedPowerOffset;
            expected.paMidPowerOffset = untouched.paMidPowerOffset;
        }
        QCOMPARE(Bytes(read), Bytes(expected));

        const std::string again = v3 ? response.GetTpcDataModelV3(model, read) : response.GetTpcDataModel(model, read);
        QCOMPARE(Text(again), QString(QJsonDocument(model).toJson(QJsonDocument::Compact)));
    }

    void cellsAndStoredValues_data()
    {
        QTest::addColumn<QString>("member");
        QTest::addColumn<bool>("apcEx");
        QTest::addColumn<QString>("band");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("dB, fraction dropped") << "group5.paH" << true << "" << "1.99" << 63 << "1.96875";
        QTest::newRow("dB, towards zero") << "group5.paH" << true << "" << "-1.99" << -63 << "-1.96875";
        QTest::newRow("dB, largest") << "group3.maxPower" << true << "" << "1023.96875" << 32767 << "1023.96875";
        QTest::newRow("dB, smallest") << "group3.maxPower" << true << "" << "-1024" << -32768 << "-1024.00000";
        QTest::newRow("dB, low 16 bits") << "group3.maxPower" << true << "" << "-1025" << 32736 << "1023.00000";
        QTest::newRow("UPA offset, largest") << "group3.vgaDac" << true << "" << "2047.96875" << 65535 << "2047.96875";
        QTest::newRow("VGA DAC limit, fraction") << "group3.vgaDac" << false << "" << "3190.9" << 3190 << "3190";
        QTest::newRow("VGA DAC word, low 16 bits") << "group4.paH" << true << "" << "70000" << 4464 << "4464";
        QTest::newRow("VGA DAC word, no integer") << "group4.paH" << true << "" << "12.0" << 0 << "0";
        // Without APC-ex only the first band group's record has the field.
        QTest::newRow("limit, group without it") << "group3.vgaDac" << false << "2010-2025MHz" << "3190" << 0 << "0";
        QTest::newRow("limit, unknown group: the first")
            << "group3.vgaDac" << false << "2010-2025MHz(a)" << "3190" << 3190 << "3190";
    }
    // A cell's text to the record field and the field back to the cell's
    // text, on the first cell of a TPC member; a field the band's record
    // lacks keeps its value.
    void cellsAndStoredValues()
    {
        QFETCH(QString, member);
        QFETCH(bool, apcEx);
        QFETCH(QString, band);
        QFETCH(QString, text);
        QFETCH(int, stored);
        Target(apcEx ? "default" : "legacy-v1");
        CTdscdmaTpc item;
        const QString group = member.section('.', 0, 0), name = member.section('.', 1);
        QJsonObject model = Packed(Stored("Tpc"));
        if (!band.isEmpty())
            QVERIFY(SetJsonValue(model, "calDataIf.config.group1.memberValue.band", band));
        const QString cell = "calDataIf.data." + group + ".memberValue." + name;
        const bool column = GetJsonValue(model, cell).isArray();
        QVERIFY(SetJsonValue(model, cell, column ? QJsonValue(QJsonArray{text}) : QJsonValue(text)));
        STdscdmaUITpcDataByBand record = CTdscdmaCoreCmdBuilder().GetTpcCalDataCmd(&item, model, {});
        QCOMPARE(FieldOf(record, member), uint16_t(stored));

        record = {};
        FieldOf(record, member) = uint16_t(stored);
        model = Parsed(CTdscdmaDataModelResponseBuilder().GetTpcDataModel(model, record));
        const QJsonValue shown =
            GetJsonValue(model, "calDataIf.data." + group + ".memberProperty." + name + ".trait.defaultValue");
        QTEST(column ? shown.toArray().first().toString() : shown.toString(), "shown");
    }

    void missingMemberFailsTheUpdate_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<int>("clpcMode");
        QTest::addColumn<QStringList>("removed");
        QTest::addColumn<QString>("failure");
        const QString data = "calDataIf.data.";
        QTest::newRow("pdPoint1") << "Tpc" << 1 << QStringList{data + "group1.memberProperty.pdPoint1"}
                                  << "Update pdPoint failed";
        QTest::newRow("pdPoint0 without CLPC") << "Tpc" << 2 << QStringList{data + "group1.memberProperty.pdPoint0"}
                                               << "";
        QTest::newRow("V3 comp") << "TpcV3" << 1 << QStringList{data + "group8.memberProperty.comp"}
                                 << "Update PD compensation by sub-band failed";
        QTest::newRow("V3 offset") << "TpcV3" << 1 << QStringList{data + "group4.memberProperty.paMidPowerOffset"}
                                   << "Update pa Mid Power Offset failed";
        QTest::newRow("the first failure only")
            << "Tpc" << 1 << QStringList{data + "group8.memberProperty.paH", data + "group3.memberProperty.maxPower"}
            << "Update maxPower failed";
        QTest::newRow("no calibration data: unchanged") << "Tpc" << 1 << QStringList{"calDataIf.data"} << "";
    }
    void missingMemberFailsTheUpdate()
    {
        QFETCH(QString, model);
        QFETCH(int, clpcMode);
        QFETCH(QStringList, removed);
        QFETCH(QString, failure);
        Target("default", clpcMode);
        QJsonObject stored = Stored(model);
        for (const QString &path : removed) {
            QJsonObject parent = GetJsonValue(stored, path.section('.', 0, -2)).toObject();
            parent.remove(path.section('.', -1));
            QVERIFY(SetJsonValue(stored, path.section('.', 0, -2), parent));
        }
        CTdscdmaDataModelResponseBuilder response;
        const std::string text = model == "TpcV3" ? response.GetTpcDataModelV3(stored, {})
                                                  : response.GetTpcDataModel(stored, {});
        if (!failure.isEmpty())
            QCOMPARE(Text(text), Text(BuildEmptyModelStringWithError(failure)));
        else if (!IsJsonValueDefined(GetJsonValueConst(stored, "calDataIf.data")))
            QCOMPARE(Text(text), QString(QJsonDocument(stored).toJson(QJsonDocument::Compact)));
        else
            QVERIFY(!Parsed(text).contains("modelIntegrity"));
    }
};

QTEST_GUILESS_MAIN(TestCalBuilders)
#include "tst_CalBuilders.moc"
