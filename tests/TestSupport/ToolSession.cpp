#include "ToolSession.h"

#include <QApplication>
#include <QFile>
#include <QStatusBar>
#include <QTest>
#include <QAbstractButton>

#include "TavoPluginInterface.h"
#include "TavoSimControl.h"
#include "TestLog.h"

bool ToolSession::Load(QString *error)
{
    TestLog::SetChannel(QtCriticalMsg, false);
    TestLog::MuteOffscreenPlatformNotes();
    if (!m_loader.load()) {
        *error = m_loader.errorString();
        return false;
    }
    m_plugin = qobject_cast<TavoPluginInterface *>(m_loader.instance());
    if (!m_plugin) {
        *error = "the plug-in has no tool interface";
        return false;
    }
    m_busy = std::make_unique<QSignalSpy>(m_loader.instance(), SIGNAL(Signal_PluginIsBusy(QString, bool)));
    return ChooseBackups(false);
}

bool ToolSession::ChooseBackups(bool backup)
{
    const QString path = m_settings.filePath("settings.txt");
    qputenv("RADBENCH_SETTINGS", path.toLocal8Bit());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) &&
           file.write(QString("[Write Safeguard]\nbackup_before_write = %1\nbackup_folder = %2\njournal_file = %3\n")
                          .arg(backup ? 1 : 0)
                          .arg(m_settings.filePath("backups"), m_settings.filePath("journal.sqlite"))
                          .toUtf8()) > 0;
}

bool ToolSession::Unload()
{
    m_busy.reset();
    return m_loader.unload();
}

bool ToolSession::Open(const QString &profile)
{
    if (!TavoSim::LoadProfile(profile) || !m_plugin->QueryLaunchRequirement().isSupport)
        return false;
    TavoSim::LoadDatabase();
    m_plugin->ShowTool();
    m_window = FindWindow();
    if (!m_window || !QTest::qWaitFor([this] { return m_window->isEnabled() && Status() == "Init done."; }))
        return false;
    TavoSim::ClearCallLog();
    m_busy->clear();
    return true;
}

QWidget *ToolSession::FindWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "CTdscdmaRadbenchForm")
            return widget;
    }
    return nullptr;
}

QDockWidget *ToolSession::ShowPage(const QString &page)
{
    auto *dock = m_window->findChild<QDockWidget *>(page);
    if (!dock)
        return nullptr;
    dock->raise();
    return QTest::qWaitFor([dock] { return dock->isVisible() && dock->isEnabled(); }, 2000) ? dock : nullptr;
}

QString ToolSession::Status() const { return m_window->findChild<QStatusBar *>()->currentMessage(); }

bool ToolSession::Press(QWidget *page, const QString &button, const QString &status)
{
    m_window->findChild<QStatusBar *>()->clearMessage();
    QTest::mouseClick(Find<QAbstractButton>(page, button), Qt::LeftButton);
    return QTest::qWaitFor([this, &status] { return Status() == status; }, 10000);
}

void ToolSuite::initTestCase()
{
    QString error;
    QVERIFY2(m_tool.Load(&error), qPrintable(error));
}

void ToolSuite::cleanupTestCase() { QVERIFY(m_tool.Unload()); }

void ToolSuite::init() { m_tool.Plugin()->ResetPlugin(); }

void ToolSuite::cleanup()
{
    m_tool.Plugin()->HideTool();
    TavoSim::Reset();
}
