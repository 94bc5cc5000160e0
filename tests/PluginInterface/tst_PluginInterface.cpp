#include <QDockWidget>
#include <QPluginLoader>
#include <QtTest>

#include "SimScope.h"
#include "TavoPluginInterface.h"
#include "TestLog.h"

namespace {

QWidget *ToolWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "CTdscdmaRadbenchForm")
            return widget;
    }
    return nullptr;
}

} // namespace

// The plug-in as the host sees it: loaded from its file, through its
// interface only.
class TestPluginInterface : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        TestLog::SetChannel(QtCriticalMsg, false);
        TestLog::MuteOffscreenPlatformNotes();
        QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
        m_plugin = qobject_cast<TavoPluginInterface *>(m_loader.instance());
        QVERIFY(m_plugin);
    }

    void cleanupTestCase()
    {
        // The tool's widgets must go before the application does.
        QVERIFY(m_loader.unload());
        TavoSim::Reset();
    }

    void init() { m_plugin->ResetPlugin(); }
    void cleanup() { m_plugin->HideTool(); }

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
        QTest::newRow("support unknown") << "query-failure" << false
                                         << "We cannot get its support status: Failed to get multi-RAT world mode ID info."
                                         << false;
    }
    void launchRequirement()
    {
        QFETCH(QString, profile);
        QFETCH(bool, isSupport);
        QFETCH(QString, unsupportReason);
        QFETCH(bool, isNeedDb);
        SimScope sim(profile);
        QVERIFY(sim.IsLoaded());
        const SPluginToolLaunchRequirement answer = m_plugin->QueryLaunchRequirement();
        QCOMPARE(answer.isSupport, isSupport);
        QCOMPARE(answer.unsupportReason, unsupportReason);
        QCOMPARE(answer.isNeedDb, isNeedDb);
        QCOMPARE(answer.isDbOptional, true);
        QCOMPARE(answer.extraInfo, QString());
    }

    // The busy signals of the pages reach the host as well: tst_TestPages.
    void showAndHideReachTheHost()
    {
        SimScope sim("default");
        QSignalSpy activated(m_loader.instance(), SIGNAL(Signal_PluginIsActivated(QString, bool)));

        m_plugin->ShowTool();
        QWidget *window = ToolWindow();
        QVERIFY(window && window->isVisible());
        QTRY_VERIFY(window->isEnabled() && window->findChildren<QDockWidget *>().size() == 9);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.at(0), (QVariantList{"TDSCDMA Radbench", true}));

        m_plugin->HideTool();
        QVERIFY(!window->isVisible());
        QCOMPARE(activated.count(), 2);
        QCOMPARE(activated.at(1), (QVariantList{"TDSCDMA Radbench", false}));
    }

    void resetWhileHiddenRebuildsOnNextShow()
    {
        SimScope sim("default");
        m_plugin->ShowTool();
        QWidget *window = ToolWindow();
        QTRY_VERIFY(window->isEnabled() && window->findChildren<QDockWidget *>().size() == 9);
        m_plugin->HideTool();

        m_plugin->ResetPlugin();
        QVERIFY(window->findChildren<QDockWidget *>().isEmpty());
        QVERIFY(TavoSim::LoadProfile("modern-l1"));
        QVERIFY(m_plugin->QueryLaunchRequirement().isSupport);

        m_plugin->ShowTool();
        QTRY_VERIFY(window->isEnabled() && window->findChildren<QDockWidget *>().size() == 8);
        m_plugin->HideTool();
    }

private:
    QPluginLoader m_loader{RADBENCH_PLUGIN_PATH};
    TavoPluginInterface *m_plugin = nullptr;
};

QTEST_MAIN(TestPluginInterface)
#include "tst_PluginInterface.moc"
