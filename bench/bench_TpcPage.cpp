// What a user of the TPC V3 page waits for: Read and Write of all five band
// groups from the button to the updated page, against the bare movement of
// the item they make; and a band change, which stores the shown band in the
// item and fetches the next one. Run: build/bin/bench_TpcPage
#include <QComboBox>
#include <QDockWidget>
#include <QStatusBar>
#include <QToolButton>
#include <QtTest>

#include "Descriptors/TpcCalItem.h"
#include "TavoSimControl.h"
#include "ToolSession.h"

class BenchTpcPage : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();

    void bareItemUpload();
    void readFromButtonToWidgets();
    void bareItemDownload();
    void writeFromButtonToStatus();
    void bandChange();

private:
    bool Press(const char *button, const QString &status);

    ToolSession m_tool{RADBENCH_PLUGIN_PATH};
    QDockWidget *m_page = nullptr;
    CTpcCalItem m_item;
};

void BenchTpcPage::initTestCase()
{
    // The trace would be most of what is measured; the offscreen platform's
    // notes go to the default category's warnings.
    QLoggingCategory::setFilterRules("radbench.*.debug=false\ndefault.debug=false\ndefault.warning=false");
    QString error;
    QVERIFY2(m_tool.Load(&error), qPrintable(error));
    QVERIFY(m_tool.Open("default"));
    m_page = m_tool.ShowPage("CTdscdmaTpcDockWidgetV3");
    QVERIFY(m_page);
}

void BenchTpcPage::cleanupTestCase() { QVERIFY(m_tool.Unload()); }

// Clicks and returns when the status line says `status`: woken by the line
// itself, since a polling wait would measure its own period.
bool BenchTpcPage::Press(const char *button, const QString &status)
{
    auto *line = m_tool.Window()->findChild<QStatusBar *>();
    line->clearMessage();
    QEventLoop loop;
    connect(line, &QStatusBar::messageChanged, &loop, [&loop, &status](const QString &message) {
        if (message == status)
            loop.quit();
    });
    QTimer::singleShot(10000, &loop, [&loop] { loop.exit(1); });
    QTest::mouseClick(m_page->findChild<QToolButton *>(button), Qt::LeftButton);
    return loop.exec() == 0;
}

void BenchTpcPage::bareItemUpload()
{
    TavoSim::ClearCallLog();
    QCOMPARE(int(m_item.Tpc().UploadFromFlash()), 0);
    // Both records of each band group.
    QCOMPARE(TavoSim::CallCount("AST_Tavo_NVRAM_TX_Read_r"), 10);
    QBENCHMARK {
        QCOMPARE(int(m_item.Tpc().UploadFromFlash()), 0);
    }
}

void BenchTpcPage::readFromButtonToWidgets()
{
    QBENCHMARK {
        QVERIFY(Press("m_btnUpload", "Read data from target successfully."));
    }
}

void BenchTpcPage::bareItemDownload()
{
    QBENCHMARK {
        QCOMPARE(int(m_item.Tpc().DownloadToFlash()), 0);
    }
}

void BenchTpcPage::writeFromButtonToStatus()
{
    QBENCHMARK {
        QVERIFY(Press("m_btnDownload", "Download to flash successfully."));
    }
}

void BenchTpcPage::bandChange()
{
    auto *band = m_page->findChild<QComboBox *>("calDataIf_config_group1_memberProperty_band");
    int next = 0;
    QBENCHMARK {
        next = (next + 1) % band->count();
        band->setCurrentIndex(next);
    }
}

QTEST_MAIN(BenchTpcPage)
#include "bench_TpcPage.moc"
