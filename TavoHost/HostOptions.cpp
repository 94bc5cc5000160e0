#include "HostOptions.h"

CHostOptions::CHostOptions()
    : m_pluginOption(QStringLiteral("plugin"),
                     QStringLiteral("Load the tool plug-in at <path> instead of searching the "
                                    "program's folder."),
                     QStringLiteral("path")),
      m_profileOption(QStringLiteral("profile"),
                      QStringLiteral("Connect to the simulated target described by <profile>: "
                                     "a built-in profile name or a JSON file (default: default)."),
                      QStringLiteral("profile"), QStringLiteral("default")),
      m_screenshotOption(QStringLiteral("screenshot"),
                         QStringLiteral("Launch the tool, save a PNG of its window to <file> once "
                                        "it is ready, and quit."),
                         QStringLiteral("file")),
      m_timeoutOption(QStringLiteral("timeout"),
                      QStringLiteral("With --screenshot: give up when the tool is not ready after "
                                     "<seconds> (default: 60)."),
                      QStringLiteral("seconds"), QStringLiteral("60")),
      m_nvramOption(QStringLiteral("nvram"),
                    QStringLiteral("Keep what is written to the target's NVRAM in <file>, so that it is "
                                   "still there on the next run."),
                    QStringLiteral("file")),
      m_pageOption(QStringLiteral("page"),
                   QStringLiteral("With --screenshot: bring the tool's page titled <title> to the front "
                                  "before the picture is taken."),
                   QStringLiteral("title")),
      m_pressOption(QStringLiteral("press"),
                    QStringLiteral("With --page: press the page's button of object name <button> and take the "
                                   "picture once the tool's status line tells the outcome, for example "
                                   "--page \"TPC Profile\" --press m_btnUpload. Given more than once, the "
                                   "buttons are pressed in that order, each after the last one's outcome."),
                    QStringLiteral("button")),
      m_traceOption(QStringLiteral("trace"),
                    QStringLiteral("Print the tool's debug trace too (without it only warnings and failures are "
                                   "printed, unless QT_LOGGING_RULES says otherwise)."))
{
    m_parser.setApplicationDescription(
        QStringLiteral("Loads a Tavo tool plug-in and runs it against the simulated target."));
    m_parser.addHelpOption();
    m_parser.addOption(m_pluginOption);
    m_parser.addOption(m_profileOption);
    m_parser.addOption(m_screenshotOption);
    m_parser.addOption(m_timeoutOption);
    m_parser.addOption(m_nvramOption);
    m_parser.addOption(m_pageOption);
    m_parser.addOption(m_pressOption);
    m_parser.addOption(m_traceOption);
}

CHostOptions::Outcome CHostOptions::Parse(const QStringList &arguments)
{
    m_error.clear();
    if (!m_parser.parse(arguments)) {
        m_error = m_parser.errorText();
        return Outcome::Error;
    }
    if (m_parser.isSet(QStringLiteral("help")) || m_parser.isSet(QStringLiteral("help-all")))
        return Outcome::Help;
    if (!m_parser.positionalArguments().isEmpty()) {
        m_error = QStringLiteral("Unexpected argument: %1").arg(m_parser.positionalArguments().first());
        return Outcome::Error;
    }

    pluginPath = m_parser.value(m_pluginOption);
    profile = m_parser.value(m_profileOption);
    screenshotFile = m_parser.value(m_screenshotOption);
    nvramFile = m_parser.value(m_nvramOption);
    page = m_parser.value(m_pageOption);
    press = m_parser.values(m_pressOption);
    trace = m_parser.isSet(m_traceOption);

    bool ok = false;
    const QString timeoutText = m_parser.value(m_timeoutOption);
    timeoutSec = timeoutText.toInt(&ok);
    if (!ok || timeoutSec <= 0) {
        m_error = QStringLiteral("--timeout wants a positive number of seconds, not \"%1\"").arg(timeoutText);
        return Outcome::Error;
    }
    if (profile.isEmpty()) {
        m_error = QStringLiteral("--profile wants a profile name or file");
        return Outcome::Error;
    }
    if (m_parser.isSet(m_pluginOption) && pluginPath.isEmpty()) {
        m_error = QStringLiteral("--plugin wants a path");
        return Outcome::Error;
    }
    if (m_parser.isSet(m_nvramOption) && nvramFile.isEmpty()) {
        m_error = QStringLiteral("--nvram wants a file name");
        return Outcome::Error;
    }
    if (m_parser.isSet(m_pressOption) && (press.contains(QString()) || page.isEmpty())) {
        m_error = QStringLiteral("--press wants a button's object name and --page");
        return Outcome::Error;
    }
    if (m_parser.isSet(m_screenshotOption) && screenshotFile.isEmpty()) {
        m_error = QStringLiteral("--screenshot wants a file name");
        return Outcome::Error;
    }
    return Outcome::Run;
}
