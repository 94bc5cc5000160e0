// Backups before and the journal after writes to the simulated target, and
// the journal on its own: its order, its filter, its exports and two writers.

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>
#include <vector>

#include "GeneralCore.h"
#include "Safeguard/WriteJournal.h"
#include "Safeguard/WriteSafeguard.h"
#include "TIniFile.h"
#include "TavoSimControl.h"
#include "TdscdmaCore.h"
#include "TestFiles.h"

namespace {

const char *const kTadc = "[TDSCDMA Temperature Sensor]\nADC0 = 3000\nADC1 = 2900\nADC2 = 2800\nADC3 = 2700\n"
                          "ADC4 = 2600\nADC5 = 2500\nADC6 = 2400\nADC7 = 2300\n";

IRfCoreCalDataOperation *ControllerOf(const QString &item)
{
    if (CTdscdmaCore::GetInstance()->GetSupportItem().contains(item))
        return CTdscdmaCore::GetInstance();
    return CGeneralCore::GetInstance();
}

// One movement of `item`, waited for; its one result.
SEachItemOperationResult Move(const QString &item, ECalDataMovement movement, const QString &path = QString())
{
    IRfCoreCalDataOperation *controller = ControllerOf(item);
    TIniFile file(path);
    QObject receiver; // on this thread: the answer comes queued
    bool done = false;
    SEachItemOperationResult result{item, -1, "no answer"};
    const auto take = [&](bool, QVector<SEachItemOperationResult> results) {
        result = results.value(0, result);
        done = true;
    };
    if (movement == ECalDataMovement::LoadFromFile) {
        QObject::connect(controller, &IRfCoreCalDataOperation::Signal_LoadFromFileDone, &receiver, take);
        controller->LoadFromFile(&file, {item});
    } else {
        QObject::connect(controller, &IRfCoreCalDataOperation::Signal_DownloadToFlashDone, &receiver, take);
        controller->DownloadToFlash({item});
    }
    if (!QTest::qWaitFor([&done] { return done; }, 20000))
        qWarning("no answer to movement %d of %s", int(movement), qPrintable(item));
    return result;
}

// `text` from a Cal/INI file into `item` and on to the target.
SEachItemOperationResult Write(const QString &item, const QString &calFile)
{
    const SEachItemOperationResult loaded = Move(item, ECalDataMovement::LoadFromFile, calFile);
    return loaded.errorCode == 0 ? Move(item, ECalDataMovement::DownloadToFlash) : loaded;
}

// The first `bytes` of the record of `lid`; all of it for -1.
QByteArray Record(const QString &lid, int bytes)
{
    const QByteArray record = TavoSim::NvramRecord(lid);
    return bytes < 0 ? record : record.left(bytes);
}

SWriteJournalEntry Entry(const QString &item, int code, int second)
{
    return {QDateTime(QDate(2026, 11, 24), QTime(9, 0, second), Qt::UTC), item, "490154203237518", code,
            code ? "failed, \"badly\"" : QString(), "/tmp/b.ini", "test"};
}

} // namespace

class TestWriteSafeguard : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    CWriteSafeguard::SSettings Guarded(bool backup, const QString &folder, const QString &journal)
    {
        CWriteSafeguard::SSettings settings;
        settings.backup = backup;
        settings.backupFolder = folder.isEmpty() ? m_dir.filePath("backups") : folder;
        settings.journalFile = journal.isEmpty() ? m_dir.filePath("journal.sqlite") : journal;
        settings.program = "test";
        return settings;
    }

