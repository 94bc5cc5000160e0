// The chart and the plausibility marks of the TPC and path loss pages, on a
// target seeded with implausible data: exactly the faulty cells marked, the
// marks gone once the user fixes the value or turns to a healthy band.

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QImage>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include "ModalBoxCatcher.h"
#include "TavoPluginInterface.h"
#include "ToolSession.h"

namespace {

const char *const kBand = "calDataIf_config_group1_memberProperty_band";

// The marked cells of a page as "table:row:column", the table named by its
// group and first member.
QStringList Marked(QWidget *page)
{
    QStringList marked;
    for (QTableWidget *table : page->findChildren<QTableWidget *>()) {
        for (int row = 0; row < table->rowCount(); ++row) {
            for (int column = 0; column < table->columnCount(); ++column) {
                const QWidget *cell = table->cellWidget(row, column);
                if (cell && !cell->property("implausible").toString().isEmpty())
                    marked << QString("%1:%2:%3")
                                  .arg(table->objectName().section('_', 2, 2))
                                  .arg(row)
                                  .arg(column);
            }
        }
    }
    marked.sort();
    return marked;
}

} // namespace

class TestCalDataCharts : public ToolSuite {
    Q_OBJECT
public:
    TestCalDataCharts() : ToolSuite(RADBENCH_PLUGIN_PATH) {}

private slots:
    void marks_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QStringList>("marked");
        QTest::addColumn<QString>("fixedTable"); // the faulty table, and the value that fixes its cell
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("column");
        QTest::addColumn<double>("fix");
        // The dip of PA_H at point 2 (the power table of the V3 page is group 6).
        QTest::newRow("TPC") << "CTdscdmaTpcDockWidgetV3" << QStringList{"group6:0:2"}
                             << "calDataIf_data_group6_memberProperty_paH" << 0 << 2 << 20.0;
        // The spike of the high gain mode at sub-band 5: up to it, and down after it.
        QTest::newRow("path loss") << "CTdscdmaPathlossDockWidget" << QStringList{"group1:1:5", "group1:1:6"}
                                   << "calDataIf_data_group1_memberProperty_uarfcn" << 1 << 5 << 0.25;
    }
    void marks()
    {
        QFETCH(QString, page);
        QFETCH(QStringList, marked);
        QFETCH(QString, fixedTable);
        QFETCH(int, row);
        QFETCH(int, column);
        QFETCH(double, fix);
        QWidget *dock = OpenPage(page, TESTS_DIR "/View/faulty-curves.json");
        QVERIFY(dock);
        QVERIFY(Marked(dock).isEmpty());
        QVERIFY(m_tool.Press(dock, "m_btnUpload", "Read data from target successfully."));
        QTRY_COMPARE(Marked(dock), marked);
        // The user fixes the value: the marks go.
        auto *cell = qobject_cast<QDoubleSpinBox *>(Find<QTableWidget>(dock, fixedTable)->cellWidget(row, column));
        QVERIFY(cell);
        cell->setValue(fix);
        QTRY_VERIFY(Marked(dock).isEmpty());
        // Back to the faulty value, then a band whose data are healthy.
        QVERIFY(m_tool.Press(dock, "m_btnUpload", "Read data from target successfully."));
        QTRY_VERIFY(!Marked(dock).isEmpty());
        Find<QComboBox>(dock, kBand)->setCurrentIndex(1);
        QTRY_VERIFY(Marked(dock).isEmpty());
    }

    // The chart shows and hides beside the table, tells what it found, and
    // saves itself as a PNG.
    void chart()
    {
        QWidget *dock = OpenPage("CTdscdmaTpcDockWidgetV3", TESTS_DIR "/View/faulty-curves.json");
        QVERIFY(dock);
        QVERIFY(m_tool.Press(dock, "m_btnUpload", "Read data from target successfully."));
        QWidget *panel = dock->findChild<QWidget *>("m_chartPanel");
        QVERIFY(panel && panel->isHidden());
        QVERIFY(m_tool.Press(dock, "m_btnChart", "Chart shown: 1 implausible value."));
        QVERIFY(panel->isVisible());
        QTemporaryDir dir;
        ModalBoxCatcher dialogs;
        dialogs.AnswerFileDialogs({dir.filePath("tpc.png")});
        QTest::mouseClick(Find<QWidget>(dock, "m_btnSaveChart"), Qt::LeftButton);
        QTRY_VERIFY(QFile::exists(dir.filePath("tpc.png")));
        const QImage image(dir.filePath("tpc.png"));
        QVERIFY(image.width() >= 400 && image.height() >= 300);
        QVERIFY(m_tool.Press(dock, "m_btnChart", "Chart hidden."));
        QVERIFY(panel->isHidden());
    }
};

QTEST_MAIN(TestCalDataCharts)
#include "tst_CalDataCharts.moc"
