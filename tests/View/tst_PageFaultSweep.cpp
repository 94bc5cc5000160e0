// The pages under faults: for each calibration page's movements and each
// radio test page's button, the N-th target call of the run is made to fail,
// for N from 1 to the number of calls the run makes without a fault (sampled
// in CI as the controllers' sweep is; RADBENCH_FULL_SWEEP=1 fails every
// position). After each run: the host heard the tool become idle again, the
// status line names the outcome, a failure came with its box, the page's
// buttons are back as before the press, and the next run works.

#include <QComboBox>
#include <QAbstractButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

#include "FaultPositions.h"
#include "ModalBoxCatcher.h"
#include "TavoSimControl.h"
#include "ToolSession.h"

namespace {

int g_runs = 0;
int g_failedRuns = 0;

} // namespace

class TestPageFaultSweep : public ToolSuite {
    Q_OBJECT
public:
    TestPageFaultSweep() : ToolSuite(RADBENCH_PLUGIN_PATH) {}

private slots:
    void everyCallOfAPageFails_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("button");
        // The buttons that must be enabled whenever the page is idle.
        QTest::addColumn<QStringList>("idle");
        // What the file dialog answers, if the button opens one.
        QTest::addColumn<QString>("file");
        const QStringList tpc{"m_btnUpload", "m_btnDownload", "m_btnLoad", "m_btnSave",
                              "calDataIf_config_group1_memberProperty_band"};
        const QStringList afc{"m_btnRead", "m_btnWrite", "m_btnImport", "m_btnExport", "m_start"};
        const QStringList tadc{"m_btnFetch", "m_btnUploadFromFlash", "m_btnDownloadToFlash", "m_btnLoadFromFile",
                               "m_btnSaveToFile"};
        for (const char *page : {"CTdscdmaTpcDockWidgetV3", "CTdscdmaPathlossDockWidget"}) {
            QTest::addRow("%s read", page) << page << "m_btnUpload" << tpc << "";
            QTest::addRow("%s write", page) << page << "m_btnDownload" << tpc << "";
            QTest::addRow("%s export", page) << page << "m_btnSave" << tpc << "export.ini";
            QTest::addRow("%s import", page) << page << "m_btnLoad" << tpc << "import.ini";
        }
        QTest::newRow("AFC read") << "CTdscdmaAfcDockWidget" << "m_btnRead" << afc << "";
        QTest::newRow("AFC write") << "CTdscdmaAfcDockWidget" << "m_btnWrite" << afc << "";
        QTest::newRow("AFC start") << "CTdscdmaAfcDockWidget" << "m_start" << afc << "";
        QTest::newRow("TADC measure") << "CTdscdmaTadcDockWidget" << "m_btnFetch" << tadc << "";
        QTest::newRow("TADC read") << "CTdscdmaTadcDockWidget" << "m_btnUploadFromFlash" << tadc << "";
        QTest::newRow("TADC write") << "CTdscdmaTadcDockWidget" << "m_btnDownloadToFlash" << tadc << "";
        QTest::newRow("continuous TX start") << "CTdscdmaContTxDockWidget" << "m_start" << QStringList{"m_start"} << "";
        QTest::newRow("continuous RX start") << "CTdscdmaContRxDockWidget" << "m_start" << QStringList{"m_start"} << "";
        QTest::newRow("DPCH TX start") << "CTdscdmaDpchTxDockWidget" << "m_start" << QStringList{"m_start"} << "";
        QTest::newRow("RSSI") << "CTdscdmaRssiDockWidget" << "m_start" << QStringList{"m_start"} << "";
        QTest::newRow("register read") << "CTdscdmaBBRegDockWidget" << "m_btnRegRead"
                                       << QStringList{"m_btnRegRead", "m_btnRegWrite"} << "";
        QTest::newRow("register write") << "CTdscdmaBBRegDockWidget" << "m_btnRegWrite"
                                        << QStringList{"m_btnRegRead", "m_btnRegWrite"} << "";
    }
    void everyCallOfAPageFails()
    {
        QFETCH(QString, page);
        QFETCH(QString, button);
        QFETCH(QStringList, idle);
        QFETCH(QString, file);
        QDockWidget *dock = OpenPage(page);
        QVERIFY(dock);
        if (!file.isEmpty()) {
            file = m_dir.filePath(file);
            // An import reads what an export of the same page wrote.
            if (button == "m_btnLoad") {
                QFile::remove(file);
                ModalBoxCatcher exported;
                exported.AnswerFileDialogs({file});
                QVERIFY(m_tool.Press(dock, "m_btnSave", "Export data to file successfully."));
            }
        }
        // The AFC and TADC pages write what a read brought.
        const QMap<QString, QString> readFirst{{"m_btnWrite", "m_btnRead"},
                                               {"m_btnDownloadToFlash", "m_btnUploadFromFlash"}};
        if (readFirst.contains(button))
            QVERIFY(m_tool.Press(dock, readFirst[button], "Read data from target successfully."));

        // The run without a fault: the calls it makes, and its outcome.
        TavoSim::ClearCallLog();
        QString clean;
        {
            ModalBoxCatcher boxes;
            QVERIFY(Run(dock, button, file, boxes, clean));
            QVERIFY2(!clean.endsWith("failed.") && boxes.Count() == 0, qPrintable(clean));
        }
        const int calls = TavoSim::CallLog().size();

        for (int n : FaultPositions(calls)) {
            TavoSim::ClearCallLog();
            TavoSim::InjectFault("*", TAVO_ERR_FAILED, 1, n - 1);
            ModalBoxCatcher boxes;
            QString status;
            QVERIFY2(Run(dock, button, file, boxes, status), qPrintable(QString("call %1 of %2").arg(n).arg(calls)));
            TavoSim::ClearFaults();
            ++g_runs;
            if (status != clean) {
                // A failure is told on the status line and in its box.
                ++g_failedRuns;
                QVERIFY2(status.endsWith("failed."), qPrintable(status));
                QVERIFY(boxes.WaitFor(1));
                // The box names the failure: the text of its code, and the
                // target's own result where there is one.
                const ModalBoxCatcher::Box &box = boxes.Boxes().last();
                const QString told = box.text + " | " + box.informativeText;
                QVERIFY2(!box.text.isEmpty()
                             && (told.contains("TAVO_ERR_FAILED") || told.contains("Tavo command execute failed.")),
                         qPrintable(QString("call %1 of %2: %3").arg(n).arg(calls).arg(told)));
            }
            for (const QString &name : idle) {
                QWidget *widget = dock->findChild<QWidget *>(name);
                QVERIFY2(widget && widget->isEnabled(), qPrintable(QString("%1 after call %2 of %3 failed: %4")
                                                                       .arg(name).arg(n).arg(calls).arg(status)));
            }
            QVERIFY(!m_tool.Busy().last().at(1).toBool());
        }
        // The page still works.
        QString after;
        ModalBoxCatcher boxes;
        QVERIFY(Run(dock, button, file, boxes, after));
        QCOMPARE(after, clean);
    }

    void cleanupTestCase()
    {
        // A run whose position lies beyond the calls that can fail (the
        // log also holds text and query calls) ends as the clean one did.
        qInfo("%d runs of the pages, %d of them ended by a failed call", g_runs, g_failedRuns);
        ToolSuite::cleanupTestCase();
    }

