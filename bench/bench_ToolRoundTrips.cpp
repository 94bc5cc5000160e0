// What the user waits for: from ShowTool to the enabled window with all its
// pages, beside the bare construction of the same pages' widgets (no model,
// no binding), and one test from the button to the result slot, compared
// with the bare target call it makes. Run: build/bin/bench_ToolRoundTrips
#include <QDockWidget>
#include <QPluginLoader>
#include <QStatusBar>
#include <QToolButton>
#include <QtTest>

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

void BenchToolRoundTrips::showToolToReadyWindow()
{
    QBENCHMARK {
        m_plugin->HideTool();
        m_plugin->ResetPlugin();
        m_plugin->QueryLaunchRequirement();
        m_plugin->ShowTool();
        QVERIFY(QTest::qWaitFor([this] { return Window()->isEnabled() && Status() == "Init done."; }, 10000));
    }
}

void BenchToolRoundTrips::barePageConstruction()
{
    // The classes of the pages the window built, made and dropped again.
    QVector<const QMetaObject *> pages;
    for (QDockWidget *page : Window()->findChildren<QDockWidget *>())
        pages << page->metaObject();
    QCOMPARE(pages.size(), 9);
    QBENCHMARK {
        for (const QMetaObject *page : pages)
            delete page->newInstance(Q_ARG(QWidget *, nullptr));
    }
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
