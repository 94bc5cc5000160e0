/*
 * The host with the fake tool loaded in-process: finding and checking
 * plug-ins, the launch and target changes; and when the host takes a tool
 * window for ready, on plain widgets played through scripts of steps.
 */
#include <QApplication>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "FakeToolAnswers.h"
#include "PluginHost.h"
#include "PluginLocator.h"
#include "TavoSimControl.h"
#include "ToolReadiness.h"

namespace {

QStringList Calls(const CPluginHost &host) { return host.PluginObject()->property("calls").toStringList(); }
void ClearCalls(const CPluginHost &host) { QMetaObject::invokeMethod(host.PluginObject(), "ClearCalls"); }

/* A host's log, collected. */
struct SLog {
    explicit SLog(CPluginHost &host)
    {
        QObject::connect(&host, &CPluginHost::Signal_Log, &context, [this](const QString &l) { text += l + '\n'; });
    }
    QObject context;
    QString text;
};

QWidget *ToolWindow()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->windowTitle() == QLatin1String(FakeTool::kName))
            return window;
    }
    return nullptr;
}

QString At(const char *call, const QString &profile) { return QStringLiteral("%1(profile=%2)").arg(call, profile); }

/* A host on the default target with the fake tool loaded. */
struct SHostWithTool {
    SHostWithTool()
    {
        loaded = host.ConnectTarget("default") && host.LoadPlugin(FAKE_TOOL_PATH);
        if (loaded)
            ClearCalls(host);
    }
    CPluginHost host;
    bool loaded = false;
};

const QString kTitle = QStringLiteral("Tool Under Test");

} // namespace

