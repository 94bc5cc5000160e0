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

// Every run journals into the test's own journal unless it names one.
QString g_journal;

QStringList WithJournal(QStringList arguments)
{
    if (!arguments.contains("--journal"))
        arguments << "--journal" << g_journal;
    return arguments;
}

SRun Run(const QStringList &arguments)
{
    QProcess process;
    process.start(RADBENCH_CLI_PATH, WithJournal(arguments));
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

// The profile of failing-write.json with `faults` instead of its own.
QString ProfileWith(const QString &path, const QJsonArray &faults)
{
    QJsonObject profile = QJsonDocument::fromJson(TestFiles::Read(TESTS_DIR "/Cli/failing-write.json")).object();
    profile["faults"] = faults;
    TestFiles::Write(path, QJsonDocument(profile).toJson());
    return path;
}

const char *const kTadcLid = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
const char *const kBarcodeLid = "NVRAM_EF_BARCODE_NUM_LID";

QByteArray TadcFile(int adc0)
{
    QByteArray text = "[TDSCDMA Temperature Sensor]\n";
    for (int i = 0; i < 8; ++i)
        text += QString("ADC%1 = %2\n").arg(i).arg(adc0 - 100 * i).toUtf8();
    return text;
}

} // namespace

class TestRadbenchCli : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void initTestCase() { g_journal = m_dir.filePath("journal.sqlite"); }

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
        QTest::newRow("no test named") << QStringList{"test"} << 2 << "test needs a test: AFC Control, ";
        QTest::newRow("unknown test") << QStringList{"test", "Tpc"} << 2 << "this target has no test Tpc; it has: ";
        QTest::newRow("unknown parameter") << QStringList{"test", "Rssi", "colour=red"} << 2
                                           << "Rssi has no parameter colour (it has afcdac, agcTracking, band, ";
        QTest::newRow("no value") << QStringList{"test", "Rssi", "gain"} << 2 << "Rssi has no parameter gain (";
        QTest::newRow("channel outside its band")
            << QStringList{"test", "Continuous TX", "band=2010-2025MHz(a)", "uarfcn=9550"} << 2
            << "uarfcn of Continuous TX must be a number from 10050 to 10125, not 9550";
        QTest::newRow("not in the list") << QStringList{"test", "Rssi", "mode=Loud"} << 2
                                         << "mode of Rssi must be one of ";
        QTest::newRow("not a number") << QStringList{"test", "Rssi", "gain=lots"} << 2
                                      << "gain of Rssi must be a number from 0 to 255, not lots";
        QTest::newRow("hold without a number") << QStringList{"test", "Rssi", "--hold", "long"} << 2
                                               << "--hold takes milliseconds, not long";
        QTest::newRow("register verb") << QStringList{"reg", "peek", "16"} << 2
                                       << "reg needs 'read ADDR' or 'write ADDR VALUE'";
        QTest::newRow("register beyond 16 bits") << QStringList{"reg", "write", "0x10", "0x10000"} << 2
                                                 << "a register address or value is a number from 0 to 0xffff";
        QTest::newRow("check of an item") << QStringList{"check", "TPC"} << 2
                                          << "check takes no item: it checks TPC and RX Path Loss";
        QTest::newRow("jump of no size") << QStringList{"check", "--max-jump", "0"} << 2
                                         << "--max-jump takes decibels above 0, not 0";
        QTest::newRow("journal of two items") << QStringList{"journal", "TPC", "AFC"} << 2
                                              << "journal takes one item at most";
    }
    // One clear line on stderr, its exit code, and the target untouched.
    void badUsage()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        const QString nvram = m_dir.filePath("untouched.json");
        const SRun run = Run(QStringList{"--nvram", nvram} + arguments);
        QVERIFY(!QFile::exists(nvram));
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
    void radioCommands_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QStringList>("lines"); // of stdout, in order
        const QString agcFails = ProfileWith(m_dir.filePath("agc-fails.json"), {QJsonObject{{"call", "AST_CAL_agc_ex_r"}}});
        QTest::newRow("RSSI measures") << QStringList{"test", "Rssi", "uarfcn=9550", "gain=49"} << 0
                                       << QStringList{"Rssi              ok", "  RSSI            -73.875",
                                                      "  DSP Power       -54.875", "  USED Gain       49"};
        QTest::newRow("continuous TX held, then stopped")
            << QStringList{"test", "Continuous TX", "band=2010-2025MHz(a)", "uarfcn=10087", "--hold", "50"} << 0
            << QStringList{"Continuous TX     ok", "  stop            ok"};
        QTest::newRow("register written") << QStringList{"reg", "write", "0x10", "0xbeef"} << 0
                                          << QStringList{"0x0010 = 0xbeef"};
        QTest::newRow("a measure that fails")
            << QStringList{"--profile", agcFails, "test", "Rssi"} << 3
            << QStringList{"Rssi              failed (3)    Tavo command execute failed."};
        QTest::newRow("self-test") << QStringList{"selftest"} << 0
                                   << QStringList{"PASS  AFC Control", "PASS  Temperature ADC", "PASS  Rssi",
                                                  "PASS  Continuous RX", "PASS  Continuous TX", "PASS  Dpch TX",
                                                  "PASS  Baseband Register"};
        QTest::newRow("self-test with a failing measure")
            << QStringList{"--profile", agcFails, "selftest"} << 3
            << QStringList{"PASS  AFC Control", "PASS  Temperature ADC",
                           "FAIL  Rssi                  Tavo command execute failed.",
                           "PASS  Continuous RX", "PASS  Continuous TX", "PASS  Dpch TX", "PASS  Baseband Register"};
    }
    // A test's line, its stop and what it showed; the exit code of the whole.
    void radioCommands()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, lines);
        const SRun run = Run(arguments);
        QTEST(run.exitCode, "exitCode");
        QCOMPARE(QString::fromUtf8(run.out).split('\n', Qt::SkipEmptyParts), lines);
    }

    // The same as JSON: one object a script reads.
    void radioJson()
    {
        const SRun run = Run({"--json", "reg", "write", "16", "4660"});
        QCOMPARE(run.exitCode, 0);
        const QJsonObject answer = QJsonDocument::fromJson(run.out).object();
        QCOMPARE(answer["value"].toInt(), 4660);
        QVERIFY(answer["ok"].toBool());
        const QJsonObject test = QJsonDocument::fromJson(Run({"--json", "test", "Rssi", "gain=49"}).out).object();
        QCOMPARE(test["result"].toObject()["USED Gain"].toString(), QString("49"));
    }

    // A download that fails at its second item: the first is written, the
    // result names the backup, and downloading the backup gives the target
    // back what it held, byte for byte.
    void failedDownloadRestoredFromBackup()
    {
        const QString nvram = m_dir.filePath("unit.json");
        const QString before = m_dir.filePath("before.ini"), update = m_dir.filePath("update.ini");
        QVERIFY(TestFiles::Write(before, TadcFile(3000) + "[Barcode]\nBarcode = UNIT-0001\n"));
        QVERIFY(TestFiles::Write(update, TadcFile(3500) + "[Barcode]\nBarcode = UNIT-0002\n"));
        QCOMPARE(Run({"--nvram", nvram, "--no-backup", "download", "--file", before}).exitCode, 0);
        const QStringList held{KeptRecord(nvram, kTadcLid), KeptRecord(nvram, kBarcodeLid)};

        const QString secondWriteFails = ProfileWith(
            m_dir.filePath("second-write-fails.json"), {QJsonObject{{"call", "TAVO_NVRAM_Write_r"}, {"skip", 1}}});
        const SRun failed = Run({"--profile", secondWriteFails, "--nvram", nvram, "--json", "--quiet", "download",
                                 "--file", update});
        QCOMPARE(failed.exitCode, 3);
        const QJsonObject answer = QJsonDocument::fromJson(failed.out).object();
        const QJsonArray items = answer["items"].toArray();
        QCOMPARE(items.size(), 2);
        QCOMPARE(items[0].toObject()["code"].toInt(), 0);
        QCOMPARE(items[1].toObject()["code"].toInt(), 3);
        const QString backup = answer["backup"].toString();
        QVERIFY(backup.startsWith(m_dir.filePath("radbench-backups/backup-")));
        QVERIFY2(items[1].toObject()["message"].toString().contains("What the target held before is in " + backup),
                 failed.out.constData());
        QVERIFY(KeptRecord(nvram, kTadcLid) != held[0]); // the first item was written

        QCOMPARE(Run({"--nvram", nvram, "download", "--file", backup}).exitCode, 0);
        QCOMPARE((QStringList{KeptRecord(nvram, kTadcLid), KeptRecord(nvram, kBarcodeLid)}), held);

        // The journal has all of it, newest first.
        const QJsonObject journal = QJsonDocument::fromJson(Run({"--json", "journal", "Barcode"}).out).object();
        const QJsonArray entries = journal["entries"].toArray();
        QVERIFY(entries.size() >= 3);
        QCOMPARE(entries[1].toObject()["code"].toInt(), 3);
        QCOMPARE(entries[1].toObject()["backup"].toString(), backup);
        QCOMPARE(entries[0].toObject()["program"].toString(), QString("radbench-cli"));
    }

    void plausibility_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QStringList>("lines");
        const QString faulty = TESTS_DIR "/View/faulty-curves.json";
        const QString tpcDip =
            "TPC               1850-1930MHz      PA_H: power 15.625 dBm at DAC 2890 does not rise above 16.125 dBm "
            "at DAC 2600";
        QTest::newRow("a healthy target") << QStringList{"check"} << 0 << QStringList{"plausible: TPC, RX Path Loss"};
        QTest::newRow("a faulty target")
            << QStringList{"--profile", faulty, "check"} << 5
            << QStringList{tpcDip,
                           "RX Path Loss      1850-1930MHz      LNA_H_LOSS jumps 4.75 dB from UARFCN 9383 to 9410, "
                           "more than 3 dB",
                           "RX Path Loss      1850-1930MHz      LNA_H_LOSS jumps 4.75 dB from UARFCN 9410 to 9437, "
                           "more than 3 dB"};
        QTest::newRow("a faulty target, a jump allowed")
            << QStringList{"--profile", faulty, "check", "--max-jump", "4.75"} << 5 << QStringList{tpcDip};
    }
    // A line rejects a unit by the exit code: 5 for implausible data.
    void plausibility()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, lines);
        const SRun run = Run(arguments << "--quiet");
        QTEST(run.exitCode, "exitCode");
        QCOMPARE(QString::fromUtf8(run.out).split('\n', Qt::SkipEmptyParts), lines);
        // The same over a file of the same data.
        const QString cal = m_dir.filePath("checked.ini");
        QVERIFY(Run(arguments.mid(0, arguments.indexOf("check")) + QStringList{"upload", "--file", cal, "--quiet"})
                    .exitCode == 0);
        const QStringList overFile =
            QStringList{"check", "--file", cal, "--quiet"} + arguments.mid(arguments.indexOf("check") + 1);
        QTEST(Run(overFile).exitCode, "exitCode");
    }

    // Two programs writing at once into one journal: every write is in it.
    void twoWritersOneJournal()
    {
        const QString journal = m_dir.filePath("shared.sqlite");
        const QString cal = m_dir.filePath("writers.ini");
        QVERIFY(TestFiles::Write(cal, TadcFile(3100) + "[Barcode]\nBarcode = W\n"));
        constexpr int kRounds = 4;
        QVector<QProcess *> writers;
        for (int writer = 0; writer < 2; ++writer) {
            auto *process = new QProcess(this);
            // Each writer downloads both items kRounds times, as fast as it can.
            QStringList script;
            for (int round = 0; round < kRounds; ++round)
                script << QString("'%1' --quiet --no-backup --journal '%2' --nvram '%3' download --file '%4'")
                              .arg(RADBENCH_CLI_PATH, journal, m_dir.filePath(QString("w%1.json").arg(writer)), cal);
            process->start("sh", {"-c", script.join(" && ")});
            writers << process;
        }
        for (QProcess *process : writers) {
            QVERIFY(process->waitForFinished(120000));
            QCOMPARE(process->exitCode(), 0);
        }
        const SRun listed = Run({"--journal", journal, "--csv", "journal"});
        QCOMPARE(listed.exitCode, 0);
        QCOMPARE(listed.out.count('\n'), 1 + 2 * kRounds * 2);
    }
};

QTEST_GUILESS_MAIN(TestRadbenchCli)
#include "tst_RadbenchCli.moc"
