#include <QDockWidget>
#include <QJsonArray>
#include <QLibrary>
#include <QPluginLoader>
#include <QTabBar>
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
    void initTestCase();
    void cleanupTestCase();
    void init() { m_plugin->ResetPlugin(); }
    void cleanup() { m_plugin->HideTool(); }

    void metadataDescribesTheTool();
    void oneInstancePerProcess();
    void castsToItsInterfaces();
    void launchRequirement_data();
    void launchRequirement();
    void pagesOfEachSupportedTarget_data();
    void pagesOfEachSupportedTarget();
    void showHideAndBusyReachTheHost();
    void resetWhileHiddenRebuildsOnNextShow();

private:
    QPluginLoader m_loader{RADBENCH_PLUGIN_PATH};
    TavoPluginInterface *m_plugin = nullptr;
};

void TestPluginInterface::initTestCase()
{
    TestLog::SetChannel(QtCriticalMsg, false);
    TestLog::MuteOffscreenPlatformNotes();
    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    m_plugin = qobject_cast<TavoPluginInterface *>(m_loader.instance());
    QVERIFY(m_plugin);
}

void TestPluginInterface::cleanupTestCase()
{
    // The tool's widgets must go before the application does.
    QVERIFY(m_loader.unload());
    TavoSim::Reset();
}

void TestPluginInterface::metadataDescribesTheTool()
{
    const QJsonObject metaData = m_loader.metaData();
    QCOMPARE(metaData.value("IID").toString(), QString("com.halvorex.Tavo.TavoToolPlugin"));
    QCOMPARE(metaData.value("className").toString(), QString("TdscdmaRadbenchPluginInterface"));
    QCOMPARE(metaData.value("debug").toBool(), false);
    QCOMPARE(metaData.value("version").toInt() >> 8, QT_VERSION >> 8);
    const QJsonObject expected{
        {"type", "RF"}, {"name", "TDSCDMA Radbench"}, {"version", "0.1"}, {"dependencies", QJsonArray()}};
    QCOMPARE(metaData.value("MetaData").toObject(), expected);
}

void TestPluginInterface::oneInstancePerProcess()
{
    QCOMPARE(m_loader.instance(), m_loader.instance());

    QLibrary library(RADBENCH_PLUGIN_PATH);
    using InstanceFunction = QObject *(*)();
    auto instance = reinterpret_cast<InstanceFunction>(library.resolve("qt_plugin_instance"));
    QVERIFY(instance);
    QCOMPARE(instance(), instance());
    QCOMPARE(instance(), m_loader.instance());
    QVERIFY(library.resolve("qt_plugin_query_metadata"));
}

void TestPluginInterface::castsToItsInterfaces()
{
    QObject *object = m_loader.instance();
    QVERIFY(object->qt_metacast("TdscdmaRadbenchPluginInterface"));
    QVERIFY(object->qt_metacast("TavoPluginInterface"));
    QCOMPARE(object->qt_metacast("com.halvorex.Tavo.TavoToolPlugin"),
             static_cast<void *>(qobject_cast<TavoPluginInterface *>(object)));
    QCOMPARE(m_plugin->GetPluginName(), QString("TDSCDMA Radbench"));
    QCOMPARE(m_plugin->GetPluginOption(), QString());
    QVERIFY(m_plugin->HandleHostCommand(1, 2));
}

void TestPluginInterface::launchRequirement_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<bool>("isSupport");
    QTest::addColumn<QString>("unsupportReason");
    QTest::addColumn<bool>("isNeedDb");

    QTest::newRow("fully capable") << "default" << true << "" << true;
    QTest::newRow("everything over layer 1") << "modern-l1" << true << "" << false;
    QTest::newRow("C2K modem") << "c2k-modem" << false << "It is C2K modem now." << false;
    QTest::newRow("no TD-SCDMA in the world mode")
        << "no-tdscdma" << false << "Not support this RAT from SW multi-RAT world mode ID info." << false;
    QTest::newRow("failed query") << "query-failure" << false
                                  << "We cannot get its support status: Failed to get multi-RAT world mode ID info."
                                  << false;
    QTest::newRow("RF chip id 0") << "rf-chip-id-zero" << false
                                  << "Support this RAT but its RF ID is unknown status." << false;
    QTest::newRow("world mode of GSM, no structure version") << "legacy-v1" << true << "" << true;
    QTest::newRow("structure version 1") << "v1-pathloss-v2" << true << "" << true;
    QTest::newRow("nothing tells of TD-SCDMA")
        << "bare" << false << "Not Support due to without any this RAT info from SW." << false;
    QTest::newRow("capability query fails")
        << "capability-failure" << false << "Support this RAT but it failed to get its capability info." << false;
}

