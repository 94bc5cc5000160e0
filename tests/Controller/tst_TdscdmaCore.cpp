#include <QJsonDocument>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

#include "FakeItems.h"
#include "JsonPath.h"
#include "MovementLog.h"
#include "SimScope.h"
#include "TdscdmaCore.h"

namespace {

const QString kQueryAdvice = "Please check the SW load stability or connection status of the target and tool.";

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

// What a page shows of an RSSI measure.
const char *const kRssiShown[] = {"rssi", "dspPower", "usedGain"};

// A page's request: the values of group 1 (and group 2) as the page packs
// them, and the members in which a test's answer is shown.
QString Request(const char *group1, const char *group2 = nullptr)
{
    QJsonObject request{{"group1", QJsonObject{{"memberValue", Json(group1)}}}};
    if (group2)
        request.insert("group2", QJsonObject{{"memberValue", Json(group2)}});
    QJsonObject shown;
    for (const char *member : kRssiShown)
        shown.insert(member, QJsonObject{{"trait", QJsonObject{{"defaultValue", ""}}}});
    const QJsonObject response{{"group1", QJsonObject{{"memberProperty", shown}}}};
    const QJsonObject model{{"cmdIf", QJsonObject{{"request", request}, {"response", response}}}};
    return QJsonDocument(model).toJson(QJsonDocument::Compact);
}

// What the controller told, in the order it told it: its movements, and
// the results of its tests, their stops and the arming.
struct SCoreLog : SMovementLog {
    QVector<SEachItemOperationResult> others;
    std::string answer; // of the last test

    explicit SCoreLog(CTdscdmaCore *core) : SMovementLog(core)
    {
        QObject::connect(core, &CTdscdmaCore::Signal_TestDone, &receiver,
                         [this](SEachItemOperationResult result, std::string text) {
                             others << result;
                             answer = text;
                         });
        const auto onOther = [this](SEachItemOperationResult result) { others << result; };
        QObject::connect(core, &CTdscdmaCore::Signal_TestStopDone, &receiver, onOther);
        QObject::connect(core, &CTdscdmaCore::Signal_SetUbinDone, &receiver, onOther);
    }
};

// A fake item that asks for a stop while it moves.
struct CStoppingItem : CFakeCalItem {
    using CFakeCalItem::CFakeCalItem;
    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override
    {
        CTdscdmaCore::GetInstance()->RequestStop();
        return CFakeCalItem::Move(movement, file, errorMessage);
    }
};

} // namespace

