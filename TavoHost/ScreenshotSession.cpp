#include "ScreenshotSession.h"

#include <QAbstractButton>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QPixmap>
#include <QStatusBar>
#include <QTimer>
#include <QWidget>

#include "PluginHost.h"
#include "ToolReadiness.h"

CScreenshotSession::CScreenshotSession(CPluginHost *host, const QString &file, int timeoutMs, QObject *parent)
    : QObject(parent), m_host(host), m_file(QFileInfo(file).absoluteFilePath()), m_timeoutMs(timeoutMs)
{
}

void CScreenshotSession::Finish(int exitCode, const QString &message)
{
    // Queued, so that a caller may connect after Start() and so that the
    // plug-in's call into the host has returned before the host winds down.
    QTimer::singleShot(0, this, [this, exitCode, message] { emit Signal_Finished(exitCode, message); });
}

void CScreenshotSession::Start()
{
    // Watch before launching: a tool may report itself active from ShowTool.
    m_readiness = new CToolReadiness(m_host->ToolWindowTitle(), this);
    m_readiness->SetIgnoredWindow(m_ignored);
    m_readiness->Slot_SetActivated(m_host->IsActivated());
    connect(m_host, &CPluginHost::Signal_ActivationChanged, m_readiness, &CToolReadiness::Slot_SetActivated);
    connect(m_readiness, &CToolReadiness::Signal_Ready, this, &CScreenshotSession::Save);
    connect(m_readiness, &CToolReadiness::Signal_TimedOut, this, [this](const QString &missing) {
        Finish(NotReady, QStringLiteral("tool not ready after %1 s: %2").arg(m_timeoutMs / 1000.0).arg(missing));
    });

    switch (m_host->Launch()) {
    case CPluginHost::LaunchResult::Shown:
        m_readiness->Start(m_timeoutMs);
        break;
    case CPluginHost::LaunchResult::Unsupported: {
        const QString reason = m_host->LastRequirement().unsupportReason;
        Finish(Unsupported, QStringLiteral("tool not supported on this target: %1")
                                .arg(reason.isEmpty() ? QStringLiteral("(no reason given)") : reason));
        break;
    }
    case CPluginHost::LaunchResult::NoPlugin:
        Finish(Failed, QStringLiteral("no plug-in loaded"));
        break;
    case CPluginHost::LaunchResult::NoTarget:
        Finish(Failed, QStringLiteral("no target connected"));
        break;
    }
}

void CScreenshotSession::Save(QWidget *toolWindow)
{
    if (!m_page.isEmpty()) {
        QDockWidget *page = nullptr;
        for (QDockWidget *dock : toolWindow->findChildren<QDockWidget *>()) {
            if (dock->windowTitle() == m_page)
                page = dock;
        }
        if (!page) {
            Finish(Failed, QStringLiteral("the tool has no page \"%1\"").arg(m_page));
            return;
        }
        page->raise();
        m_page.clear();
        m_shownPage = page;
        // Let the page come to the front and paint before the picture.
        QTimer::singleShot(300, this, [this, toolWindow] { Save(toolWindow); });
        return;
    }
    if (!m_press.isEmpty()) {
        Press(toolWindow);
        return;
    }
    const QPixmap picture = toolWindow->grab();
    if (picture.isNull()) {
        Finish(Failed, QStringLiteral("could not grab the tool window"));
        return;
    }
    const QString folder = QFileInfo(m_file).absolutePath();
    if (!QDir().mkpath(folder)) {
        Finish(Failed, QStringLiteral("could not write %1: cannot create the folder %2").arg(m_file, folder));
        return;
    }
    if (!picture.save(m_file, "PNG")) {
        Finish(Failed, QStringLiteral("could not write %1").arg(m_file));
        return;
    }
    Finish(Saved, QStringLiteral("screenshot saved: %1").arg(m_file));
}

void CScreenshotSession::Press(QWidget *toolWindow)
{
    const QString name = m_press.takeFirst();
    auto *button = m_shownPage ? m_shownPage->findChild<QAbstractButton *>(name) : nullptr;
    auto *status = toolWindow->findChild<QStatusBar *>();
    if (!button || !status) {
        Finish(Failed, button ? QStringLiteral("the tool has no status line")
                              : QStringLiteral("the page has no button \"%1\"").arg(name));
        return;
    }
    // The outcome's line, then a moment to paint it; or the time-out.
    auto *told = new QObject(this);
    connect(status, &QStatusBar::messageChanged, told, [this, told, toolWindow](const QString &message) {
        if (message.isEmpty())
            return;
        told->deleteLater();
        QTimer::singleShot(300, this, [this, toolWindow] { Save(toolWindow); });
    });
    QTimer::singleShot(m_timeoutMs, told, [this, name] {
        Finish(NotReady, QStringLiteral("pressing %1 told nothing after %2 s").arg(name).arg(m_timeoutMs / 1000.0));
    });
    status->clearMessage();
    button->click();
}
