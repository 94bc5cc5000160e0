#include <QJsonDocument>
#include <QtTest>

#include "SimScope.h"
#include "TdscdmaCore.h"
#include "RadbenchResources.h"
#include "TdscdmaCoreCmdBuilder.h"

namespace {

// A request whose group 1 (and group 2) hold `values` as packed by a page.
std::string Request(const QJsonObject &group1, const QJsonObject &group2 = {})
{
    QJsonObject request{{"group1", QJsonObject{{"memberValue", group1}}}};
    if (!group2.isEmpty())
        request.insert("group2", QJsonObject{{"memberValue", group2}});
    return QJsonDocument(QJsonObject{{"cmdIf", QJsonObject{{"request", request}}}}).toJson(QJsonDocument::Compact).toStdString();
}

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

// The target calls of the last run, without the queries and texts around them.
QStringList TestCalls()
{
    QStringList calls;
    for (const TavoSim::CallRecord &call : TavoSim::CallLog()) {
        if (call.name.startsWith("AST_RFTEST") || call.name.startsWith("AST_CAL_apc") ||
            call.name.startsWith("AST_CAL_agc_") || call.name == "AST_CAL_stop_r" || call.name.contains("abb_reg") ||
            call.name == "AST_CAL_agc_r")
            calls << call.name + "(" + call.args.join(",") + ")";
    }
    return calls;
}

} // namespace

class TestTestOperations : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { RegisterOperationMetaTypes(); }
    void init() { CTdscdmaCore::GetInstance()->ResetCapability(); }
    void cleanup() { TavoSim::LoadProfile("default"); }

    void testsBecomeOneTargetCommand_data();
    void testsBecomeOneTargetCommand();
    void rssiAnswerIsShown_data();
    void rssiAnswerIsShown();
    void registers();

private:
    struct SDone {
        SEachItemOperationResult result;
        std::string model;
    };
    SDone RunTest(const QString &item, const std::string &request);
};

TestTestOperations::SDone TestTestOperations::RunTest(const QString &item, const std::string &request)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    QObject receiver;
    QVector<SDone> done;
    connect(core, &CTdscdmaCore::Signal_TestDone, &receiver,
            [&done](SEachItemOperationResult result, std::string model) { done << SDone{result, model}; });
    TavoSim::ClearCallLog();
    core->TestStart(item, request);
    if (!QTest::qWaitFor([&done] { return !done.isEmpty(); }, 5000))
        return SDone{SEachItemOperationResult{item, -1, "no answer"}, {}};
    return done.first();
}

void TestTestOperations::testsBecomeOneTargetCommand_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("failingCall");
    QTest::addColumn<int>("code");
    QTest::addColumn<QStringList>("calls");

    const QString tx = Request(Json(R"J({"band":"1900-1920MHz(a)","uarfcn":"9550"})J")).c_str();
    QTest::newRow("continuous RX, channel cut to 16 bits")
        << "default" << "Continuous RX" << QString(Request(Json(R"({"uarfcn":"75086"})")).c_str()) << "" << 0
        << QStringList{"AST_RFTEST_RXOn_r(uarfcn=9550,on=1)"};
    const QString dpch = Request(Json(R"({"uarfcn":"10087","afcdac":"4096","apcData":"12","paMode":"Mid",)"
                                      R"("fixPower":"false","wantedPower":"24"})"),
                                 Json(R"({"direction":["UL","DL","DL","DL","DL"],)"
                                      R"("modulation":["QPSK","16QAM","QPSK","QPSK","16QAM"]})"))
                             .c_str();
    QTest::newRow("DPCH TX, default slots")
        << "default" << "Dpch TX" << dpch << "" << 0
        << QStringList{"AST_CAL_apc_start_r(uarfcn=10087,afcDac=4096,paMode=1,apcData=12,directionMask=2,"
                       "modulationMask=36)"};
    QString fixedPower = dpch;
    fixedPower.replace(R"("fixPower":"false")", R"("fixPower":"true")").replace(R"("wantedPower":"24")", R"("wantedPower":"-5")");
    QTest::newRow("DPCH TX at a fixed power")
        << "default" << "Dpch TX" << fixedPower << "" << 0
        << QStringList{"AST_CAL_apc_start_ex_r(uarfcn=10087,afcDac=4096,paMode=1,apcData=12,directionMask=2,"
                       "modulationMask=36,fixPowerFlag=1,wantedPower=-5)"};
    QTest::newRow("a page without a test") << "default" << "Tpc" << tx << "" << 2 << QStringList();
}

void TestTestOperations::testsBecomeOneTargetCommand()
{
    QFETCH(QString, profile);
    QFETCH(QString, item);
    QFETCH(QString, request);
    QFETCH(QString, failingCall);
    QFETCH(int, code);
    QFETCH(QStringList, calls);

    SimScope sim(profile);
    if (!failingCall.isEmpty())
        TavoSim::FailOnce(failingCall);
    const SDone done = RunTest(item, request.toStdString());
    QCOMPARE(done.result.itemName, item);
    QCOMPARE(done.result.errorCode, code);
    QCOMPARE(done.model, std::string());
    QCOMPARE(TestCalls(), calls);
}

