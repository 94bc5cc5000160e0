#include "ToolReadiness.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

CToolReadiness::CToolReadiness(const QString &windowTitle, QObject *parent)
    : QObject(parent), m_title(windowTitle)
{
    m_poll.setInterval(50);
    connect(&m_poll, &QTimer::timeout, this, &CToolReadiness::Evaluate);
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        const QString missing = Missing();
        Finish();
        emit Signal_TimedOut(missing);
    });
}

void CToolReadiness::Start(int timeoutMs)
{
    m_running = true;
    m_enabledFor.invalidate();
    m_deadline.start(timeoutMs);
    m_poll.start();
    // Evaluate from the event loop, so that a caller connecting after Start
    // still hears the answer.
    QTimer::singleShot(0, this, &CToolReadiness::Evaluate);
}

void CToolReadiness::Finish()
{
    m_running = false;
    m_poll.stop();
    m_deadline.stop();
    if (m_window)
        m_window->removeEventFilter(this);
}

void CToolReadiness::Slot_SetActivated(bool isActivated)
{
    m_activated = isActivated;
    Evaluate();
}

QWidget *CToolReadiness::FindWindow() const
{
    QWidget *hidden = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window == m_ignored || window->windowTitle() != m_title)
            continue;
        if (window->isVisible())
            return window;
        if (!hidden)
            hidden = window;
    }
    return hidden;
}

QString CToolReadiness::Missing() const
{
    QWidget *window = m_window ? m_window.data() : FindWindow();
    QStringList missing;
    if (!window)
        missing << QStringLiteral("no window titled \"%1\" appeared").arg(m_title);
    else if (!window->isVisible())
        missing << QStringLiteral("the window \"%1\" is not visible").arg(m_title);
    if (!m_activated)
        missing << QStringLiteral("the plug-in has not emitted Signal_PluginIsActivated(true)");
    if (window && !window->isEnabled())
        missing << QStringLiteral("the window \"%1\" is still disabled").arg(m_title);
    if (missing.isEmpty() && (!m_enabledFor.isValid() || m_enabledFor.elapsed() < m_settleMs))
        missing << QStringLiteral("the window \"%1\" has not stayed enabled for %2 ms").arg(m_title).arg(m_settleMs);
    return missing.join(QLatin1String("; "));
}

bool CToolReadiness::eventFilter(QObject *watched, QEvent *event)
{
    // Catches a window that is disabled and enabled again between two polls.
    if (watched == m_window) {
        switch (event->type()) {
        case QEvent::EnabledChange:
        case QEvent::Show:
        case QEvent::Hide:
            Evaluate();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

void CToolReadiness::Evaluate()
{
    if (!m_running)
        return;

    QWidget *window = FindWindow();
    if (window != m_window) {
        if (m_window)
            m_window->removeEventFilter(this);
        m_window = window;
        m_enabledFor.invalidate();
        if (m_window)
            m_window->installEventFilter(this);
    }

    const bool candidate = m_window && m_activated && m_window->isVisible() && m_window->isEnabled();
    if (!candidate) {
        m_enabledFor.invalidate();
        return;
    }
    if (!m_enabledFor.isValid()) {
        m_enabledFor.start();
        return;
    }
    if (m_enabledFor.elapsed() >= m_settleMs) {
        QWidget *ready = m_window;
        Finish();
        emit Signal_Ready(ready);
    }
}
