#pragma once

#include <QDockWidget>
#include <QObject>
#include <QPluginLoader>
#include <QSignalSpy>
#include <QString>
#include <QTemporaryDir>

#include <memory>

class TavoPluginInterface;

// The plug-in as the host has it: loaded from its file, driven through its
// interface only, its window found among the application's windows. GUI
// tests open the tool on a simulated target and drive its real pages.
class ToolSession {
public:
    explicit ToolSession(const QString &pluginPath) : m_loader(pluginPath) {}

    // The tool's settings file, in a folder of the session's own: writes are
    // journaled there, backed up (into "backups" there) only when asked for.
    // Taken when the tool is next shown.
    bool ChooseBackups(bool backup);
    QString SettingsFolder() const { return m_settings.path(); }

    // In initTestCase and cleanupTestCase: the tool's widgets must go before
    // the application does. Loading also keeps the tool's failure lines and
    // the offscreen platform's notes out of the test's output.
    bool Load(QString *error);
    bool Unload();

    TavoPluginInterface *Plugin() const { return m_plugin; }
    QObject *Instance() { return m_loader.instance(); }
    // What the plug-in told the host of being busy, since the last Open.
    QSignalSpy &Busy() { return *m_busy; }

    // The tool shown on `profile` with its database, ready, the call log empty.
    bool Open(const QString &profile = "default");
    QWidget *Window() const { return m_window; }
    // The tool's main window among the application's windows, if it exists.
    static QWidget *FindWindow();
    // Brings the page of class `page` to the front; null when it does not
    // become visible and enabled.
    QDockWidget *ShowPage(const QString &page);
    QString Status() const;
    // Clicks the page's button of that name and waits until the status
    // line says `status`.
    bool Press(QWidget *page, const QString &button, const QString &status);

    // The named widget of a page, with a warning when there is none.
    template <typename W>
    static W *Find(QWidget *page, const QString &name)
    {
        W *widget = page->findChild<W *>(name);
        if (!widget)
            qWarning("no widget %s", qPrintable(name));
        return widget;
    }

private:
    QPluginLoader m_loader;
    TavoPluginInterface *m_plugin = nullptr;
    QWidget *m_window = nullptr;
    std::unique_ptr<QSignalSpy> m_busy;
    QTemporaryDir m_settings;
};

// A suite of GUI tests on one session: the plug-in loaded for the suite,
// reset before each test, hidden after it with the target at power-on.
class ToolSuite : public QObject {
    Q_OBJECT
protected:
    explicit ToolSuite(const QString &pluginPath) : m_tool(pluginPath) {}

    // The tool opened on `profile` with the page of class `page` in front.
    QDockWidget *OpenPage(const QString &page, const QString &profile = "default")
    {
        return m_tool.Open(profile) ? m_tool.ShowPage(page) : nullptr;
    }
    template <typename W>
    static W *Find(QWidget *page, const QString &name)
    {
        return ToolSession::Find<W>(page, name);
    }

    ToolSession m_tool;

protected slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();
};
