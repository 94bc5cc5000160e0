#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include "JsonPath.h"
#include "SimScope.h"
#include "TdscdmaCore.h"
#include "TestLog.h"

namespace {

// A JSON value as compact text; "undefined" for an absent one.
QString Text(const QJsonValue &value)
{
    if (!IsJsonValueDefined(value))
        return "undefined";
    const QString array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

} // namespace

class TestDataModelCapUpdater : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { TestLog::SetChannel(QtCriticalMsg, false); }
    void init() { CTdscdmaCore::GetInstance()->ResetCapability(); }

    void fittedModels_data()
    {
        QTest::addColumn<QString>("profile"); // "+db": with the NVRAM database
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("expected");
        const QString request = "cmdIf.request.group1.memberProperty.";
        const auto data = [](int group, const char *member) {
            return QString("calDataIf.data.group%1.memberProperty.%2").arg(group).arg(member);
        };

        // Every band of the target, each with its uplink range. (The default
        // target's bands: tst_StoredModels' band table.)
        QTest::newRow("one entry per band")
            << "legacy-v1" << "AFC Control" << request + "uarfcn.trait.valuePair"
            << R"J({"1850-1910MHz(b)":{"max":9550,"min":9250},"1900-1920MHz(a)":{"max":9600,"min":9500},)J"
               R"J("1930-1990MHz(b)":{"max":9950,"min":9650},"2010-2025MHz(a)":{"max":10125,"min":10050}})J";
        QTest::newRow("no band: placeholders stay") << "bare" << "Continuous TX" << request + "band.trait.value"
                                                    << R"J(["1900-1920MHz(a)","2010-2025MHz(a)"])J";
        QTest::newRow("no band: placeholder range stays") << "bare" << "Continuous TX"
                                                          << request + "uarfcn.trait.valuePair"
                                                          << R"J({"1900-1920MHz(a)":{"max":9596,"min":9504}})J";

        // Calibration pages: band groups, ranges with their check.
        QTest::newRow("TPC V3 range check") << "default" << "Tpc" << data(7, "uarfcn.trait.valuePair.1850-1930MHz")
                                            << R"J({"max":9650,"min":9250,"rangeCheck":"9250~9650,0"})J";
        QTest::newRow("TPC V1 groups of bands a and b")
            << "legacy-v1" << "Tpc" << "calDataIf.config.group1.memberProperty.band.trait.value"
            << R"J(["1850-1930MHz","2010-2025MHz","1930-1990MHz"])J";
        QTest::newRow("path loss downlink") << "default" << "Rx Pathloss"
                                            << data(1, "uarfcn.trait.valuePair.2300-2400MHz")
                                            << R"J({"max":12000,"min":11500,"rangeCheck":"11500~12000,0"})J";

        // TPC members and captions.
        QTest::newRow("V3: offset captions") << "default" << "Tpc" << data(3, "maxPower.caption")
                                             << R"J("Max Power Offset (dB)")J";
        QTest::newRow("V3: CLPC mode 1") << "default" << "Tpc" << data(8, "comp.defaultSupport") << "1";
        QTest::newRow("V1: max power where the database has it")
            << "legacy-v1+db" << "Tpc" << data(3, "maxPower.defaultSupport") << "1";
        QTest::newRow("V1: enabled by band group")
            << "legacy-v1+db" << "Tpc" << data(3, "vgaDac.trait.enableStatusPair")
            << R"J({"1850-1930MHz":1,"1930-1990MHz":0,"2010-2025MHz":0})J";
        QTest::newRow("V1: plain captions") << "legacy-v1+db" << "Tpc" << data(3, "vgaDac.caption") << R"J("VGA DAC")J";
        QTest::newRow("V1: no database, no max power") << "legacy-v1" << "Tpc" << data(3, "maxPower.defaultSupport")
                                                       << "0";
        QTest::newRow("V1: no max power, pairs stay") << "legacy-v1" << "Tpc"
                                                      << data(3, "maxPower.trait.enableStatusPair") << R"J({"1":0})J";
        QTest::newRow("V1: no CLPC") << "legacy-v1+db" << "Tpc" << data(1, "pdPoint2.defaultSupport") << "0";
        QTest::newRow("V1: CLPC mode 1") << "v1-pathloss-v2+db" << "Tpc" << data(7, "comp.defaultSupport") << "1";

        // Other pages.
        QTest::newRow("path loss: extended mode") << "v1-pathloss-v2" << "Rx Pathloss"
                                                  << data(2, "loss3.defaultSupport") << "1";
        QTest::newRow("path loss: no extended mode") << "legacy-v1" << "Rx Pathloss" << data(1, "loss3.defaultSupport")
                                                     << "0";
        QTest::newRow("path loss V3 keeps loss3 stored") << "default" << "Rx Pathloss"
                                                         << data(1, "loss3.defaultSupport") << "0";
        const QString adc = "cmdIf.response.group1.memberProperty.adc.caption";
        QTest::newRow("no ADC channel") << "bare" << "Temperature ADC" << adc << R"J("ADC Channel( Invalid )")J";
        QTest::newRow("fixed power offered") << "default" << "Dpch TX" << request + "fixPower.defaultSupport" << "1";
        QTest::newRow("wanted power not offered") << "legacy-v1" << "Dpch TX" << request + "wantedPower.defaultSupport"
                                                  << "0";
        QTest::newRow("RSSI modes, all") << "default" << "Rssi" << request + "mode.trait.value"
                                         << R"J(["High","Mid","Low","Ext","Ext0","Ext1","Ext2","Ext3"])J";
        QTest::newRow("RSSI modes, extended only") << "v1-pathloss-v2" << "Rssi" << request + "mode.trait.value"
                                                   << R"J(["High","Mid","Low","Ext"])J";
        QTest::newRow("RSSI modes, plain") << "legacy-v1" << "Rssi" << request + "mode.trait.value"
                                           << R"J(["High","Mid","Low"])J";
    }
    void fittedModels()
    {
        QFETCH(QString, profile);
        QFETCH(QString, page);
        QFETCH(QString, path);
        SimScope sim(profile.section('+', 0, 0));
        QVERIFY(sim.IsLoaded());
        if (profile.endsWith("+db"))
            TavoSim::LoadDatabase();
        const std::string text = CTdscdmaCore::GetInstance()->GetDataModel(page);
        const QJsonObject model = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
        QVERIFY(!model.isEmpty());
        QTEST(Text(GetJsonValueConst(model, path)), "expected");
        QVERIFY2(!model.contains("modelIntegrity"), qPrintable(Text(model.value("modelIntegrity"))));
    }

