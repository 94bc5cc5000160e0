#pragma once
/*
 * The host's command line.
 */
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

class CHostOptions {
public:
    enum class Outcome { Run, Help, Error };

    CHostOptions();

    /* arguments[0] is the program name, as in QCoreApplication::arguments(). */
    Outcome Parse(const QStringList &arguments);
    QString ErrorText() const { return m_error; }
    QString HelpText() const { return m_parser.helpText(); }

    QString pluginPath;     /* empty: search the executable's folder */
    QString profile = QStringLiteral("default");
    QString screenshotFile; /* empty: interactive */
    QString page;           /* with --screenshot: the page to bring to the front */
    QStringList press;      /* with --page: the page's buttons to press, in order, before the picture */
    QString nvramFile;      /* empty: the target's NVRAM lives as long as the host */
    int timeoutSec = 60;
    bool trace = false;     /* let the tool's debug trace through */

private:
    QCommandLineParser m_parser;
    QCommandLineOption m_pluginOption;
    QCommandLineOption m_profileOption;
    QCommandLineOption m_screenshotOption;
    QCommandLineOption m_timeoutOption;
    QCommandLineOption m_nvramOption;
    QCommandLineOption m_pageOption;
    QCommandLineOption m_pressOption;
    QCommandLineOption m_traceOption;
    QString m_error;
};
