/*
 * When the host takes a tool window for ready, on plain widgets played through
 * timed scripts.
 */
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QWidget>
#include <QtTest>

#include "ToolReadiness.h"

namespace {

const QString kTitle = QStringLiteral("Tool Under Test");

/* One step of a script: at `atMs` after the start, do `action` to the tool
 * window or to the plug-in's activation. */
struct SStep {
    int atMs;
    QString action; // show, hide, enable, disable, activate, deactivate
};

} // namespace

Q_DECLARE_METATYPE(QVector<SStep>)

class TestHostReadiness : public QObject {
    Q_OBJECT

private slots:
    void readiness_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QVector<SStep>>("script");
        QTest::addColumn<int>("readyAfterMs"); // at the earliest; -1: never ready
        QTest::addColumn<QString>("missing"); // what the time-out names
        const int settle = CToolReadiness::kDefaultSettleMs;
        QTest::newRow("disabled while preparing")
            << kTitle << QVector<SStep>{{0, "show"}, {0, "disable"}, {0, "activate"}, {300, "enable"}} << 300 + settle
            << QString();
        QTest::newRow("activated late") << kTitle << QVector<SStep>{{0, "show"}, {400, "activate"}} << 400 + settle
                                        << QString();
        // Shorter than one poll: only the window's own events can tell.
        QTest::newRow("brief disable restarts the wait")
            << kTitle << QVector<SStep>{{0, "show"}, {0, "activate"}, {300, "disable"}, {305, "enable"}} << 305 + settle
            << QString();
        QTest::newRow("hidden and shown again")
            << kTitle << QVector<SStep>{{0, "show"}, {0, "activate"}, {300, "hide"}, {350, "show"}} << 350 + settle
            << QString();

        QTest::newRow("never enabled nor activated") << kTitle << QVector<SStep>{{0, "show"}, {0, "disable"}} << -1
                                                     << QStringLiteral("Signal_PluginIsActivated(true); the window "
                                                                       "\"Tool Under Test\" is still disabled");
        QTest::newRow("deactivated for good")
            << kTitle << QVector<SStep>{{0, "show"}, {0, "activate"}, {200, "deactivate"}} << -1
            << QStringLiteral("Signal_PluginIsActivated(true)");
        QTest::newRow("other title") << QStringLiteral("Something Else") << QVector<SStep>{{0, "show"}, {0, "activate"}}
                                     << -1 << QStringLiteral("no window titled \"Tool Under Test\"");
    }
    void readiness()
    {
        QFETCH(QString, title);
        QFETCH(QVector<SStep>, script);
        QFETCH(int, readyAfterMs);
        QFETCH(QString, missing);
        const int timeoutMs = readyAfterMs < 0 ? 1200 : 5000;
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

        QElapsedTimer clock;
        clock.start();
        readiness.Start(timeoutMs);
        for (const SStep &step : qAsConst(script)) {
            if (step.atMs == 0)
                play(step.action);
            else
                QTimer::singleShot(step.atMs, &readiness, [play, step] { play(step.action); });
        }

        QTRY_VERIFY_WITH_TIMEOUT(ready.count() + timedOut.count() > 0, timeoutMs + 2000);
        const qint64 elapsed = clock.elapsed();
        QVERIFY(!readiness.IsRunning());

        if (readyAfterMs < 0) {
            QCOMPARE(ready.count(), 0);
            QVERIFY2(timedOut.at(0).at(0).toString().contains(missing), qPrintable(timedOut.at(0).at(0).toString()));
            QVERIFY(elapsed >= timeoutMs);
            return;
        }
        QCOMPARE(timedOut.count(), 0);
        QCOMPARE(ready.at(0).at(0).value<QWidget *>(), &window);
        QVERIFY2(elapsed >= readyAfterMs, qPrintable(QString::number(elapsed)));
        // Not long after, either (generous for slow, instrumented builds).
        QVERIFY2(elapsed < readyAfterMs + 2500, qPrintable(QString::number(elapsed)));

        // Said once only.
        QTest::qWait(100);
        QCOMPARE(ready.count(), 1);
    }
};

QTEST_MAIN(TestHostReadiness)
#include "tst_HostReadiness.moc"