void TestTestOperations::rssiAnswerIsShown_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("rssi");
    QTest::addColumn<QString>("dspPower");

    // Channel 9550 receives -85 + (9550 * 37) % 31 = -73 dBm. At gain 49,
    // 14 below the ideal 63, in mode Ext2 the target reports
    // -73 - 2.25 - 14 / 16 = -76.125 dBm, and a DSP power of
    // -76.125 + 49 - 30 = -57.125 dBm: in 1/8 dB, or as whole dB above -100.
    QTest::newRow("extended command, DSP power in 1/8 dB")
        << "default" << "AST_CAL_agc_ex_r(uarfcn=9550,afcDac=4096,mode=6,gain=49,agcTracking=0)" << "-76.125"
        << "-57.125";
    QTest::newRow("plain command") << "legacy-v1" << "AST_CAL_agc_r(uarfcn=9550,afcDac=4096,mode=6,gain=49,agcTracking=0)"
                                   << "-76" << "43.00";
}

void TestTestOperations::rssiAnswerIsShown()
{
    QFETCH(QString, profile);
    QFETCH(QString, command);
    QFETCH(QString, rssi);
    QFETCH(QString, dspPower);

    SimScope sim(profile);
    CTdscdmaCore::GetInstance()->GetRatSupportStatus(); // the launch asks the capability first
    InitRadbenchResources();
    QFile file(":/TdscdmaRssi.json");
    QVERIFY(file.open(QIODevice::ReadOnly));
    QJsonObject model = QJsonDocument::fromJson(file.readAll()).object();
    QJsonObject request = model["cmdIf"].toObject();
    QJsonObject requestGroups = request["request"].toObject();
    QJsonObject group1 = requestGroups["group1"].toObject();
    group1.insert("memberValue", Json(R"({"uarfcn":"9550","afcdac":"4096","mode":"Ext2","gain":"49","agcTracking":"false"})"));
    requestGroups.insert("group1", group1);
    request.insert("request", requestGroups);
    model.insert("cmdIf", request);

    const SDone done = RunTest("Rssi", QJsonDocument(model).toJson().toStdString());
    QCOMPARE(done.result.errorCode, 0);
    QCOMPARE(TestCalls(), QStringList{command});
    const QJsonObject answer = QJsonDocument::fromJson(QByteArray::fromStdString(done.model)).object();
    const QJsonObject response = answer["cmdIf"]["response"]["group1"]["memberProperty"].toObject();
    QCOMPARE(response["rssi"]["trait"]["defaultValue"].toString(), rssi);
    QCOMPARE(response["dspPower"]["trait"]["defaultValue"].toString(), dspPower);
    QCOMPARE(response["usedGain"]["trait"]["defaultValue"].toString(), QString("49"));

    // A measure that fails gives no answer to show.
    TavoSim::FailOnce(command.left(command.indexOf('(')));
    const SDone failed = RunTest("Rssi", QJsonDocument(model).toJson().toStdString());
    QCOMPARE(failed.result.errorCode, 3);
    QCOMPARE(failed.model, std::string());
}

void TestTestOperations::registers()
{
    SimScope sim;
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    QObject receiver;
    QVector<QPair<int, std::string>> reads;
    QVector<QPair<int, std::string>> writes;
    connect(core, &CTdscdmaCore::Signal_RegReadDone, &receiver,
            [&reads](SEachItemOperationResult r, std::string m) { reads << qMakePair(int(r.errorCode), m); });
    connect(core, &CTdscdmaCore::Signal_RegWriteDone, &receiver,
            [&writes](SEachItemOperationResult r, std::string m) { writes << qMakePair(int(r.errorCode), m); });

    const std::string write = Request(Json(R"({"regAddr":"16"})"), Json(R"({"regAddr":"65552","regValue":"4660"})"));
    core->RegWrite(write);
    QTRY_COMPARE(writes.size(), 1);
    QCOMPARE(writes[0].first, 0);
    QCOMPARE(writes[0].second, write);
    QCOMPARE(TavoSim::Register(16), quint16(4660));

    const std::string read = R"({"cmdIf":{"request":{"group1":{"memberValue":{"regAddr":"16"}}},)"
                             R"("response":{"group1":{"memberProperty":{"regValue":{"trait":{"defaultValue":"N/A"}}}}}}})";
    core->RegRead(read);
    QTRY_COMPARE(reads.size(), 1);
    QCOMPARE(reads[0].first, 0);
    QVERIFY(QString::fromStdString(reads[0].second).contains(R"("defaultValue":"4660")"));

    TavoSim::FailOnce("AST_CAL_read_abb_reg_r");
    TavoSim::FailOnce("AST_CAL_write_abb_reg_r");
    core->RegRead(read);
    core->RegWrite(write);
    QTRY_VERIFY(reads.size() == 2 && writes.size() == 2);
    QCOMPARE(reads[1], qMakePair(3, std::string()));
    QCOMPARE(writes[1], qMakePair(3, std::string()));
}

QTEST_GUILESS_MAIN(TestTestOperations)
#include "tst_TestOperations.moc"