private slots:
    void init()
    {
        QVERIFY(TavoSim::LoadProfile("default"));
        TavoSim::LoadDatabase();
        CTdscdmaCore::GetInstance()->ResetCapability();
        CGeneralCore::GetInstance()->ResetCapability();
        QFile::remove(m_dir.filePath("journal.sqlite"));
    }
    void cleanup()
    {
        CWriteSafeguard::Instance()->Configure({});
        TavoSim::Reset();
    }

    void backupPutsBackWhatTheTargetHeld_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QByteArray>("cal");
        QTest::addColumn<QString>("lid");
        QTest::addColumn<int>("compared"); // the bytes of the record a file carries; -1: all
        QTest::newRow("Temperature ADC") << "Temperature ADC" << QByteArray(kTadc) << "NVRAM_EF_AST_TL1_TEMP_DAC_LID"
                                         << -1;
        // An IMEI record's seal after the text is the target's own.
        QTest::newRow("IMEI") << "IMEI" << QByteArray("[IMEI]\nIMEI = 352099001761481\nIMEI2 = 352099001761499\n")
                              << "NVRAM_EF_IMEI_IMEISV_LID" << 16;
        QTest::newRow("Barcode") << "Barcode" << QByteArray("[Barcode]\nBarcode = LINE7-0042\n")
                                 << "NVRAM_EF_BARCODE_NUM_LID" << -1;
    }
    // A write leaves a backup named in its result and journaled; that
    // backup, written back, gives the target its old record byte for byte.
    void backupPutsBackWhatTheTargetHeld()
    {
        QFETCH(QString, item);
        QFETCH(QString, lid);
        QFETCH(int, compared);
        CWriteSafeguard::Instance()->Configure(Guarded(true, {}, {}));
        QFETCH(QByteArray, cal);
        const QString calFile = m_dir.filePath("cal.ini");
        QVERIFY(TestFiles::Write(calFile, cal));
        const QByteArray before = Record(lid, compared);

        const SEachItemOperationResult written = Write(item, calFile);
        QCOMPARE(written.errorCode, 0);
        QVERIFY(QFileInfo(written.backupFile).isFile());
        QVERIFY(written.backupFile.startsWith(m_dir.filePath("backups/backup-")));
        QVERIFY(Record(lid, compared) != before);

        const SEachItemOperationResult restored = Write(item, written.backupFile);
        QVERIFY2(restored.errorCode == 0, qPrintable(restored.errorMessage));
        QCOMPARE(Record(lid, compared), before);
        QVERIFY(restored.backupFile != written.backupFile);

        const QVector<SWriteJournalEntry> entries = CWriteJournal(m_dir.filePath("journal.sqlite")).Entries(item);
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries[0].backupFile, restored.backupFile); // newest first
        QCOMPARE(entries[1].backupFile, written.backupFile);
        QCOMPARE(entries[1].program, QString("test"));
        QVERIFY(!entries[1].target.isEmpty());
    }

    void failedWrites_data()
    {
        QTest::addColumn<QString>("fault");   // a call that always fails
        QTest::addColumn<bool>("unwritableFolder");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message"); // how the result's text begins
        QTest::addColumn<bool>("backupNamed");
        QTest::newRow("the target's data cannot be read")
            << "TAVO_NVRAM_Read_r" << false << 3
            << "No backup of Barcode could be made, so nothing was written: the target's data cannot be read"
            << false;
        QTest::newRow("the backup cannot be written")
            << QString() << true << 50 << "No backup of Barcode could be made, so nothing was written: cannot write"
            << false;
        QTest::newRow("the write fails") << "TAVO_NVRAM_Write_r" << false << 3 << "" << true;
    }
    // A write that cannot be backed up is not made; a write that fails names
    // its backup. Either way the journal has it.
    void failedWrites()
    {
        QFETCH(QString, fault);
        QFETCH(bool, unwritableFolder);
        QFETCH(QString, message);
        QFETCH(bool, backupNamed);
        const QString folder = unwritableFolder ? "/proc/radbench/backups" : QString();
        CWriteSafeguard::Instance()->Configure(Guarded(true, folder, {}));
        const QString cal = m_dir.filePath("cal.ini");
        QVERIFY(TestFiles::Write(cal, "[Barcode]\nBarcode = LINE7-0042\n"));
        QCOMPARE(Move("Barcode", ECalDataMovement::LoadFromFile, cal).errorCode, 0);
        const QByteArray before = TavoSim::NvramRecord("NVRAM_EF_BARCODE_NUM_LID");
        if (!fault.isEmpty())
            TavoSim::FailAlways(fault);

        const SEachItemOperationResult result = Move("Barcode", ECalDataMovement::DownloadToFlash);
        QTEST(result.errorCode, "code");
        QVERIFY2(result.errorMessage.startsWith(message), qPrintable(result.errorMessage));
        QCOMPARE(!result.backupFile.isEmpty(), backupNamed);
        if (backupNamed)
            QVERIFY2(result.errorMessage.contains("What the target held before is in " + result.backupFile +
                                                  "; download that file to put it back."),
                     qPrintable(result.errorMessage));
        TavoSim::ClearFaults();
        QCOMPARE(TavoSim::NvramRecord("NVRAM_EF_BARCODE_NUM_LID"), before);
        const QVector<SWriteJournalEntry> entries = CWriteJournal(m_dir.filePath("journal.sqlite")).Entries();
        QCOMPARE(entries.size(), 1);
        QTEST(entries[0].code, "code");
        QCOMPARE(entries[0].backupFile, result.backupFile);
    }

    // Backups off: the write alone, still journaled. A journal that cannot
    // be opened is told of and does not stop the write.
    void withoutBackupOrJournal_data()
    {
        QTest::addColumn<bool>("backup");
        QTest::addColumn<QString>("journal");
        QTest::addColumn<bool>("journalFails");
        QTest::newRow("backups off") << false << QString() << false;
        QTest::newRow("journal cannot be opened") << true << "/proc/radbench/journal.sqlite" << true;
    }
    void withoutBackupOrJournal()
    {
        QFETCH(bool, backup);
        QFETCH(QString, journal);
        QFETCH(bool, journalFails);
        CWriteSafeguard::Instance()->Configure(Guarded(backup, {}, journal));
        QObject receiver;
        QList<QPair<SWriteJournalEntry, QString>> journaled;
        connect(CWriteSafeguard::Instance(), &CWriteSafeguard::Signal_Journaled, &receiver,
                [&journaled](SWriteJournalEntry entry, QString error) { journaled.append({entry, error}); });
        if (journalFails)
            QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("^The write journal: cannot make the folder"));
        const QString cal = m_dir.filePath("cal.ini");
        QVERIFY(TestFiles::Write(cal, kTadc));

        const SEachItemOperationResult result = Write("Temperature ADC", cal);
        QCOMPARE(result.errorCode, 0);
        QCOMPARE(result.backupFile.isEmpty(), !backup);
        QTRY_COMPARE(journaled.size(), 1);
        QCOMPARE(journaled[0].second.isEmpty(), !journalFails);
        QCOMPARE(journaled[0].first.item, QString("Temperature ADC"));
    }

    void journalReadsNewestFirst_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QStringList>("seconds");
        QTest::newRow("all") << QString() << QStringList{"3", "2", "1"};
        QTest::newRow("TPC alone") << "TPC" << QStringList{"3", "1"};
        QTest::newRow("an item never written") << "AFC" << QStringList();
    }
    void journalReadsNewestFirst()
    {
        QFETCH(QString, item);
        CWriteJournal journal(m_dir.filePath("journal.sqlite"));
        QVERIFY(journal.Entries().isEmpty()); // no file yet: nothing, and no file made
        QVERIFY(!QFile::exists(journal.Path()));
        for (const SWriteJournalEntry &entry : {Entry("TPC", 0, 1), Entry("IMEI", 3, 2), Entry("TPC", 0, 3)})
            QVERIFY(journal.Append(entry));
        QStringList seconds;
        for (const SWriteJournalEntry &entry : journal.Entries(item))
            seconds << QString::number(entry.time.time().second());
        QTEST(seconds, "seconds");
    }

    void exports_data()
    {
        QTest::addColumn<bool>("csv");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("CSV") << true
                             << QByteArray("time,item,target,success,code,message,backup,program\r\n"
                                           "2026-11-24T09:00:02.000Z,IMEI,490154203237518,no,3,"
                                           "\"failed, \"\"badly\"\"\",/tmp/b.ini,test\r\n");
        QTest::newRow("JSON") << false
                              << QByteArray("[{\"backup\":\"/tmp/b.ini\",\"code\":3,\"item\":\"IMEI\","
                                            "\"message\":\"failed, \\\"badly\\\"\",\"program\":\"test\","
                                            "\"success\":false,\"target\":\"490154203237518\","
                                            "\"time\":\"2026-11-24T09:00:02.000Z\"}]");
    }
    // What a spreadsheet and a script read back: quotes and commas survive.
    void exports()
    {
        QFETCH(bool, csv);
        const QVector<SWriteJournalEntry> entries{Entry("IMEI", 3, 2)};
        const QByteArray text = csv ? CWriteJournal::ToCsv(entries)
                                    : QJsonDocument::fromJson(CWriteJournal::ToJson(entries)).toJson(QJsonDocument::Compact);
        QTEST(text, "expected");
    }

    // Threads appending at once, each with its own connection: none is lost.
    void concurrentAppends()
    {
        CWriteJournal journal(m_dir.filePath("journal.sqlite"));
        // Plain threads: their joins order the counts for every checker.
        std::vector<int> failures(4, 0);
        std::vector<std::thread> writers;
        for (int writer = 0; writer < 4; ++writer)
            writers.emplace_back([&journal, &failures, writer] {
                for (int i = 0; i < 25; ++i)
                    failures[size_t(writer)] += journal.Append(Entry(QString("writer %1").arg(writer), 0, i % 60)) ? 0 : 1;
            });
        for (std::thread &writer : writers)
            writer.join();
        QCOMPARE(failures, std::vector<int>(4, 0));
        QCOMPARE(journal.Entries().size(), 100);
    }
};

QTEST_GUILESS_MAIN(TestWriteSafeguard)
#include "tst_WriteSafeguard.moc"
