// The command line program run as a process against the simulated target.

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include "TestFiles.h"

namespace {

struct SRun {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

SRun Run(const QStringList &arguments)
{
    QProcess process;
    process.start(RADBENCH_CLI_PATH, arguments);
    SRun run;
    if (!process.waitForFinished(60000))
        return run;
    run.exitCode = process.exitCode();
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

// A record the NVRAM file keeps, as the file writes it (hex).
QString KeptRecord(const QString &nvramFile, const QString &lid)
{
    const QJsonObject records = QJsonDocument::fromJson(TestFiles::Read(nvramFile)).object()["records"].toObject();
    return records[lid].toObject()["1"].toString();
}

} // namespace

class TestRadbenchCli : public QObject {
    Q_OBJECT

private slots:
    void badUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("message");
        QTest::newRow("no command") << QStringList() << 2 << "no command";
        QTest::newRow("unknown command") << QStringList{"flash"} << 2 << "unknown command: flash";
        QTest::newRow("upload without a file") << QStringList{"upload"} << 2 << "upload needs --file CAL";
        QTest::newRow("show two items") << QStringList{"show", "TPC", "IMEI"} << 2 << "show needs one item";
        QTest::newRow("unknown option") << QStringList{"items", "--fast"} << 2 << "Unknown option 'fast'.";
        QTest::newRow("unknown profile") << QStringList{"--profile", "nope", "items"} << 2 << "profile:";
        QTest::newRow("unknown item") << QStringList{"upload", "--file", "x.ini", "TPC", "Coffee"} << 2
                                      << "the target offers no item Coffee";
        QTest::newRow("missing file") << QStringList{"download", "--file", "/nonexistent/cal.ini"} << 4
                                      << "no such file: /nonexistent/cal.ini";
    }
    // One clear line on stderr, and its exit code.
    void badUsage()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        const SRun run = Run(arguments);
        QTEST(run.exitCode, "exitCode");
        QVERIFY2(run.err.startsWith("radbench-cli: " + message.toUtf8()), run.err.constData());
        QCOMPARE(run.err.count('\n'), 1);
    }

    // A target's data into a file, and the file into a fresh target: the
    // record it had before, byte for byte; the items in JSON.
    void uploadThenDownload()
    {
        QTemporaryDir dir;
        const QString first = dir.filePath("first.json"), fresh = dir.filePath("fresh.json");
        const QString cal = dir.filePath("cal.ini"), tadc = dir.filePath("tadc.ini");
        QVERIFY(TestFiles::Write(tadc, "[TDSCDMA Temperature Sensor]\nADC0 = 3000\nADC1 = 2900\nADC2 = 2800\n"
                                       "ADC3 = 2700\nADC4 = 2600\nADC5 = 2500\nADC6 = 2400\nADC7 = 2300\n"));
        QCOMPARE(Run({"--nvram", first, "download", "--file", tadc, "Temperature ADC"}).exitCode, 0);
        const QString record = KeptRecord(first, "NVRAM_EF_AST_TL1_TEMP_DAC_LID");
        QVERIFY(!record.isEmpty());

        const SRun upload = Run({"--nvram", first, "--json", "--quiet", "upload", "--file", cal});
        QCOMPARE(upload.err, QByteArray());
        QCOMPARE(upload.exitCode, 0);
        const QJsonObject answer = QJsonDocument::fromJson(upload.out).object();
        QVERIFY(answer["ok"].toBool());
        QVERIFY(answer["items"].toArray().size() >= 4);

        const SRun download = Run({"--nvram", fresh, "download", "--file", cal, "Temperature ADC", "TPC"});
        QCOMPARE(download.exitCode, 0);
        QCOMPARE(download.err, QByteArray("[1/4] Temperature ADC\n[2/4] TPC\n[3/4] Temperature ADC\n[4/4] TPC\n"));
        QCOMPARE(KeptRecord(fresh, "NVRAM_EF_AST_TL1_TEMP_DAC_LID"), record);
        QVERIFY(Run({"items", "--file", cal}).out.contains("Temperature ADC   in file"));
        const SRun show = Run({"--nvram", fresh, "show", "Temperature ADC"});
        QCOMPARE(show.exitCode, 0);
        QVERIFY2(show.out.contains("ADC7 = 2300"), show.out.constData());
    }

    // A download whose item fails on the target: exit code 3 and the item named.
    void targetFailure()
    {
        QTemporaryDir dir;
        QVERIFY(TestFiles::Write(dir.filePath("cal.ini"), "[Barcode]\nBarcode = A1\n"));
        const SRun run = Run({"--profile", TESTS_DIR "/Cli/failing-write.json", "download", "--file",
                              dir.filePath("cal.ini"), "Barcode"});
        QCOMPARE(run.exitCode, 3);
        QVERIFY2(run.out.startsWith("Barcode           failed (3)"), run.out.constData());
    }
};

QTEST_GUILESS_MAIN(TestRadbenchCli)
#include "tst_RadbenchCli.moc"
