#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include "SimScope.h"
#include "TdscdmaCore.h"

namespace {

const QString kQueryAdvice = "Please check the SW load stability or connection status of the target and tool.";

// Loads `profile` with `patch` laid over it.
bool LoadPatched(const QString &profile, const QJsonObject &patch)
{
    return TavoSim::LoadProfile(profile) && (patch.isEmpty() || TavoSim::PatchProfile(patch));
}

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

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
        QTest::newRow("fully capable") << "default" << none << "" << 1 << "Support" << "";
        QTest::newRow("C2K modem") << "c2k-modem" << none << "" << 2 << "It is C2K modem now." << "";
        QTest::newRow("multi-RAT without TD-SCDMA")
            << "no-tdscdma" << none << "" << 2 << "Not support this RAT from SW multi-RAT world mode ID info." << "";
        QTest::newRow("multi-RAT query fails")
            << "query-failure" << none << "" << 3
            << "We cannot get its support status: Failed to get multi-RAT world mode ID info." << kQueryAdvice;
        QTest::newRow("GSM world mode with TD-SCDMA") << "legacy-v1" << none << "" << 1 << "Support" << "";
        QTest::newRow("GSM world mode without TD-SCDMA")
            << "legacy-v1" << Json(R"({"gsm": {"worldMode": ["gsm"]}})") << "" << 2
            << "Not support this RAT from SW GSM world mode ID info." << "";
        QTest::newRow("GSM Ex3 fails")
            << "legacy-v1" << none << "TAVO_Rf_QueryMSCapabilityEx3_r" << 3
            << "We cannot get its support status: Failed to get GSM world mode ID info." << kQueryAdvice;
        QTest::newRow("GSM Ex2 fails after Ex3")
            << "legacy-v1" << none << "TAVO_Rf_QueryMSCapabilityEx2_r" << 3
            << "We cannot get its support status: Failed to get GSM world mode ID info." << kQueryAdvice;
        QTest::newRow("multi-RAT world mode invalid, GSM decides") << "v1-pathloss-v2" << none << "" << 1 << "Support"
                                                                   << "";
        QTest::newRow("no RAT information at all")
            << "bare" << none << "" << 2 << "Not Support due to without any this RAT info from SW." << "";
        QTest::newRow("chip id query fails")
            << "rf-chip-id-zero" << none << "AST_CAL_get_chipid_r" << 3
            << "We cannot get its support status: Failed to get RF ID info." << kQueryAdvice;
        QTest::newRow("RF chip id 0") << "rf-chip-id-zero" << none << "" << 3
                                      << "Support this RAT but its RF ID is unknown status."
                                      << "Please check the SW load stability or tool version.";
        QTest::newRow("capability query fails")
            << "capability-failure" << none << "" << 3 << "Support this RAT but it failed to get its capability info."
            << kQueryAdvice;
        QTest::newRow("RF capability record fails")
            << "default" << none << "AST_GetRfCapability_r" << 3
            << "Support this RAT but it failed to get its capability info." << kQueryAdvice;
    }
    void ratSupportStatus()
    {
        QFETCH(QString, profile);
        QFETCH(QJsonObject, patch);
        QFETCH(QString, failingCall);
        QFETCH(int, status);
        QFETCH(QString, reason);
        QFETCH(QString, advice);
        QVERIFY(LoadPatched(profile, patch));
        if (!failingCall.isEmpty())
            TavoSim::FailAlways(failingCall, TAVO_ERR_TIMEOUT);

        const SRatSupportStatus answer = CTdscdmaCore::GetInstance()->GetRatSupportStatus();
        QCOMPARE(answer.status, status);
        QCOMPARE(answer.reason, reason);
        QCOMPARE(answer.advice, advice);
    }

    void worldModeOfMultiRatLeavesGsmUnasked()
    {
        SimScope sim("default");
        QCOMPARE(CTdscdmaCore::GetInstance()->GetRatSupportStatus().status, 1);
        for (const TavoSim::CallRecord &call : TavoSim::CallLog())
            QVERIFY2(!call.args.join(' ').contains("MSCapability") && !call.name.contains("MSCapability"),
                     qPrintable(call.name + " " + call.args.join(' ')));
    }

    void pageListAndDatabaseNeed_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<bool>("needDb");
        QTest::addColumn<QStringList>("pages");
        const QStringList common{"CTdscdmaRssiDockWidget",  "CTdscdmaPathlossDockWidget", "CTdscdmaContRxDockWidget",
                                 "CTdscdmaContTxDockWidget", "CTdscdmaDpchTxDockWidget",  "CTdscdmaBBRegDockWidget"};
        QTest::newRow("default: TADC over NVRAM, structure version 2")
            << "default" << true
            << (QStringList{"CTdscdmaAfcDockWidget", "CTdscdmaTadcDockWidget"} + common +
                QStringList{"CTdscdmaTpcDockWidgetV3"});
        QTest::newRow("everything over layer 1")
            << "modern-l1" << false << (QStringList{"CTdscdmaAfcDockWidget"} + common + QStringList{"CTdscdmaTpcDockWidgetV3"});
        QTest::newRow("no structure version")
            << "legacy-v1" << true
            << (QStringList{"CTdscdmaAfcDockWidget", "CTdscdmaTadcDockWidget"} + common +
                QStringList{"CTdscdmaTpcDockWidget"});
        QTest::newRow("structure version 1")
            << "v1-pathloss-v2" << true
            << (QStringList{"CTdscdmaAfcDockWidget", "CTdscdmaTadcDockWidget"} + common +
                QStringList{"CTdscdmaTpcDockWidget"});
    }
    void pageListAndDatabaseNeed()
    {
        QFETCH(QString, profile);
        SimScope sim(profile);
        QVERIFY(sim.IsLoaded());
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        QTEST(core->IsNeedDb(), "needDb");
        QTEST(core->GetInitPageList(), "pages");
    }

    void supportItemsFollowStatusAndCapability_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("items");
        QTest::newRow("C2K modem offers nothing") << "c2k-modem" << QStringList();
        QTest::newRow("default") << "default"
                                 << QStringList{"AFC", "RX Path Loss", "TPC", "Temperature ADC", "Self Cal"};
        QTest::newRow("AFC and TADC over layer 1") << "modern-l1" << QStringList{"RX Path Loss", "TPC", "Self Cal"};
    }
    void supportItemsFollowStatusAndCapability()
    {
        QFETCH(QString, profile);
        SimScope sim(profile);
        QTEST(CTdscdmaCore::GetInstance()->GetSupportItem(), "items");
    }

    // An unknown page with a request that is no JSON ends as not executed,
    // without a call (a page without a test: tst_TestOperations).
    void testOfUnknownPageEndsNotExecuted()
    {
        SimScope sim;
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        QObject receiver;
        QVector<SEachItemOperationResult> results;
        connect(core, &CTdscdmaCore::Signal_TestDone, &receiver,
                [&results](SEachItemOperationResult result, std::string) { results << result; });
        core->TestStart("Nonsense", "not json");
        QTRY_COMPARE(results.size(), 1);
        QCOMPARE(results[0].itemName, QString("Nonsense"));
        QCOMPARE(results[0].errorCode, 2);
        QVERIFY(TavoSim::CallLog().isEmpty());
    }

    void itemMapsGiveZeroForUnknownNames()
    {
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        QCOMPARE(core->PageItemId("Baseband Register"), 8);
        QCOMPARE(core->PageItemId("no such page"), 0);
        QCOMPARE(core->CalItemId("Self Cal"), 4);
        QCOMPARE(core->CalItemId("Error Tdscdma Cal data"), 0);
        QCOMPARE(core->GetCalItemName(5), QString("Error Tdscdma Cal data"));
    }
};

QTEST_GUILESS_MAIN(TestTdscdmaCore)
#include "tst_TdscdmaCore.moc"