class TestHostPlugin : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        qunsetenv(FakeTool::kAnswerVariable);
        QVERIFY(TavoSim::LoadProfile("default"));
    }

    void checkMetaData_data()
    {
        QTest::addColumn<QString>("json");
        QTest::addColumn<QStringList>("problems"); // fragments; none: valid
        const QString head = R"("IID": "com.halvorex.Tavo.TavoToolPlugin", "className": "CTool")";
        auto with = [&](const QString &meta) { return QStringLiteral("{%1, \"MetaData\": %2}").arg(head, meta); };

        QTest::newRow("valid") << with(R"({"type": "t", "name": "n", "version": "", "dependencies": ["a"]})")
                               << QStringList();
        QTest::newRow("foreign IID") << R"({"IID": "org.example.X", "className": "C", "MetaData": )"
                                        R"({"type": "t", "name": "n", "version": "1", "dependencies": []}})"
                                     << QStringList{R"(IID is "org.example.X")"};
        QTest::newRow("no className") << R"({"IID": "com.halvorex.Tavo.TavoToolPlugin"})"
                                      << QStringList{"className is not set", "MetaData is missing"};
    }
    void checkMetaData()
    {
        QFETCH(QString, json);
        QFETCH(QStringList, problems);
        const QString found = CPluginLocator::CheckMetaData(QJsonDocument::fromJson(json.toUtf8()).object());
        QCOMPARE(found.isEmpty(), problems.isEmpty());
        for (const QString &problem : problems)
            QVERIFY2(found.contains(problem), qPrintable(found));
    }

    void discovery_data()
    {
        QTest::addColumn<QStringList>("files");     // "source=name in the folder"
        QTest::addColumn<QString>("loaded");        // file name; empty: none
        QTest::addColumn<QStringList>("messages");  // in the log
        QTest::addColumn<QStringList>("absent");    // not in the log
        const QString good = FAKE_TOOL_PATH, wrongIid = FAKE_TOOL_WRONG_IID_PATH, badMeta = FAKE_TOOL_BAD_META_PATH;
        const QString text = __FILE__;

        QTest::newRow("bad metadata rejected, foreign IID skipped")
            << QStringList{badMeta + "=libA.so", wrongIid + "=libB.so", good + "=libC.so"} << "libC.so"
            << QStringList{R"(Rejected plug-in {dir}/libA.so: MetaData has no "version")",
                           R"(Skipped libB.so: IID "com.example.NotATool")"}
            << QStringList{"Rejected plug-in {dir}/libB"};
        QTest::newRow("other files unnoticed")
            << QStringList{text + "=libJunk.so", text + "=notes.txt", good + "=libTool.so"} << "libTool.so"
            << QStringList() << QStringList{"Skipped", "Rejected", "libJunk"};
        QTest::newRow("one tool at a time") << QStringList{good + "=libA.so", good + "=libB.so"} << "libA.so"
                                            << QStringList{"Ignored {dir}/libB.so"} << QStringList();
        QTest::newRow("nothing usable") << QStringList{badMeta + "=libA.so", wrongIid + "=libB.so"} << ""
                                        << QStringList{"No usable tool plug-in", "Skipped libB.so"} << QStringList();
        QTest::newRow("empty folder") << QStringList() << "" << QStringList{"No tool plug-in"} << QStringList();
    }
    void discovery()
    {
        QFETCH(QStringList, files);
        QFETCH(QString, loaded);
        QFETCH(QStringList, messages);
        QFETCH(QStringList, absent);
        QTemporaryDir dir;
        for (const QString &file : files)
            QVERIFY(QFile::copy(file.section('=', 0, 0), dir.filePath(file.section('=', 1))));

        CPluginHost host;
        SLog log(host);
        QCOMPARE(host.LoadPluginFromFolder(dir.path()), !loaded.isEmpty());
        QCOMPARE(host.IsLoaded(), !loaded.isEmpty());
        if (!loaded.isEmpty())
            messages << "Plug-in loaded: " + dir.filePath(loaded);
        else
            QVERIFY(log.text.contains(host.LastError()));
        for (QString message : messages)
            QVERIFY2(log.text.contains(message.replace("{dir}", dir.path())), qPrintable(log.text));
        for (QString message : absent)
            QVERIFY2(!log.text.contains(message.replace("{dir}", dir.path())), qPrintable(log.text));
    }

    void launch_data()
    {
        QTest::addColumn<QString>("target"); // changed to after a first launch; empty: no change
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QStringList>("calls");
        const QString query = At("QueryLaunchRequirement", "default"), reset = At("ResetPlugin", "default");
        QStringList profiles = TavoSim::BuiltInProfiles();
        profiles.removeAll("default");
        const QString other = profiles.value(0);
        QTest::newRow("supported") << "" << "supported" << QStringList{query, "ShowTool(db=unloaded)"};
        QTest::newRow("needs database") << "" << "needdb" << QStringList{query, "ShowTool(db=loaded)"};
        QTest::newRow("unsupported") << "" << "unsupported" << QStringList{query};
        QTest::newRow("new target, unsupported, hides the tool")
            << other << "unsupported" << QStringList{reset, At("QueryLaunchRequirement", other), "HideTool"};
        QTest::newRow("unknown profile keeps the target")
            << "no-such-profile" << "supported" << QStringList{reset, query, "ShowTool(db=unloaded)"};
    }
    // The database is loaded for a tool that needs it only; a target change
    // resets the tool and launches it again.
    void launch()
    {
        QFETCH(QString, target);
        QFETCH(QString, answer);
        SHostWithTool tool;
        QVERIFY(tool.loaded);
        if (!target.isEmpty()) {
            QCOMPARE(tool.host.Launch(), CPluginHost::LaunchResult::Shown);
            ClearCalls(tool.host);
        }
        SLog log(tool.host);
        QSignalSpy refused(&tool.host, &CPluginHost::Signal_LaunchRefused);
        qputenv(FakeTool::kAnswerVariable, answer.toUtf8());
        const bool supported = answer != "unsupported", database = answer == "needdb";
        if (answer == "supported")
            TavoSim::LoadDatabase(); // left loaded from before

        if (target.isEmpty()) {
            QCOMPARE(tool.host.Launch(),
                     supported ? CPluginHost::LaunchResult::Shown : CPluginHost::LaunchResult::Unsupported);
        } else {
            const bool known = target != "no-such-profile";
            QCOMPARE(tool.host.ChangeTarget(target), known);
            QCOMPARE(tool.host.TargetProfile(), known ? target : QStringLiteral("default"));
            QCOMPARE(tool.host.LastError().contains(target), !known);
        }
        QTEST(Calls(tool.host), "calls");
        QCOMPARE(TavoSim::IsDatabaseLoaded(), database);
        QVERIFY2(log.text.contains(QStringLiteral("isNeedDb=%1, isDbOptional=%2, extraInfo=\"answer=%3\"")
                                       .arg(database ? "true" : "false", database ? "false" : "true", answer)),
                 qPrintable(log.text));
        QCOMPARE(ToolWindow() && ToolWindow()->isVisible(), supported);
        QCOMPARE(refused.count(), supported ? 0 : 1);
        if (!supported) {
            QCOMPARE(refused.at(0).at(0).toString(), QLatin1String(FakeTool::kUnsupportedReason));
            QVERIFY2(log.text.contains(FakeTool::kUnsupportedReason), qPrintable(log.text));
        }
    }

    // The plug-in's signals reach the host's state; unloading deletes the
    // plug-in's instance and its tool window, and the plug-in loads again.
    void stateAndUnload()
    {
        SHostWithTool tool;
        QVERIFY(tool.loaded);
        QSignalSpy states(&tool.host, &CPluginHost::Signal_StateChanged);
        QCOMPARE(tool.host.Launch(), CPluginHost::LaunchResult::Shown);
        QTRY_VERIFY(tool.host.IsActivated());
        QStringList seen;
        for (const QList<QVariant> &state : qAsConst(states))
            seen << state.at(0).toString();
        QCOMPARE(seen, (QStringList{"Fake Tool: inactive, busy", "Fake Tool: inactive, idle",
                                    "Fake Tool: active, idle"}));
        tool.host.HideTool();
        QCOMPARE(tool.host.StateText(), QStringLiteral("Fake Tool: inactive, idle"));

        QPointer<QWidget> window = ToolWindow();
        QPointer<QObject> instance = tool.host.PluginObject();
        QVERIFY(window);
        tool.host.UnloadPlugin();
        QVERIFY(!instance);
        QVERIFY(!window);
        QVERIFY(tool.host.LoadPlugin(FAKE_TOOL_PATH));
        QCOMPARE(tool.host.Launch(), CPluginHost::LaunchResult::Shown);
    }

    void readiness_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("script");  // "ms:action" steps: show, hide, enable, disable, activate, deactivate
        QTest::addColumn<QString>("missing"); // what the time-out names; empty: ready
        QTest::newRow("activated late") << kTitle << "0:show 400:activate" << "";
        // (A window disabled while the tool prepares: tst_HostRun.)
        // Shorter than one poll: only the window's own events can tell.
        QTest::newRow("brief disable restarts the wait") << kTitle << "0:show 0:activate 320:disable 325:enable" << "";
        QTest::newRow("hidden and shown again") << kTitle << "0:show 0:activate 300:hide 350:show" << "";
        QTest::newRow("never enabled nor activated")
            << kTitle << "0:show 0:disable"
            << "Signal_PluginIsActivated(true); the window \"Tool Under Test\" is still disabled";
        QTest::newRow("deactivated for good")
            << kTitle << "0:show 0:activate 200:deactivate" << "Signal_PluginIsActivated(true)";
        QTest::newRow("other title") << "Something Else" << "0:show 0:activate"
                                     << "no window titled \"Tool Under Test\"";
    }
    void readiness()
    {
        QFETCH(QString, title);
        QFETCH(QString, script);
        QFETCH(QString, missing);
        QWidget window;
        window.setWindowTitle(title);
        CToolReadiness readiness(kTitle);
        QSignalSpy ready(&readiness, &CToolReadiness::Signal_Ready);
        QSignalSpy timedOut(&readiness, &CToolReadiness::Signal_TimedOut);
        auto play = [&window, &readiness](const QString &action) {
            if (action == "show" || action == "hide")
                window.setVisible(action == "show");
            else if (action == "enable" || action == "disable")
                window.setEnabled(action == "enable");
            else
                readiness.Slot_SetActivated(action == "activate");
        };

        const int timeoutMs = missing.isEmpty() ? 5000 : 1200;
        readiness.Start(timeoutMs);
        int lastMs = 0;
        for (const QString &step : script.split(' ')) {
            const int atMs = step.section(':', 0, 0).toInt();
            const QString action = step.section(':', 1);
            lastMs = qMax(lastMs, atMs);
            if (atMs == 0)
                play(action);
            else
                QTimer::singleShot(atMs, &readiness, [play, action] { play(action); });
        }
        // The window must stay ready for the settle time after the last step:
        // halfway through it, it is not ready yet.
        int readyHalfway = -1;
        QTimer::singleShot(lastMs + CToolReadiness::kDefaultSettleMs / 2, Qt::PreciseTimer, &readiness,
                           [&] { readyHalfway = ready.count(); });
        QTRY_VERIFY_WITH_TIMEOUT(ready.count() + timedOut.count() > 0 && readyHalfway >= 0, timeoutMs + 2000);
        QVERIFY(!readiness.IsRunning());
        if (missing.isEmpty()) {
            QCOMPARE(ready.at(0).at(0).value<QWidget *>(), &window);
            QCOMPARE(readyHalfway, 0);
        } else {
            QVERIFY2(timedOut.at(0).at(0).toString().contains(missing), qPrintable(timedOut.at(0).at(0).toString()));
        }
        // Said once only.
        QTest::qWait(100);
        QCOMPARE(ready.count() + timedOut.count(), 1);
    }
};

QTEST_MAIN(TestHostPlugin)
#include "tst_HostPlugin.moc"
