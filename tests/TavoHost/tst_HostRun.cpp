/*
 * tavo-host as a program: --screenshot from start to exit, with the fake
 * tool plug-in answering in each of its ways, and the ways a run can fail.
 */
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include "FakeToolAnswers.h"

class TestHostRun : public QObject {
    Q_OBJECT

private slots:
    void run_data()
    {
        QTest::addColumn<QStringList>("arguments"); // "{dir}" stands for the run's working folder
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("exitCode");   // 0: the screenshot is where --screenshot says, and nothing else
        QTest::addColumn<QString>("failure"); // on stderr
        QTest::addColumn<QString>("rules");   // QT_LOGGING_RULES; empty: not set
        QTest::addColumn<bool>("traced");     // the tool's debug trace is printed
        const QString good = QStringLiteral(FAKE_TOOL_PATH);
        const QStringList shot{"--plugin", good, "--screenshot", "{dir}/shot.png"};

        QTest::newRow("ready, without the tool's trace, relative file name, missing folders are made")
            << QStringList{"--plugin", good, "--screenshot", "new/shot.png"} << "needdb" << 0 << "" << "" << false;
        QTest::newRow("with the trace asked for") << shot + QStringList{"--trace"} << "supported" << 0 << "" << ""
                                                  << true;
        QTest::newRow("the user's own logging rules") << shot << "supported" << 0 << "" << "qt.qpa.*=false" << true;

        QTest::newRow("never ready") << shot + QStringList{"--timeout", "1"} << "never-enabled" << 2
                                     << "tool not ready after 1 s" << "" << false;
        QTest::newRow("a page the tool does not have") << shot + QStringList{"--page", "No such page"} << "supported"
                                                       << 1 << "the tool has no page \"No such page\"" << "" << false;
        QTest::newRow("a button to press without its page")
            << shot + QStringList{"--press", "m_btnUpload"} << "supported" << 1 << "--press wants" << "" << false;
        QTest::newRow("unsupported") << shot << "unsupported" << 3 << FakeTool::kUnsupportedReason << "" << false;
        QTest::newRow("unknown profile") << shot + QStringList{"--profile", "no-such-profile"} << "supported" << 1
                                         << "no-such-profile" << "" << false;
        QTest::newRow("unwritable file")
            << QStringList{"--plugin", good, "--screenshot", "{dir}/blocker/shot.png"} << "supported" << 1
            << "could not write" << "" << false;
        QTest::newRow("bad command line") << shot + QStringList{"--timeout", "x"} << "supported" << 1 << "--timeout"
                                          << "" << false;
    }
    void run()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, answer);
        QFETCH(int, exitCode);
        QFETCH(QString, failure);
        QFETCH(QString, rules);
        QFETCH(bool, traced);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QDir folder(QFileInfo(dir.path()).canonicalFilePath());
        QFile blocker(folder.filePath(QStringLiteral("blocker"))); // a file where a folder would have to be
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        for (QString &argument : arguments)
            argument.replace(QLatin1String("{dir}"), folder.path());
        const QString file = folder.absoluteFilePath(arguments.value(arguments.indexOf("--screenshot") + 1));

        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QString::fromLatin1(FakeTool::kAnswerVariable), answer);
        environment.remove(QStringLiteral("QT_LOGGING_RULES"));
        if (!rules.isEmpty())
            environment.insert(QStringLiteral("QT_LOGGING_RULES"), rules);

        QProcess host;
        host.setProcessEnvironment(environment);
        host.setWorkingDirectory(folder.path());
        host.start(QStringLiteral(TAVO_HOST_PATH), arguments);
        QVERIFY2(host.waitForFinished(90000), "tavo-host did not finish");
        const QString out = QString::fromLocal8Bit(host.readAllStandardOutput());
        const QString err = QString::fromLocal8Bit(host.readAllStandardError());
        const QString both = QStringLiteral("stdout:\n%1\nstderr:\n%2").arg(out, err);

        QCOMPARE(host.exitStatus(), QProcess::NormalExit);
        QVERIFY2(host.exitCode() == exitCode, qPrintable(QStringLiteral("exit code %1\n").arg(host.exitCode()) + both));
        QVERIFY2(err.contains(failure), qPrintable(both));
        QVERIFY2(err.contains(QLatin1String(FakeTool::kTraceLine)) == traced, qPrintable(both));
        const QString saved = QStringLiteral("screenshot saved: ");
        QVERIFY2(exitCode == 0 ? out.contains(saved + file) : !out.contains(saved), qPrintable(both));

        QStringList pngs;
        QDirIterator it(folder.path(), {QStringLiteral("*.png")}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            pngs << it.next();
        QCOMPARE(pngs, exitCode == 0 ? QStringList{file} : QStringList());
        if (exitCode != 0)
            return;
        const QImage image(file, "PNG");
        QVERIFY(!image.isNull());
        // The tool's window, not the host's, and painted.
        QCOMPARE(image.size(), QSize(FakeTool::kWindowWidth, FakeTool::kWindowHeight));
        QSet<QRgb> colours;
        for (int y = 0; y < image.height() && colours.size() < 2; y += 2) {
            for (int x = 0; x < image.width() && colours.size() < 2; x += 2)
                colours.insert(image.pixel(x, y));
        }
        QVERIFY2(colours.size() >= 2, "the screenshot is a single colour");
    }
};

QTEST_MAIN(TestHostRun)
#include "tst_HostRun.moc"
