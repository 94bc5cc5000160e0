/*
 * tavo-host: a stand-in for the workbench that hosts Tavo tool plug-ins.
 * See README.md for the options and menus.
 */
#include <QApplication>
#include <QLoggingCategory>
#include <QStringList>

#include <cstdio>

#include "HostOptions.h"
#include "HostWindow.h"
#include "PluginHost.h"
#include "ScreenshotSession.h"

namespace {

void PrintLine(FILE *stream, const QString &line)
{
    std::fputs(qPrintable(line + QLatin1Char('\n')), stream);
    std::fflush(stream);
}

// A tool's debug trace is for its developers, and a run would print
// thousands of lines of it: it is filtered out unless the user asks for it
// with --trace or has chosen logging rules of his own.
void FilterDebugTrace(const CHostOptions &options)
{
    if (options.trace || !qEnvironmentVariableIsEmpty("QT_LOGGING_RULES") ||
        !qEnvironmentVariableIsEmpty("QT_LOGGING_CONF"))
        return;
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
}

int Run(const CHostOptions &options)
{
    const bool screenshotMode = !options.screenshotFile.isEmpty();

    // Declared after the QApplication in main(), so the plug-in's windows are
    // gone before the application is.
    QStringList log;
    CPluginHost host;
    CHostWindow window(&host);
    QObject::connect(&host, &CPluginHost::Signal_Log, [&log](const QString &line) { log << line; });

    auto fail = [&](int exitCode, const QString &message) {
        PrintLine(stderr, QStringLiteral("tavo-host: %1").arg(message));
        if (screenshotMode) {
            PrintLine(stderr, QStringLiteral("tavo-host: host log:"));
            for (const QString &line : qAsConst(log))
                PrintLine(stderr, QStringLiteral("  ") + line);
        }
        host.UnloadPlugin();
        return exitCode;
    };

    if (!options.nvramFile.isEmpty() && !host.KeepNvramIn(options.nvramFile))
        return fail(1, host.LastError());
    if (!host.ConnectTarget(options.profile))
        return fail(1, host.LastError());
    const bool loaded = options.pluginPath.isEmpty()
                            ? host.LoadPluginFromFolder(QCoreApplication::applicationDirPath())
                            : host.LoadPlugin(options.pluginPath);
    if (!loaded)
        return fail(1, host.LastError());

    if (screenshotMode) {
        CScreenshotSession session(&host, options.screenshotFile, options.timeoutSec * 1000);
        session.SetPage(options.page);
        session.SetPress(options.press);
        session.SetIgnoredWindow(&window);
        int exitCode = CScreenshotSession::Failed;
        QString message;
        QObject::connect(&session, &CScreenshotSession::Signal_Finished,
                         [&](int code, const QString &text) {
                             exitCode = code;
                             message = text;
                             QCoreApplication::exit(code);
                         });
        session.Start();
        QApplication::exec();
        if (exitCode != CScreenshotSession::Saved)
            return fail(exitCode, message);
        host.UnloadPlugin();
        PrintLine(stdout, message);
        return 0;
    }

    QObject::connect(&window, &CHostWindow::Signal_Closed, &QCoreApplication::quit);
    window.show();
    host.Launch();
    const int exitCode = QApplication::exec();
    host.UnloadPlugin();
    return exitCode;
}

} // namespace

int main(int argc, char *argv[])
{
    // Options first: --help and mistakes must not need a display.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    CHostOptions options;
    const CHostOptions::Outcome outcome = options.Parse(arguments);
    if (outcome != CHostOptions::Outcome::Run) {
        QCoreApplication core(argc, argv); // the help text takes the program name from it
        if (outcome == CHostOptions::Outcome::Help) {
            PrintLine(stdout, options.HelpText());
            return 0;
        }
        PrintLine(stderr, QStringLiteral("tavo-host: %1 (see --help)").arg(options.ErrorText()));
        return 1;
    }

    // Qt would take some of the host's options for its own (--plugin loads
    // a generic input plug-in), so it sees only the program name.
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    QApplication::setApplicationName(QStringLiteral("tavo-host"));
    // The host quits when its own window closes, whatever the tool's windows do.
    QApplication::setQuitOnLastWindowClosed(false);
    FilterDebugTrace(options);
    return Run(options);
}
