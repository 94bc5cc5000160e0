// What the user waits for: from ShowTool to the enabled window with all its
// pages, beside the bare construction of the same pages' widgets (the same
// pages with the same table cells, no model, no binding), and one test from
// the button to the result slot, compared with the bare target call it makes.
// Run: build/bin/bench_ToolRoundTrips
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPluginLoader>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

#include "Median.h"
#include "TavoCore.h"
#include "TavoPluginInterface.h"
#include "TavoSimControl.h"

class BenchToolRoundTrips : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();

    void showToolToReadyWindow();
    void barePageConstruction();
    void bareTargetCall();
    void testFromButtonToResult();

private:
    QWidget *Window() const;
    QString Status() const { return Window()->findChild<QStatusBar *>()->currentMessage(); }
    double StartUpOnce();

    // What the ready window holds: each page's class and, per table, the
    // class of every cell widget the binding put there.
    struct STableShape {
        QString name;
        int rows = 0;
        int columns = 0;
        QVector<QByteArray> cellClasses;  // row by row; empty for no widget
    };
    struct SPageShape {
        const QMetaObject *page = nullptr;
        QVector<STableShape> tables;
    };
    QVector<SPageShape> ReadyShapes() const;
    static double BareConstructionOnce(const QVector<SPageShape> &shapes);
    QVector<SPageShape> m_shapes;
    QVector<double> m_bareRuns;

    QPluginLoader m_loader{RADBENCH_PLUGIN_PATH};
    TavoPluginInterface *m_plugin = nullptr;
};

void BenchToolRoundTrips::initTestCase()
{
    // The trace would be most of what is measured; the offscreen platform's
    // notes go to the default category's warnings.
    QLoggingCategory::setFilterRules("radbench.*.debug=false\ndefault.debug=false\ndefault.warning=false");
    QVERIFY(TavoSim::LoadProfile("default"));
    TavoSim::LoadDatabase();
    QVERIFY(m_loader.load());
    m_plugin = qobject_cast<TavoPluginInterface *>(m_loader.instance());
    QVERIFY(m_plugin && m_plugin->QueryLaunchRequirement().isSupport);
}

void BenchToolRoundTrips::cleanupTestCase()
{
    m_plugin->HideTool();
    QVERIFY(m_loader.unload());
}

QWidget *BenchToolRoundTrips::Window() const
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "CTdscdmaRadbenchForm")
            return widget;
    }
    return nullptr;
}

namespace {

constexpr int kRuns = 21;

QWidget *MakeCell(const QByteArray &className, QTableWidget *table)
{
    if (className == "QDoubleSpinBox")
        return new QDoubleSpinBox;
    if (className == "QSpinBox")
        return new QSpinBox;
    if (className == "QComboBox")
        return new QComboBox;
    if (className == "QLabel")
        return new QLabel("0");
    // The unsigned cells are line edits made with the table as parent.
    return new QLineEdit(table);
}

}  // namespace

double BenchToolRoundTrips::StartUpOnce()
{
    // Dropping the former pages is not part of the start-up.
    m_plugin->HideTool();
    m_plugin->ResetPlugin();
    m_plugin->QueryLaunchRequirement();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QEventLoop loop;
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    QElapsedTimer clock;
    clock.start();
    m_plugin->ShowTool();
    QMetaObject::Connection ready =
        connect(Window()->findChild<QStatusBar *>(), &QStatusBar::messageChanged, &loop, [&](const QString &text) {
            if (text == "Init done.")
                loop.quit();
        });
    if (Status() != "Init done.")
        loop.exec();
    disconnect(ready);
    QCoreApplication::processEvents();  // the first paint of the ready window
    const double elapsed = clock.nsecsElapsed() / 1e6;
    return Window()->isEnabled() && Status() == "Init done." ? elapsed : -1;
}

void BenchToolRoundTrips::showToolToReadyWindow()
{
    // The bare construction runs between the start-ups, so that whatever else
    // the machine does weighs on both alike; its figure is told below.
    QVector<double> startUps;
    m_bareRuns.clear();
    for (int run = 0; run < kRuns; ++run) {
        startUps << StartUpOnce();
        QVERIFY2(startUps.last() >= 0, "the window did not get ready");
        if (run == 0)
            m_shapes = ReadyShapes();
        m_bareRuns << BareConstructionOnce(m_shapes);
    }
    QTest::setBenchmarkResult(Median(startUps), QTest::WalltimeMilliseconds);
}

