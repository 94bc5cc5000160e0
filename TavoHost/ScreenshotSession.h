#pragma once
/*
 * --screenshot: launches the tool, waits until its window is ready, saves a
 * PNG of it and reports how it went through Signal_Finished.
 */
#include <QObject>
#include <QPointer>
#include <QStringList>

class QWidget;
class CPluginHost;
class CToolReadiness;

class CScreenshotSession : public QObject {
    Q_OBJECT
public:
    /* Exit codes of the host process in screenshot mode. */
    enum ExitCode { Saved = 0, Failed = 1, NotReady = 2, Unsupported = 3 };

    CScreenshotSession(CPluginHost *host, const QString &file, int timeoutMs, QObject *parent = nullptr);

    void SetIgnoredWindow(QWidget *window) { m_ignored = window; }
    /* The page (a dock widget by its title) to bring to the front first. */
    void SetPage(const QString &title) { m_page = title; }
    /* Buttons of that page (by object name) to press first, in order, each
     * once the status line has told the last one's outcome; the picture is
     * taken once it has told the last. */
    void SetPress(const QStringList &buttons) { m_press = buttons; }
    /* Launches the tool. Signal_Finished follows, once, from the event loop. */
    void Start();

signals:
    /* `message` is the line to print: to stdout when saved, else to stderr. */
    void Signal_Finished(int exitCode, const QString &message);

private:
    void Finish(int exitCode, const QString &message);
    void Save(QWidget *toolWindow);
    /* Presses m_press on m_shownPage, then Save once the status line tells. */
    void Press(QWidget *toolWindow);

    CPluginHost *m_host;
    QString m_file;
    int m_timeoutMs;
    QPointer<QWidget> m_ignored;
    CToolReadiness *m_readiness = nullptr;
    QString m_page;
    QStringList m_press;
    QPointer<QWidget> m_shownPage;
};
