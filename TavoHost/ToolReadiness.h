#pragma once
/*
 * Tells when a tool's window is ready to be looked at: the plug-in has said it
 * is active, and its window (the top-level widget titled with the plug-in's
 * name) is visible and enabled and has stayed enabled for a while. Tools
 * disable their window while they prepare the target and build their pages,
 * so a window that was just shown may still change a lot.
 */
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

class QWidget;

class CToolReadiness : public QObject {
    Q_OBJECT
public:
    static constexpr int kDefaultSettleMs = 500;

    explicit CToolReadiness(const QString &windowTitle, QObject *parent = nullptr);

    /* A window never taken for the tool's, whatever its title (the host's). */
    void SetIgnoredWindow(QWidget *window) { m_ignored = window; }
    /* How long the window must stay enabled. */
    void SetSettleTime(int ms) { m_settleMs = ms; }

    /* Starts watching; Signal_Ready or Signal_TimedOut follows, once. */
    void Start(int timeoutMs);
    bool IsRunning() const { return m_running; }

    /* What is still missing, in words, all of it; empty once ready. */
    QString Missing() const;

public slots:
    void Slot_SetActivated(bool isActivated);

signals:
    void Signal_Ready(QWidget *toolWindow);
    void Signal_TimedOut(const QString &missing);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *FindWindow() const;
    void Evaluate();
    void Finish();

    QString m_title;
    QPointer<QWidget> m_ignored;
    QPointer<QWidget> m_window;
    bool m_activated = false;
    bool m_running = false;
    int m_settleMs = kDefaultSettleMs;
    QElapsedTimer m_enabledFor; /* valid while every condition holds */
    QTimer m_poll;
    QTimer m_deadline;
};
