// The AFC item between the simulated target, the item and Cal/INI files, and
// the builders between it and the "AFC Control" model.

#include <QTemporaryDir>
#include <QtTest>

#include "Items/TdscdmaAfc.h"
#include "SimScope.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"
#include "TestFiles.h"

namespace {

const char *const kSection = "TDSCDMA AFC control";

// A target of the given structure version (0: none), with or without the
// CAP record in its database.
bool UseTarget(int nvramVersion, bool withCap = true)
{
    QJsonObject capability{{"txClpcMode", 1}, {"ubin", true}};
    capability["nvramVersion"] = nvramVersion ? QJsonValue(nvramVersion) : QJsonValue();
    QJsonObject patch{{"tdscdma", QJsonObject{{"rfCapability", capability}}}};
    if (!withCap)
        patch["database"] = QJsonObject{{"withoutLids", QJsonArray{"NVRAM_EF_AST_TL1_CAP_DATA_LID"}}};
    const bool loaded = TavoSim::LoadProfile("default") && TavoSim::PatchProfile(patch, TavoSim::Patch::Reset);
    TavoSim::LoadDatabase();
    CTdscdmaCore::GetInstance()->ResetCapability();
    return loaded;
}

QString SectionText(TIniFile &file, const char *key)
{
    return QString::fromStdString(file.ReadString(kSection, key, "(none)"));
}

} // namespace

class TestAfcItem : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    void roundTrip_data()
    {
        QTest::addColumn<int>("nvramVersion");
        QTest::addColumn<bool>("withCap");
        QTest::addColumn<QString>("capKey"); // "CAP ID" in the file
        QTest::newRow("no structure version, CAP record") << 0 << true << "160";
        QTest::newRow("structure version 2: no CAP ID in the file") << 2 << true << "(none)";
        QTest::newRow("a database without the CAP record: the CAP ID stays") << 0 << false << "77";
    }
    // Target → item → file → new item → target; the CAP record goes only
    // where the database has it.
    void roundTrip()
    {
        QFETCH(int, nvramVersion);
        QFETCH(bool, withCap);
        QVERIFY(UseTarget(nvramVersion, withCap));
        QTemporaryDir dir;
        const QString path = dir.filePath("afc.ini");
        const QByteArray afc = TavoSim::NvramRecord("NVRAM_EF_AST_TL1_AFC_DATA_LID");
        const QByteArray cap = TavoSim::NvramRecord("NVRAM_EF_AST_TL1_CAP_DATA_LID");

        CTdscdmaAfc item;
        item.SetAfcData({1, 2, 77});
        TavoSim::ClearCallLog();
        QCOMPARE(int(item.UploadFromFlash()), 0);
        QCOMPARE(TavoSim::CallCount("TAVO_NVRAM_Read_r"), withCap ? 2 : 1);
        const TavoAfcRecord read = item.GetAfcData();
        QCOMPARE(int(read.slopeInverse), 1638);
        QCOMPARE(int(read.capId), withCap ? 160 : 77);
        {
            TIniFile file(path);
            QCOMPARE(int(item.WriteToFile(&file)), 0);
            QTEST(SectionText(file, "CAP ID"), "capKey");
            QCOMPARE(SectionText(file, "Slope"), QString("2.5006"));
            QVERIFY(file.Save());
        }
        item.SetAfcData({3000, 900, 200});
        QCOMPARE(int(item.DownloadToFlash()), 0);
        QVERIFY(TavoSim::NvramRecord("NVRAM_EF_AST_TL1_AFC_DATA_LID") != afc);

        CTdscdmaAfc fresh;
        TIniFile file(path);
        QCOMPARE(int(fresh.ReadFromFile(&file)), 0);
        QCOMPARE(int(fresh.GetAfcData().initAfcDac), int(read.initAfcDac));
        QCOMPARE(int(fresh.DownloadToFlash()), 0);
        QCOMPARE(TavoSim::NvramRecord("NVRAM_EF_AST_TL1_AFC_DATA_LID"), afc);
        if (withCap && nvramVersion == 0)
            QCOMPARE(TavoSim::NvramRecord("NVRAM_EF_AST_TL1_CAP_DATA_LID"), cap);
    }

    void readFromFile_data()
    {
        QTest::addColumn<int>("nvramVersion");
        QTest::addColumn<QByteArray>("keys");
        QTest::addColumn<int>("code");
        QTest::addColumn<QList<int>>("data"); // initAfcDac, slopeInverse, capId
        const QByteArray section = "[TDSCDMA AFC control]\n";
        QTest::newRow("defaults") << 0 << section << 0 << QList<int>{2550, 4096, 160};
        QTest::newRow("slope 5") << 0 << section + "Initial value = 4000\nSlope = 5\nCAP ID = 170" << 0
                                 << QList<int>{4000, 819, 170};
        QTest::newRow("a negative slope rounds away from zero") << 0 << section + "Slope = -5" << 0
                                                                << QList<int>{2550, uint16_t(-819), 160};
        QTest::newRow("slope 0: no inverse") << 0 << section + "Slope = 0" << 0 << QList<int>{2550, 0, 160};
        QTest::newRow("structure version 1 keeps the CAP ID") << 1 << section + "CAP ID = 170" << 0
                                                              << QList<int>{2550, 4096, 9};
        QTest::newRow("no section") << 0 << QByteArray("[TDSCDMA 1850-1930MHz TPC]\nA = 1\n") << 51
                                    << QList<int>{1, 2, 9};
    }
    void readFromFile()
    {
        QFETCH(int, nvramVersion);
        QFETCH(QByteArray, keys);
        QVERIFY(UseTarget(nvramVersion));
        QTemporaryDir dir;
        const QString path = dir.filePath("afc.ini");
        QVERIFY(TestFiles::Write(path, keys + "\n"));
        CTdscdmaAfc item;
        item.SetAfcData({1, 2, 9});
        TIniFile file(path);
        QTEST(int(item.ReadFromFile(&file)), "code");
        const TavoAfcRecord data = item.GetAfcData();
        QTEST((QList<int>{data.initAfcDac, data.slopeInverse, int(data.capId)}), "data");
    }

    // A stored inverse of 0 cannot be a slope: the file gets 4096, the item 1.
    void writeFromAZeroInverse()
    {
        QVERIFY(UseTarget(0));
        QTemporaryDir dir;
        CTdscdmaAfc item;
        item.SetAfcData({2550, 0, 160});
        TIniFile file(dir.filePath("afc.ini"));
        QCOMPARE(int(item.WriteToFile(&file)), 0);
        QCOMPARE(SectionText(file, "Slope"), QString("4096.0000"));
        QCOMPARE(int(item.GetAfcData().slopeInverse), 1);
        QCOMPARE(int(item.DownloadToFlash()), 2);
    }

};

QTEST_GUILESS_MAIN(TestAfcItem)
#include "tst_AfcItem.moc"
