// The identity items of the general controller: the IMEIs and the barcode
// between the simulated target's NVRAM, the items and Cal/INI files.

#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

#include "GeneralCore.h"
#include "Items/Barcode.h"
#include "Items/IMEI.h"
#include "TIniFile.h"
#include "TavoSimControl.h"
#include "TestFiles.h"

namespace {

const char *const kImeiLid = "NVRAM_EF_IMEI_IMEISV_LID";

// The default target whose database describes `databaseCount` IMEI records
// and which holds `targetCount` of them, telling that number or not.
bool UseTarget(int databaseCount, int targetCount, bool tellsCount)
{
    const QJsonObject patch{
        {"database", QJsonObject{{"recordCounts", QJsonObject{{kImeiLid, databaseCount}}}}},
        {"nvram", QJsonObject{{"imeiRecordCount", tellsCount},
                              {"target", QJsonObject{{kImeiLid, QJsonObject{{"count", targetCount}}}}}}}};
    const bool loaded = TavoSim::LoadProfile("default") && TavoSim::PatchProfile(patch, TavoSim::Patch::Reset);
    TavoSim::LoadDatabase();
    CGeneralCore::GetInstance()->ResetCapability();
    return loaded;
}

// The keys of a file, in order.
QStringList Keys(const QString &path)
{
    QStringList keys;
    for (const QByteArray &line : TestFiles::Read(path).split('\n')) {
        if (line.contains('='))
            keys << QString::fromLatin1(line.left(line.indexOf('=')).trimmed());
    }
    return keys;
}

} // namespace

class TestImeiBarcode : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { TavoSim::Reset(); }

    void recordCount_data()
    {
        QTest::addColumn<int>("databaseCount");
        QTest::addColumn<int>("targetCount");
        QTest::addColumn<bool>("tellsCount");
        QTest::addColumn<QString>("fault"); // a call that fails
        QTest::addColumn<QStringList>("keys");
        const QStringList two{"IMEI", "IMEI2"};
        QTest::newRow("the target's count wins") << 1 << 2 << true << QString() << two;
        QTest::newRow("the database's, when the target does not tell") << 2 << 2 << false << QString() << two;
        QTest::newRow("the database's, when the target's query fails")
            << 2 << 3 << true << "TAVO_MISC_GetIMEIRecNum_r" << two;
        QTest::newRow("1, when neither answers") << 2 << 2 << false << "TAVO_NVRAM_GetRecordCount" << QStringList{"IMEI"};
    }
    void recordCount()
    {
        QFETCH(int, databaseCount);
        QFETCH(int, targetCount);
        QFETCH(bool, tellsCount);
        QFETCH(QString, fault);
        QVERIFY(UseTarget(databaseCount, targetCount, tellsCount));
        if (!fault.isEmpty())
            TavoSim::FailAlways(fault);
        QTemporaryDir dir;
        CIMEI item;
        QCOMPARE(int(item.UploadFromFlash()), 0);
        QCOMPARE(item.GetImei(0), QString("3520990012345670"));
        TIniFile file(dir.filePath("imei.ini"));
        QCOMPARE(int(item.WriteToFile(&file)), 0);
        QVERIFY(file.Save());
        QTEST(Keys(dir.filePath("imei.ini")), "keys");
    }

    // More records than the tool supports: nothing of the target is read.
    void elevenRecords()
    {
        QVERIFY(UseTarget(1, 11, true));
        TavoSim::ClearCallLog();
        CIMEI item;
        QCOMPARE(int(item.UploadFromFlash()), 1);
        QCOMPARE(item.GetErrorMessage(), QString("IMEI number queried from target or DB = 11\nIMEI number support in "
                                                 "the tool = 10\nPlease update the tool version."));
        QCOMPARE(TavoSim::CallCount("TAVO_NVRAM_Read_r"), 0);
    }

    void download_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("report");
        QTest::addColumn<QStringList>("target"); // the IMEIs the target then holds
        const QString done = "\nIMEI %1| Downloaded to flash successfully.";
        QTest::newRow("both") << QByteArray("IMEI = 111111111111111\nIMEI2 = 222222222222222\nIMEI3 = 3") << 0
                              << done.arg(1) + done.arg(2) << QStringList{"111111111111111", "222222222222222"};
        QTest::newRow("the second left out") << QByteArray("IMEI = 111111111111111") << 103
                                             << done.arg(1) + "\nIMEI 2| Not downloaded."
                                             << QStringList{"111111111111111", "3520990012345670"};
    }
    // A file's IMEIs to a two-record target: keys beyond its records are not
    // taken, a record without a key is not written.
    void download()
    {
        QFETCH(QByteArray, file);
        QVERIFY(UseTarget(2, 2, true));
        QTemporaryDir dir;
        QVERIFY(TestFiles::Write(dir.filePath("imei.ini"), "[IMEI]\n" + file + "\n"));
        CIMEI item;
        TIniFile ini(dir.filePath("imei.ini"));
        QCOMPARE(int(item.ReadFromFile(&ini)), 0);
        QTEST(int(item.DownloadToFlash()), "code");
        QTEST(item.GetErrorMessage(), "report");
        CIMEI fresh;
        QCOMPARE(int(fresh.UploadFromFlash()), 0);
        QTEST((QStringList{fresh.GetImei(0), fresh.GetImei(1)}), "target");
    }

    void barcode_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("target");
        QTest::newRow("a barcode") << QByteArray("Barcode = SN-42") << "SN-42";
        QTest::newRow("over-long: cut to 63") << "Barcode = " + QByteArray(70, 'x') << QString(63, 'x');
        QTest::newRow("empty: 63 zeros") << QByteArray("Barcode =") << QString();
    }
    // File → target → fresh item → file.
    void barcode()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, target);
        QVERIFY(UseTarget(2, 2, false));
        QTemporaryDir dir;
        QVERIFY(TestFiles::Write(dir.filePath("in.ini"), "[Barcode]\n" + file + "\n"));
        CBarcode item;
        TIniFile in(dir.filePath("in.ini"));
        QCOMPARE(int(item.ReadFromFile(&in)), 0);
        QCOMPARE(int(item.DownloadToFlash()), 0);
        CBarcode fresh;
        QCOMPARE(int(fresh.UploadFromFlash()), 0);
        QCOMPARE(fresh.GetBarcode(), target);
        TIniFile out(dir.filePath("out.ini"));
        QCOMPARE(int(fresh.WriteToFile(&out)), 0);
        QCOMPARE(QString::fromStdString(out.ReadString("Barcode", "Barcode", "-")), target);
    }

    // A failing read of the second record: the library's text alone.
    void failingRead()
    {
        QVERIFY(UseTarget(2, 2, false));
        TavoSim::InjectFault({"TAVO_NVRAM_Read_r", {"record=2"}});
        CIMEI item;
        QCOMPARE(int(item.UploadFromFlash()), 3);
        QCOMPARE(item.GetErrorMessage(), QString(TAVO_GetResultText(TAVO_ERR_FAILED)));
        QVERIFY(!item.IsDataValid());
    }
};

QTEST_GUILESS_MAIN(TestImeiBarcode)
#include "tst_ImeiBarcode.moc"
