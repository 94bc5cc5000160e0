// What a user of the calibration data pages waits for. On the TPC V3 page:
// Read and Write of all five band groups from the button to the updated
// page, against the bare movement of the item they make, and a band change,
// which stores the shown band in the item and fetches the next one. On the
// path loss page (8-level generation): Read from the button, against the
// item's upload and one bare record read. With the chart shown beside the
// tables: one edited cell to the chart redrawn and the table's marks set, on
// both pages, against the band change (the page's own update of all its
// widgets). Run: build/bin/bench_CalDataPages
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

#include "Descriptors/PathlossCalItem.h"
#include "Descriptors/TpcCalItem.h"
#include "Median.h"
#include "TavoApp.h"
#include "TavoSimControl.h"
#include "ToolSession.h"

class BenchCalDataPages : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();

    void bareItemUpload();
    void readFromButtonToWidgets();
    void bareItemDownload();
    void writeFromButtonToStatus();
    void bandChange();
    void bandChangeUntilDrawn();
    void chartRedrawAfterEdit();

    void pathlossBareRecordRead();
    void pathlossItemUpload();
    void pathlossReadFromButtonToWidgets();
    void pathlossChartRedrawAfterEdit();

private:
    bool Press(const char *button, const QString &status);
    // Shows the page's chart, then edits one cell of `table` again and again,
    // each time until the chart has redrawn.
    void RedrawAfterEdit(const char *table, int row, int column);

    ToolSession m_tool{RADBENCH_PLUGIN_PATH};
    QDockWidget *m_page = nullptr;
    CTpcCalItem m_item;
    CPathlossCalItem m_pathloss;
    double m_bandChangeDrawn = 0;
};

void BenchCalDataPages::initTestCase()
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

void BenchCalDataPages::cleanupTestCase() { QVERIFY(m_tool.Unload()); }

// Clicks and returns when the status line says `status`: woken by the line
// itself, since a polling wait would measure its own period.
bool BenchCalDataPages::Press(const char *button, const QString &status)
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

void BenchCalDataPages::bareItemUpload()
{
    TavoSim::ClearCallLog();
    QCOMPARE(int(m_item.Tpc().UploadFromFlash()), 0);
    // Both records of each band group.
    QCOMPARE(TavoSim::CallCount("AST_Tavo_NVRAM_TX_Read_r"), 10);
    QBENCHMARK {
        QCOMPARE(int(m_item.Tpc().UploadFromFlash()), 0);
    }
}

void BenchCalDataPages::readFromButtonToWidgets()
{
    QBENCHMARK {
        QVERIFY(Press("m_btnUpload", "Read data from target successfully."));
    }
}

void BenchCalDataPages::bareItemDownload()
{
    QBENCHMARK {
        QCOMPARE(int(m_item.Tpc().DownloadToFlash()), 0);
    }
}

void BenchCalDataPages::writeFromButtonToStatus()
{
    QBENCHMARK {
        QVERIFY(Press("m_btnDownload", "Download to flash successfully."));
    }
}

namespace {

// The slowest band's median.
double SlowestMedian(const QVector<QVector<double>> &perBand)
{
    double slowest = 0;
    for (const QVector<double> &runs : perBand) {
        if (!runs.isEmpty())
            slowest = qMax(slowest, Median(runs));
    }
    return slowest;
}

}  // namespace

void BenchCalDataPages::bandChange()
{
    // The bands differ in what they hold, so every band is changed to again
    // and again. Timed: the page's own work, from the selector's change until
    // the new band's values stand in the widgets; then, told by the next
    // function, until the event loop has also run what that posted (the
    // chart's check, the page's redraw).
    auto *band = m_page->findChild<QComboBox *>("calDataIf_config_group1_memberProperty_band");
    QVector<QVector<double>> work(band->count());
    QVector<QVector<double>> drawn(band->count());
    QElapsedTimer clock;
    for (int round = 0; round < 25; ++round) {
        for (int next = 0; next < band->count(); ++next) {
            if (next == band->currentIndex())
                continue;
            clock.start();
            band->setCurrentIndex(next);
            work[next] << clock.nsecsElapsed() / 1e6;
            QCoreApplication::processEvents();
            drawn[next] << clock.nsecsElapsed() / 1e6;
        }
    }
    m_bandChangeDrawn = SlowestMedian(drawn);
    QTest::setBenchmarkResult(SlowestMedian(work), QTest::WalltimeMilliseconds);
}

void BenchCalDataPages::bandChangeUntilDrawn()
{
    QVERIFY(m_bandChangeDrawn > 0);
    QTest::setBenchmarkResult(m_bandChangeDrawn, QTest::WalltimeMilliseconds);
}

void BenchCalDataPages::RedrawAfterEdit(const char *table, int row, int column)
{
    // (QtTest runs a benchmark's function more than once.)
    auto *show = m_page->findChild<QToolButton *>("m_btnChart");
    if (!show->isChecked())
        QTest::mouseClick(show, Qt::LeftButton);
    QWidget *chart = m_page->findChild<QWidget *>("m_chartPanel");
    QVERIFY(chart && chart->isVisible());
    auto *cell = qobject_cast<QDoubleSpinBox *>(m_page->findChild<QTableWidget *>(table)->cellWidget(row, column));
    QVERIFY(cell);
    const double value = cell->value();
    int edits = 0;
    QBENCHMARK {
        QEventLoop loop;
        connect(chart, SIGNAL(Signal_Checked(int)), &loop, SLOT(quit()));
        cell->setValue(value + (++edits % 2 ? 0.5 : 0.0));
        loop.exec();
    }
}

void BenchCalDataPages::chartRedrawAfterEdit()
{
    QVERIFY(Press("m_btnUpload", "Read data from target successfully."));
    RedrawAfterEdit("calDataIf_data_group6_memberProperty_paH", 1, 2);
}

void BenchCalDataPages::pathlossChartRedrawAfterEdit()
{
    RedrawAfterEdit("calDataIf_data_group1_memberProperty_uarfcn", 1, 7);
}

void BenchCalDataPages::pathlossBareRecordRead()
{
    uint8_t request[AST_TAVO_NVRAM_PATHLOSS_HEAD_SIZE] = {0, 0, AST_TAVO_NVRAM_PATHLOSS_8LEVEL_VERSION};
    uint8_t confirm[AST_TAVO_NVRAM_PATHLOSS_HEAD_SIZE + AST_TAVO_NVRAM_PATHLOSS_8LEVEL_RECORD_SIZE] = {};
    QBENCHMARK {
        QCOMPARE(int(AST_Tavo_NVRAM_Pathloss_8level_Read_r(0, 10000, request, confirm)), 0);
    }
}

void BenchCalDataPages::pathlossItemUpload()
{
    QBENCHMARK {
        QCOMPARE(int(m_pathloss.PathLoss().UploadFromFlash()), 0);
    }
}

void BenchCalDataPages::pathlossReadFromButtonToWidgets()
{
    m_page = m_tool.ShowPage("CTdscdmaPathlossDockWidget");
    QVERIFY(m_page);
    QBENCHMARK {
        QVERIFY(Press("m_btnUpload", "Read data from target successfully."));
    }
}

QTEST_MAIN(BenchCalDataPages)
#include "bench_CalDataPages.moc"
