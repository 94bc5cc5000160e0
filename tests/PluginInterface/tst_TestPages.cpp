#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QSpinBox>
#include <QToolButton>
#include <QtTest>

#include "ModalBoxCatcher.h"
#include "SimScope.h"
#include "TavoPluginInterface.h"
#include "ToolSession.h"

// The plug-in as the host sees it, loaded from its file, through its
// interface only; and its test pages as a user drives them: the real window
// on a simulated target, the real widgets clicked and typed into.
class TestTestPages : public ToolSuite {
    Q_OBJECT
public:
    TestTestPages() : ToolSuite(RADBENCH_PLUGIN_PATH) {}

private slots:
    void launchRequirement_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<bool>("isSupport");
        QTest::addColumn<QString>("unsupportReason");
        QTest::addColumn<bool>("isNeedDb");
        // Every status and reason of each profile: tests/Controller/tst_TdscdmaCore.
        QTest::newRow("fully capable") << "default" << true << "" << true;
        QTest::newRow("everything over layer 1") << "modern-l1" << true << "" << false;
        QTest::newRow("not supported") << "c2k-modem" << false << "It is C2K modem now." << false;
    }
    void launchRequirement()
    {
        QFETCH(QString, profile);
        QVERIFY(TavoSim::LoadProfile(profile));
        const SPluginToolLaunchRequirement answer = m_tool.Plugin()->QueryLaunchRequirement();
        QTEST(answer.isSupport, "isSupport");
        QTEST(answer.unsupportReason, "unsupportReason");
        QTEST(answer.isNeedDb, "isNeedDb");
    }

    // Showing and hiding reach the host (the pages' busy signals: below); a
    // reset while hidden builds the pages again on the next show, for the
    // target of that time.
    void showHideAndReset()
    {
        QVERIFY(TavoSim::LoadProfile("default"));
        QSignalSpy activated(m_tool.Instance(), SIGNAL(Signal_PluginIsActivated(QString, bool)));
        m_tool.Plugin()->ShowTool();
        QWidget *window = ToolSession::FindWindow();
        QVERIFY(window && window->isVisible());
        QTRY_VERIFY(window->isEnabled() && window->findChildren<QDockWidget *>().size() == 9);
        m_tool.Plugin()->HideTool();
        QVERIFY(!window->isVisible());
        QCOMPARE(activated.count(), 2);
        QCOMPARE(activated.at(0), (QVariantList{"TDSCDMA Radbench", true}));
        QCOMPARE(activated.at(1), (QVariantList{"TDSCDMA Radbench", false}));

        m_tool.Plugin()->ResetPlugin();
        QVERIFY(window->findChildren<QDockWidget *>().isEmpty());
        QVERIFY(TavoSim::LoadProfile("modern-l1"));
        QVERIFY(m_tool.Plugin()->QueryLaunchRequirement().isSupport);
        m_tool.Plugin()->ShowTool();
        QTRY_VERIFY(window->isEnabled() && window->findChildren<QDockWidget *>().size() == 8);
    }

    void continuousTestStartsAndStops_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("running");
        QTest::addColumn<QString>("started");
        QTest::addColumn<QString>("stopped");
        QTest::newRow("continuous TX")
            << "CTdscdmaContTxDockWidget" << "tx 10100" << "Cont Tx start..." << "Cont Tx stop.";
        QTest::newRow("continuous RX")
            << "CTdscdmaContRxDockWidget" << "rx 10100" << "Cont Rx start..." << "Cont Rx stop.";
    }
    void continuousTestStartsAndStops()
    {
        QFETCH(QString, page);
        QFETCH(QString, started);
        QFETCH(QString, stopped);
        QDockWidget *dock = OpenPage(page);
        QVERIFY(dock);
        auto *band = Find<QComboBox>(dock, "cmdIf_request_group1_memberProperty_band");
        auto *uarfcn = Find<QSpinBox>(dock, "cmdIf_request_group1_memberProperty_uarfcn");
        auto *start = Find<QToolButton>(dock, "m_start");
        auto *stop = Find<QToolButton>(dock, "m_stop");

        band->setCurrentText("2010-2025MHz(a)");
        uarfcn->selectAll();
        QTest::keyClicks(uarfcn, "10100");
        QTest::mouseClick(start, Qt::LeftButton);
        QVERIFY(!start->isEnabled());
        QTRY_COMPARE(Status(), started);
        QTEST(TavoSim::RadioActivity(), "running");
        QVERIFY(!start->isEnabled() && stop->isEnabled());
        QCOMPARE(m_tool.Busy().count(), 2);
        QCOMPARE(m_tool.Busy().at(0), (QVariantList{"TDSCDMA Radbench", true}));
        QCOMPARE(m_tool.Busy().at(1), (QVariantList{"TDSCDMA Radbench", false}));

        QTest::mouseClick(stop, Qt::LeftButton);
        QTRY_COMPARE(Status(), stopped);
        QCOMPARE(TavoSim::RadioActivity(), QString("idle"));
        QVERIFY(start->isEnabled() && !stop->isEnabled());

        // Turning to another tab stops it as well; the page rests.
        QTest::mouseClick(start, Qt::LeftButton);
        QTRY_VERIFY(stop->isEnabled());
        m_tool.ShowPage("CTdscdmaRssiDockWidget");
        QTRY_COMPARE(TavoSim::RadioActivity(), QString("idle"));
        QVERIFY(!dock->isEnabled());
        QTRY_VERIFY(start->isEnabledTo(dock));
    }

    void failuresLeaveThePageUsable_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("failingCall");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("boxTitle");
        QTest::newRow("continuous TX start") << "CTdscdmaContTxDockWidget" << "m_start" << "AST_RFTEST_TXOn_r"
                                             << "Cont Tx start failed." << "Cont Tx start failed";
        QTest::newRow("continuous TX stop") << "CTdscdmaContTxDockWidget" << "m_stop" << "AST_RFTEST_TXOn_r"
                                            << "Cont Tx stop failed." << "Cont Tx stop failed.";
        QTest::newRow("continuous RX start") << "CTdscdmaContRxDockWidget" << "m_start" << "AST_RFTEST_RXOn_r"
                                             << "Cont Rx start failed." << "Cont Rx start failed";
        QTest::newRow("continuous RX stop") << "CTdscdmaContRxDockWidget" << "m_stop" << "AST_RFTEST_RXOn_r"
                                            << "Cont Rx stop failed." << "Cont Rx stop failed.";
        QTest::newRow("DPCH TX start") << "CTdscdmaDpchTxDockWidget" << "m_start" << "AST_CAL_apc_start_r"
                                       << "DPCH Tx start failed." << "DPCH TX start failed";
        QTest::newRow("DPCH TX stop") << "CTdscdmaDpchTxDockWidget" << "m_stop" << "AST_CAL_stop_r"
                                      << "DPCH TX stop failed." << "DPCH TX stop failed.";
        QTest::newRow("RSSI") << "CTdscdmaRssiDockWidget" << "m_start" << "AST_CAL_agc_ex_r" << "Rssi test failed."
                              << "Rssi test failed";
        QTest::newRow("register read") << "CTdscdmaBBRegDockWidget" << "m_btnRegRead" << "AST_CAL_read_abb_reg_r"
                                       << "Register read failed." << "Register read failed";
        QTest::newRow("register write") << "CTdscdmaBBRegDockWidget" << "m_btnRegWrite" << "AST_CAL_write_abb_reg_r"
                                        << "Register write failed." << "Register write failed";
    }
    void failuresLeaveThePageUsable()
    {
        QFETCH(QString, page);
        QFETCH(QString, button);
        QFETCH(QString, failingCall);
        QFETCH(QString, status);
        QDockWidget *dock = OpenPage(page);
        QVERIFY(dock);
        auto *pressed = Find<QToolButton>(dock, button);
        auto *start = dock->findChild<QToolButton *>("m_start");
        auto *stop = dock->findChild<QToolButton *>("m_stop");
        if (pressed == stop) {
            QTest::mouseClick(start, Qt::LeftButton);
            QTRY_VERIFY(stop->isEnabled());
        }
        TavoSim::FailOnce(failingCall, TAVO_ERR_TIMEOUT);
        m_tool.Busy().clear();
        ModalBoxCatcher boxes;
        QTest::mouseClick(pressed, Qt::LeftButton);
        QVERIFY(boxes.WaitFor(1));
        QCOMPARE(Status(), status);
        QTEST(boxes.Boxes()[0].title, "boxTitle");
        QVERIFY(boxes.Boxes()[0].text.contains("Tavo command execute failed."));
        QCOMPARE(m_tool.Busy().count(), 2);
        QCOMPARE(m_tool.Busy().last().at(1).toBool(), false);

        // The page is back where the button was pressed.
        QVERIFY(pressed->isEnabled());
        if (stop) {
            QCOMPARE(start->isEnabled(), pressed == start);
            QCOMPARE(stop->isEnabled(), pressed == stop);
        }
    }

    void dpchTxWithTheModelsDefaults()
    {
        QDockWidget *dock = OpenPage("CTdscdmaDpchTxDockWidget");
        QVERIFY(dock);
        QTest::mouseClick(Find<QToolButton>(dock, "m_start"), Qt::LeftButton);
        QTRY_COMPARE(Status(), QString("DPCH TX start..."));
        const TavoSim::CallRecord call = TavoSim::CallLog().last();
        QCOMPARE(call.name, QString("AST_CAL_apc_start_r"));
        QCOMPARE(call.args, (QStringList{"uarfcn=9550", "afcDac=4096", "paMode=0", "apcData=12", "directionMask=2",
                                         "modulationMask=0"}));
        QTest::mouseClick(Find<QToolButton>(dock, "m_stop"), Qt::LeftButton);
        QTRY_COMPARE(Status(), QString("DPCH TX stop."));
        QCOMPARE(TavoSim::RadioActivity(), QString("idle"));

        // The host locks the pages against new operations and releases them.
        auto *start = Find<QToolButton>(dock, "m_start");
        auto *read = Find<QToolButton>(m_tool.ShowPage("CTdscdmaBBRegDockWidget"), "m_btnRegRead");
        m_tool.Plugin()->DisablePages();
        QVERIFY(!start->isEnabledTo(dock) && !read->isEnabledTo(read->window()));
        m_tool.Plugin()->EnablePages();
        QVERIFY(start->isEnabledTo(dock) && read->isEnabledTo(read->window()));
        QVERIFY(!Find<QToolButton>(dock, "m_stop")->isEnabledTo(dock));
    }

    void rssiShowsTheMeasure()
    {
        QDockWidget *dock = OpenPage("CTdscdmaRssiDockWidget");
        QVERIFY(dock);
        Find<QComboBox>(dock, "cmdIf_request_group1_memberProperty_mode")->setCurrentText("Ext2");
        auto *gain = Find<QSpinBox>(dock, "cmdIf_request_group1_memberProperty_gain");
        gain->setValue(49);
        QTest::mouseClick(Find<QToolButton>(dock, "m_start"), Qt::LeftButton);
        QTRY_COMPARE(Status(), QString("Rssi test finished"));
        QCOMPARE(Find<QLabel>(dock, "cmdIf_response_group1_memberProperty_rssi")->text(), QString("-76.125"));
        QCOMPARE(Find<QLabel>(dock, "cmdIf_response_group1_memberProperty_dspPower")->text(), QString("-57.125"));
        QCOMPARE(Find<QLabel>(dock, "cmdIf_response_group1_memberProperty_usedGain")->text(), QString("49"));
    }

    void registersAreWrittenAndRead()
    {
        QDockWidget *dock = OpenPage("CTdscdmaBBRegDockWidget");
        QVERIFY(dock);
        Find<QSpinBox>(dock, "cmdIf_request_group2_memberProperty_regAddr")->setValue(300);
        Find<QSpinBox>(dock, "cmdIf_request_group2_memberProperty_regValue")->setValue(4660);
        QTest::mouseClick(Find<QToolButton>(dock, "m_btnRegWrite"), Qt::LeftButton);
        QTRY_COMPARE(Status(), QString("Register write successfully."));
        QCOMPARE(TavoSim::Register(300), quint16(4660));

        Find<QSpinBox>(dock, "cmdIf_request_group1_memberProperty_regAddr")->setValue(300);
        QTest::mouseClick(Find<QToolButton>(dock, "m_btnRegRead"), Qt::LeftButton);
        QTRY_COMPARE(Status(), QString("Register read successfully."));
        QCOMPARE(Find<QLabel>(dock, "cmdIf_response_group1_memberProperty_regValue")->text(), QString("4660"));
    }

private:
    QString Status() const { return m_tool.Status(); }
};

QTEST_MAIN(TestTestPages)
#include "tst_TestPages.moc"