class TestTdscdmaCore : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { RegisterOperationMetaTypes(); }
    void init()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }
    void cleanup()
    {
        TavoSim::LoadProfile("default");
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    void ratSupportStatus_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QJsonObject>("patch");
        QTest::addColumn<QString>("failingCall");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("reason");
        QTest::addColumn<QString>("advice");
        const QJsonObject none;
        const QString unknown = "We cannot get its support status: Failed to get ";
        QTest::newRow("fully capable") << "default" << none << "" << 1 << "Support" << "";
        QTest::newRow("C2K modem") << "c2k-modem" << none << "" << 2 << "It is C2K modem now." << "";
        QTest::newRow("multi-RAT without TD-SCDMA")
            << "no-tdscdma" << none << "" << 2 << "Not support this RAT from SW multi-RAT world mode ID info." << "";
        QTest::newRow("multi-RAT query fails") << "query-failure" << none << "" << 3
                                               << unknown + "multi-RAT world mode ID info." << kQueryAdvice;
        QTest::newRow("GSM world mode without TD-SCDMA")
            << "legacy-v1" << Json(R"({"gsm": {"worldMode": ["gsm"]}})") << "" << 2
            << "Not support this RAT from SW GSM world mode ID info." << "";
        QTest::newRow("GSM Ex3 fails") << "legacy-v1" << none << "TAVO_Rf_QueryMSCapabilityEx3_r" << 3
                                       << unknown + "GSM world mode ID info." << kQueryAdvice;
        QTest::newRow("GSM Ex2 fails after Ex3") << "legacy-v1" << none << "TAVO_Rf_QueryMSCapabilityEx2_r" << 3
                                                 << unknown + "GSM world mode ID info." << kQueryAdvice;
        // Once the multi-RAT world mode names TD-SCDMA, GSM is not asked.
        QTest::newRow("multi-RAT decides, GSM unasked")
            << "default" << none << "TAVO_Rf_QueryMSCapabilityEx3_r" << 1 << "Support" << "";
        QTest::newRow("multi-RAT world mode invalid, GSM decides") << "v1-pathloss-v2" << none << "" << 1 << "Support"
                                                                   << "";
        QTest::newRow("no RAT information at all")
            << "bare" << none << "" << 2 << "Not Support due to without any this RAT info from SW." << "";
        QTest::newRow("chip id query fails") << "rf-chip-id-zero" << none << "AST_CAL_get_chipid_r" << 3
                                             << unknown + "RF ID info." << kQueryAdvice;
        QTest::newRow("RF chip id 0") << "rf-chip-id-zero" << none << "" << 3
                                      << "Support this RAT but its RF ID is unknown status."
                                      << "Please check the SW load stability or tool version.";
        QTest::newRow("capability query fails")
            << "capability-failure" << none << "" << 3 << "Support this RAT but it failed to get its capability info."
            << kQueryAdvice;
    }
    void ratSupportStatus()
    {
        QFETCH(QString, profile);
        QFETCH(QJsonObject, patch);
        QFETCH(QString, failingCall);
        QVERIFY(TavoSim::LoadProfile(profile) && (patch.isEmpty() || TavoSim::PatchProfile(patch)));
        if (!failingCall.isEmpty())
            TavoSim::FailAlways(failingCall, TAVO_ERR_TIMEOUT);

        const SRatSupportStatus answer = CTdscdmaCore::GetInstance()->GetRatSupportStatus();
        QTEST(answer.status, "status");
        QTEST(answer.reason, "reason");
        QTEST(answer.advice, "advice");
    }

    // Whether the tool needs the database, which of the pages that depend on
    // the target it offers (the list's order: the window's tabs in
    // tests/View/tst_TdscdmaRadbenchForm) and which calibration items.
    void whatTheTargetIsOffered_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<bool>("needDb");
        QTest::addColumn<QStringList>("pages"); // TADC and TPC
        QTest::addColumn<QStringList>("items");
        const QString tadc = "CTdscdmaTadcDockWidget";
        const QString tpc = "CTdscdmaTpcDockWidget";
        QTest::newRow("TADC over NVRAM, structure version 2")
            << "default" << true << QStringList{tadc, tpc + "V3"}
            << QStringList{"AFC", "RX Path Loss", "TPC", "Temperature ADC", "Self Cal"};
        QTest::newRow("everything over layer 1")
            << "modern-l1" << false << QStringList{tpc + "V3"} << QStringList{"RX Path Loss", "TPC", "Self Cal"};
        QTest::newRow("no structure version") << "legacy-v1" << true << QStringList{tadc, tpc}
                                              << QStringList{"AFC", "RX Path Loss", "TPC", "Temperature ADC"};
        QTest::newRow("structure version 1")
            << "v1-pathloss-v2" << true << QStringList{tadc, tpc}
            << QStringList{"AFC", "RX Path Loss", "TPC", "Temperature ADC", "Self Cal"};
        QTest::newRow("C2K modem: no items") << "c2k-modem" << true << QStringList{tadc, tpc + "V3"} << QStringList();
    }
    void whatTheTargetIsOffered()
    {
        QFETCH(QString, profile);
        QFETCH(QStringList, pages);
        SimScope sim(profile);
        QVERIFY(sim.IsLoaded());
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        QTEST(core->IsNeedDb(), "needDb");
        const QStringList all = core->GetInitPageList();
        QCOMPARE(all.size(), 7 + pages.size());
        QCOMPARE(all.filter(QRegularExpression("Tadc|Tpc")), pages);
        QTEST(core->GetSupportItem(), "items");
    }

    void testsOfPageItems_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("request");
        QTest::addColumn<QString>("failingCall");
        QTest::addColumn<int>("code");
        QTest::addColumn<QStringList>("calls");
        QTest::addColumn<QStringList>("shown");
        const QStringList none;
        // An unknown name stands for page 0, AFC Control; a request that is no
        // JSON reads as zeroes.
        QTest::newRow("unknown page, no JSON")
            << "default" << "Nonsense" << "not json" << "" << 0
            << QStringList{"AST_CAL_afc_start_r(uarfcn=0,afcDac=0,paMode=0,afcData=0,capId=0)"} << none;
        QTest::newRow("AFC test at DAC1")
            << "default" << "AFC Control"
            << Request(R"({"uarfcn":"10087","afcSelect":"AFC1","afcdac1":"4000","afcdac2":"4200","paMode":"Low",)"
                       R"("afcData":"30","capId":"170"})")
            << "AST_CAL_afc_start_r" << 3
            << QStringList{"AST_CAL_afc_start_r(uarfcn=10087,afcDac=4000,paMode=2,afcData=30,capId=170)"} << none;
        QTest::newRow("a page without a test") << "default" << "Tpc" << "{}" << "" << 2 << none << none;
        QTest::newRow("DPCH TX at a fixed power")
            << "default" << "Dpch TX"
            << Request(R"({"uarfcn":"10087","afcdac":"4096","apcData":"12","paMode":"Mid","fixPower":"true",)"
                       R"("wantedPower":"-5"})",
                       R"({"direction":["UL","DL","DL","DL","DL"],)"
                       R"("modulation":["QPSK","16QAM","QPSK","QPSK","16QAM"]})")
            << "" << 0
            << QStringList{"AST_CAL_apc_start_ex_r(uarfcn=10087,afcDac=4096,paMode=1,apcData=12,directionMask=2,"
                           "modulationMask=36,fixPowerFlag=1,wantedPower=-5)"}
            << none;
        // Channel 9550 receives -85 + (9550 * 37) % 31 = -73 dBm; at gain 49 in
        // mode Ext2 the target reports -76.125 dBm and a DSP power of -57.125
        // dBm, which the plain command gives in whole dB, the DSP power above
        // -100 dBm. (The extended command, in 1/8 dB: tst_TestPages.)
        const QString rssi =
            Request(R"({"uarfcn":"9550","afcdac":"4096","mode":"Ext2","gain":"49","agcTracking":"false"})");
        const QStringList agc{"AST_CAL_agc_r(uarfcn=9550,afcDac=4096,mode=6,gain=49,agcTracking=0)"};
        QTest::newRow("RSSI, plain command")
            << "legacy-v1" << "Rssi" << rssi << "" << 0 << agc << QStringList{"-76", "43.00", "49"};
        QTest::newRow("RSSI, measure fails") << "legacy-v1" << "Rssi" << rssi << "AST_CAL_agc_r" << 3 << agc << none;
    }
    // A test becomes its one target command, and its code and answer reach
    // the asker; an unknown page or one without a test ends as not executed.
    void testsOfPageItems()
    {
        QFETCH(QString, profile);
        QFETCH(QString, item);
        QFETCH(QString, request);
        QFETCH(QString, failingCall);
        SimScope sim(profile);
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        core->GetRatSupportStatus(); // the launch asks the capability first
        TavoSim::ClearCallLog();
        if (!failingCall.isEmpty())
            TavoSim::FailOnce(failingCall);
        SCoreLog log(core);

        core->TestStart(item, request.toStdString());
        QVERIFY(log.others.isEmpty()); // the test runs in the pool, never on the user interface thread
        QTRY_COMPARE(log.others.size(), 1);
        QCOMPARE(log.others[0].itemName, item);
        QTEST(log.others[0].errorCode, "code");
        QStringList calls;
        for (const TavoSim::CallRecord &call : TavoSim::CallLog())
            calls << call.name + "(" + call.args.join(",") + ")";
        QTEST(calls, "calls");
        QStringList shown;
        for (const char *member : kRssiShown) {
            const QString path = QString("cmdIf.response.group1.memberProperty.%1.trait.defaultValue").arg(member);
            const QJsonValue value = GetJsonValueConst(Json(log.answer.c_str()), path);
            if (IsJsonValueDefined(value))
                shown << value.toString();
        }
        QTEST(shown, "shown");
    }

    // A target without Ubin mode is armed by the layer 1 reset alone and
    // released without a call (a target with Ubin mode, and the failures of
    // both: tests/View/tst_TdscdmaRadbenchForm).
    void armingWithoutUbinMode_data()
    {
        QTest::addColumn<bool>("enable");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("arm") << true << QStringList{"AST_CAL_tl1_reset_r"};
        QTest::newRow("release") << false << QStringList();
    }
    void armingWithoutUbinMode()
    {
        QFETCH(bool, enable);
        SimScope sim("legacy-v1");
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        SCoreLog log(core);
        core->SetUbin(enable);
        QTRY_COMPARE(log.others.size(), 1);
        QCOMPARE(log.others[0].errorCode, 0);
        QTEST(TavoSim::CallNames().filter(QRegularExpression("^AST_(UBIN|CAL_tl1)")), "calls");
        QVERIFY(!TavoSim::IsUbinEnabled());
    }

    void movements_data()
    {
        QTest::addColumn<QString>("movement");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<bool>("isAllSuccess");
        QTest::addColumn<QStringList>("results");
        QTest::addColumn<QStringList>("calls"); // of the failing item, the good one, the stopping one
        const QString bad = "Fake Bad:7:fake failure 7";
        const QString good = "Fake Good:0:";
        const QString stopped = "Fake Good:4:You stoped the operation.";
        QTest::newRow("nothing to move") << "upload" << QStringList() << true << QStringList() << QStringList();
        QTest::newRow("a failure does not stop the others")
            << "upload" << QStringList{"Fake Bad", "Fake Good"} << false << QStringList{bad, good}
            << QStringList{"upload", "upload"};
        QTest::newRow("download") << "download" << QStringList{"Fake Good"} << true << QStringList{good}
                                  << QStringList{"download"};
        QTest::newRow("load") << "load" << QStringList{"Fake Good", "Fake Bad"} << false << QStringList{good, bad}
                              << QStringList{"read", "read"};
        QTest::newRow("save") << "save" << QStringList{"Fake Good"} << true << QStringList{good}
                              << QStringList{"write"};
        // An unknown name stands for item 0, AFC, here without a database.
        QTest::newRow("unknown name")
            << "upload" << QStringList{"Nonsense"} << false
            << QStringList{"Nonsense:100:TAVO_RESULT = TAVO_ERR_NO_DATABASE: no NVRAM database is loaded"}
            << QStringList();
        // A stop asked for while an item moves ends the movement before the
        // next one: every item left over is terminated.
        QTest::newRow("stop between items")
            << "upload" << QStringList{"Fake Stopper", "Fake Good", "Fake Good"} << false
            << QStringList{"Fake Stopper:0:", stopped, stopped} << QStringList{"upload"};
    }
    // Every item of a movement gets its result, whatever the others gave; the
    // progress starts at 0 and counts every item; one done signal, the
    // movement's own, carries it all.
    void movements()
    {
        QFETCH(QString, movement);
        QFETCH(QStringList, items);
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        CFakeCalItem *fakes[] = {new CFakeCalItem(100, "Fake Bad", 7), new CFakeCalItem(101, "Fake Good"),
                                 new CStoppingItem(102, "Fake Stopper")};
        for (CFakeCalItem *item : fakes)
            core->AddCalItem(std::unique_ptr<CCalItemDescriptor>(item));
        auto restore = qScopeGuard([core] {
            for (const int id : {100, 101, 102})
                core->TakeCalItem(id);
        });
        QTemporaryDir folder;
        TIniFile file(folder.filePath("items.ini"));
        SCoreLog log(core);

        if (movement == "upload")
            core->UploadFromFlash(items);
        else if (movement == "download")
            core->DownloadToFlash(items);
        else if (movement == "load")
            core->LoadFromFile(&file, items);
        else
            core->SaveToFile(&file, items);

        QTRY_COMPARE(log.done, QStringList{movement});
        QTEST(log.isAllSuccess, "isAllSuccess");
        QTEST(log.results, "results");
        QList<int> progress;
        for (int i = 0; !items.isEmpty() && i <= items.size(); ++i)
            progress << i;
        QCOMPARE(log.progress, progress);
        QTEST(fakes[0]->object.calls + fakes[1]->object.calls + fakes[2]->object.calls, "calls");
    }

    // A page item added as a descriptor is served like the tool's own: its
    // test's answer reaches the page, and a stop it has none of takes the
    // common stop (its page and model: tests/View/tst_TdscdmaRadbenchForm).
    void addedPageItemIsServed()
    {
        SimScope sim;
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        QVERIFY(!core->AddPageItem(std::make_unique<CFakePageItem>(5)));
        auto restore = qScopeGuard([core] { core->TakePageItem(CFakePageItem::kId); });
        SCoreLog log(core);
        core->TestStart("Fake Page", R"({"value": "echo"})");
        QTRY_COMPARE(log.others.size(), 1);
        QCOMPARE(log.others[0].errorCode, 5);
        QCOMPARE(log.answer, std::string("echo"));

        core->TestStopByItem("Fake Page", "{}");
        QTRY_COMPARE(log.others.size(), 2);
        QCOMPARE(log.others[1].errorCode, 0);
        QCOMPARE(TavoSim::CallCount("AST_CAL_stop_r"), 1);
    }
};

QTEST_GUILESS_MAIN(TestTdscdmaCore)
#include "tst_TdscdmaCore.moc"