private:
    // Presses the button and waits until the host hears the tool idle again;
    // `status` is what the status line said. `boxes` answers the file dialog
    // and closes the boxes.
    bool Run(QDockWidget *dock, const QString &button, const QString &file, ModalBoxCatcher &boxes, QString &status)
    {
        if (!file.isEmpty()) {
            // An export goes to a new file each time: the dialog's question
            // whether to replace a file would wait for an answer.
            if (button == "m_btnSave")
                QFile::remove(file);
            boxes.AnswerFileDialogs({file});
        }
        m_tool.Busy().clear();
        m_tool.Window()->findChild<QStatusBar *>()->clearMessage();
        QTest::mouseClick(dock->findChild<QAbstractButton *>(button), Qt::LeftButton);
        const auto idle = [this] {
            return m_tool.Busy().count() >= 2 && !m_tool.Busy().last().at(1).toBool() && !m_tool.Status().isEmpty();
        };
        if (!QTest::qWaitFor(idle, 20000))
            return false;
        status = m_tool.Status();
        // A test that holds the target is stopped; the stop's outcome is the
        // run's. A failed stop leaves the test running, as the user found it,
        // so that the stop can be pressed again, which is done here.
        auto *stop = dock->findChild<QAbstractButton *>("m_stop");
        for (int attempt = 0; button == "m_start" && stop && stop->isEnabled() && attempt < 2; ++attempt) {
            m_tool.Busy().clear();
            m_tool.Window()->findChild<QStatusBar *>()->clearMessage();
            QTest::mouseClick(stop, Qt::LeftButton);
            if (!QTest::qWaitFor(idle, 20000))
                return false;
            if (attempt == 0)
                status = m_tool.Status();
        }
        return true;
    }

    QTemporaryDir m_dir;
};

QTEST_MAIN(TestPageFaultSweep)
#include "tst_PageFaultSweep.moc"