QVector<BenchToolRoundTrips::SPageShape> BenchToolRoundTrips::ReadyShapes() const
{
    QVector<SPageShape> shapes;
    for (QDockWidget *page : Window()->findChildren<QDockWidget *>()) {
        SPageShape shape{page->metaObject(), {}};
        for (QTableWidget *table : page->findChildren<QTableWidget *>()) {
            STableShape tableShape{table->objectName(), table->rowCount(), table->columnCount(), {}};
            for (int r = 0; r < table->rowCount(); ++r) {
                for (int c = 0; c < table->columnCount(); ++c) {
                    QWidget *cell = table->cellWidget(r, c);
                    tableShape.cellClasses << (cell ? QByteArray(cell->metaObject()->className()) : QByteArray());
                }
            }
            shape.tables << tableShape;
        }
        shapes << shape;
    }
    return shapes;
}

double BenchToolRoundTrips::BareConstructionOnce(const QVector<SPageShape> &shapes)
{
    // Built the way the window builds its pages: each page added to the shown
    // window, given its cells, then put behind the tab of the one before;
    // painted once at the end.
    // The pages' own show events, which would fetch and bind their models,
    // never reach them.
    struct SShowEater : QObject {
        bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::Show; }
    } showEater;

    QElapsedTimer clock;
    clock.start();
    auto *window = new QMainWindow;
    window->setDockOptions(QMainWindow::AllowTabbedDocks | QMainWindow::ForceTabbedDocks);
    window->statusBar();
    window->show();
    window->setUpdatesEnabled(false);  // as the window does while it sets up
    QDockWidget *previous = nullptr;
    for (const SPageShape &shape : shapes) {
        auto *page = qobject_cast<QDockWidget *>(shape.page->newInstance(Q_ARG(QWidget *, window)));
        page->installEventFilter(&showEater);
        window->addDockWidget(Qt::TopDockWidgetArea, page);
        for (const STableShape &tableShape : shape.tables) {
            auto *table = page->findChild<QTableWidget *>(tableShape.name);
            table->setRowCount(tableShape.rows);
            table->setColumnCount(tableShape.columns);
            for (int i = 0; i < tableShape.cellClasses.size(); ++i) {
                if (!tableShape.cellClasses[i].isEmpty())
                    table->setCellWidget(i / tableShape.columns, i % tableShape.columns,
                                         MakeCell(tableShape.cellClasses[i], table));
            }
        }
        QCoreApplication::processEvents();
        if (previous)
            window->tabifyDockWidget(previous, page);
        previous = page;
    }
    window->setUpdatesEnabled(true);
    QCoreApplication::processEvents();  // the first paint of the whole
    const double elapsed = clock.nsecsElapsed() / 1e6;
    delete window;
    return elapsed;
}

void BenchToolRoundTrips::barePageConstruction()
{
    // The pages of the ready window made anew with the same cells in their
    // tables but no model: what binding adds is the rest of the start-up.
    QCOMPARE(m_shapes.size(), 9);
    QCOMPARE(m_bareRuns.size(), kRuns);
    QTest::setBenchmarkResult(Median(m_bareRuns), QTest::WalltimeMilliseconds);
}

void BenchToolRoundTrips::bareTargetCall()
{
    QBENCHMARK {
        AST_RFTEST_TXOn_r(0, 10000, 9550, 1);
        AST_RFTEST_TXOn_r(0, 10000, 9550, 0);
    }
}

void BenchToolRoundTrips::testFromButtonToResult()
{
    auto *page = Window()->findChild<QDockWidget *>("CTdscdmaContTxDockWidget");
    page->raise();
    QVERIFY(QTest::qWaitFor([page] { return page->isEnabled(); }, 2000));
    auto *start = page->findChild<QToolButton *>("m_start");
    auto *stop = page->findChild<QToolButton *>("m_stop");
    // Each result slot ends by telling the status bar; the loop ends with it.
    QEventLoop loop;
    connect(Window()->findChild<QStatusBar *>(), &QStatusBar::messageChanged, &loop, &QEventLoop::quit);
    QBENCHMARK {
        start->click();
        loop.exec();
        stop->click();
        loop.exec();
    }
    QCOMPARE(Status(), QString("Cont Tx stop."));
}

QTEST_MAIN(BenchToolRoundTrips)
#include "bench_ToolRoundTrips.moc"