    void failedWritesMarkTheModel_data()
    {
        QTest::addColumn<QString>("update");
        QTest::addColumn<QJsonObject>("model");
        QTest::addColumn<QString>("message");
        QTest::newRow("no band list") << "bands" << Json(R"J({"modelName":"m"})J") << "Update Band info failed";
        QTest::newRow("no UARFCN member")
            << "bands"
            << Json(R"J({"cmdIf":{"request":{"group1":{"memberProperty":{"band":{"trait":{"value":[]}}}}}}})J")
            << "Update frequency info failed";
        QTest::newRow("TPC without PD points")
            << "tpcV3"
            << Json(R"J({"calDataIf":{"data":{"group3":{"memberProperty":)J"
                    R"J({"maxPower":{"caption":""},"vgaDac":{"caption":"","trait":{"value":{"max":0}}}}}}}})J")
            << "Update DefaultSupport Failed: default PD compensation pdPoint0";
        QTest::newRow("path loss without loss3") << "pathloss" << Json("{}")
                                                 << "Update exten mode enable status failed";
        // The updaters that write single members all fail as this one does.
        QTest::newRow("TADC without adc") << "tadc" << Json("{}") << "Update cpation failed: adc";
    }
    void failedWritesMarkTheModel()
    {
        QFETCH(QString, update);
        QFETCH(QJsonObject, model);
        QFETCH(QString, message);
        SimScope sim("default");
        CTdscdmaDataModelCapUpdater updater;
        bool done = true;
        if (update == "bands")
            done = updater.UpdateBandFreqInDataModel(
                model, {SBandPathDir{"cmdIf.request.group1.memberProperty.band.trait.value", true}},
                {SFreqPathDir{"cmdIf.request.group1.memberProperty.uarfcn.trait.valuePair", true}}, false);
        else if (update == "tpcV3")
            done = updater.UpdateTpcV3DefaultSupport(model);
        else if (update == "pathloss")
            done = updater.UpdatePathlossDefaultEnableStatus(model);
        else if (update == "tadc")
            done = updater.UpdateTadcCaption(nullptr, model);
        QVERIFY(!done);
        QCOMPARE(Text(model.value("modelIntegrity")),
                 QString(R"J({"integrity":false,"messageList":["%1"]})J").arg(message));
    }

    void bandUnknownToThePlanTakesTheFallback()
    {
        CTdscdmaDataModelCapUpdater updater;
        const QString path = "calDataIf.data.group1.memberProperty.uarfcn.trait.valuePair";
        QJsonObject model = Json(R"J({"calDataIf":{"data":{"group1":{"memberProperty":)J"
                                 R"J({"uarfcn":{"trait":{"valuePair":{}}}}}}}})J");
        QVERIFY(updater.UpdateFreqInDataModelBySupportBand(model, QJsonArray{"9999MHz", "2010-2025MHz"},
                                                           {SFreqPathDir{path, true}}, true));
        QCOMPARE(Text(GetJsonValueConst(model, path)),
                 QString(R"J({"2010-2025MHz":{"max":10125,"min":10050,"rangeCheck":"10050~10125,0"},)J"
                         R"J("9999MHz":{"max":32767,"min":-32768,"rangeCheck":"-32768~32767,0"}})J"));
        // Reported once, for the downlink, although the uplink range was written.
        QCOMPARE(Text(model.value("modelIntegrity")),
                 QString(R"J({"integrity":false,"messageList":["Update Band9999MHz frequency range check failed"]})J"));
    }
};

QTEST_GUILESS_MAIN(TestDataModelCapUpdater)
#include "tst_DataModelCapUpdater.moc"