void TestPluginInterface::pagesOfEachSupportedTarget_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QStringList>("tabs");

    const QStringList tests{"RSSI", "PathLoss", "Continuous RX", "Continuous TX", "DPCH TX", "Baseband Register"};
    QTest::newRow("default") << "default"
                             << QStringList{"AFC Control", "Temperature ADC"} + tests + QStringList{"TPC Profile"};
    QTest::newRow("everything over layer 1: no TADC page")
        << "modern-l1" << QStringList{"AFC Control"} + tests + QStringList{"TPC Profile"};
    QTest::newRow("legacy-v1") << "legacy-v1"
                               << QStringList{"AFC Control", "Temperature ADC"} + tests + QStringList{"TPC Profile"};
}

void TestPluginInterface::pagesOfEachSupportedTarget()
{
    QFETCH(QString, profile);
    QFETCH(QStringList, tabs);

    SimScope sim(profile);
    QVERIFY(m_plugin->QueryLaunchRequirement().isSupport);
    m_plugin->ShowTool();
    QWidget *window = ToolWindow();
    QTRY_VERIFY(window->isEnabled() && window->findChildren<QDockWidget *>().size() == tabs.size());
    // The window keeps the tab bars of earlier pages; the one in use has tabs.
    QStringList shown;
    for (QTabBar *tabBar : window->findChildren<QTabBar *>()) {
        for (int i = 0; i < tabBar->count(); ++i)
            shown << tabBar->tabText(i);
    }
    QCOMPARE(shown, tabs);
}

void TestPluginInterface::launchRequirement()
{
    QFETCH(QString, profile);
    QFETCH(bool, isSupport);
    QFETCH(QString, unsupportReason);
    QFETCH(bool, isNeedDb);

    SimScope sim(profile);
    QVERIFY(sim.IsLoaded());
    TestLog::SetChannel(QtDebugMsg, true);
    QTest::ignoreMessage(QtDebugMsg, "TdscdmaRadbenchPluginInterface::QueryLaunchRequirement ()");
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression("QueryLaunchRequirement \\(\\) isSupport +" +
                                                        QString(isSupport ? "true" : "false") + " +isNeedDb +" +
                                                        QString(isNeedDb ? "true" : "false")));
    const SPluginToolLaunchRequirement answer = m_plugin->QueryLaunchRequirement();
    TestLog::SetChannel(QtDebugMsg, false);

    QCOMPARE(answer.isSupport, isSupport);
    QCOMPARE(answer.unsupportReason, unsupportReason);
    QCOMPARE(answer.isNeedDb, isNeedDb);
    QCOMPARE(answer.isDbOptional, true);
    QCOMPARE(answer.extraInfo, QString());
}

void TestPluginInterface::showHideAndBusyReachTheHost()
{
    SimScope sim("default");
    QObject *object = m_loader.instance();
    QSignalSpy activated(object, SIGNAL(Signal_PluginIsActivated(QString, bool)));
    QSignalSpy busy(object, SIGNAL(Signal_PluginIsBusy(QString, bool)));

    m_plugin->ShowTool();
    QWidget *window = ToolWindow();
    QVERIFY(window && window->isVisible());
    QTRY_VERIFY(window->isEnabled() && window->findChildren<QDockWidget *>().size() == 9);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.at(0), (QVariantList{"TDSCDMA Radbench", true}));

    QDockWidget *page = window->findChildren<QDockWidget *>().first();
    QVERIFY(QMetaObject::invokeMethod(page, "Signal_PluginIsBusy", Q_ARG(bool, true)));
    QVERIFY(QMetaObject::invokeMethod(page, "Signal_PluginIsBusy", Q_ARG(bool, false)));
    QCOMPARE(busy.count(), 2);
    QCOMPARE(busy.at(0), (QVariantList{"TDSCDMA Radbench", true}));
    QCOMPARE(busy.at(1), (QVariantList{"TDSCDMA Radbench", false}));

    m_plugin->DisablePages();
    m_plugin->EnablePages();
    m_plugin->HideTool();
    QVERIFY(!window->isVisible());
    QCOMPARE(activated.count(), 2);
    QCOMPARE(activated.at(1), (QVariantList{"TDSCDMA Radbench", false}));
}

void TestPluginInterface::resetWhileHiddenRebuildsOnNextShow()
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

QTEST_MAIN(TestPluginInterface)
#include "tst_PluginInterface.moc"
