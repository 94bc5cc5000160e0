// What moving the TPC data costs, against the bare record read of one band
// and against loading the Cal/INI file alone, for both record generations.
// Run: build/bin/bench_TpcData [-tickcounter]
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

#include "Descriptors/TpcCalItem.h"
#include "TIniFile.h"
#include "TavoApp.h"
#include "TavoTargetAccess.h"
#include "TavoSimControl.h"
#include "TdscdmaCore.h"

class BenchTpcData : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void bareRecordRead_data() { Generations(); }
    void bareRecordRead();
    void uploadAllBands_data() { Generations(); }
    void uploadAllBands();
    void exportFile_data() { Generations(); }
    void exportFile();
    void importFile_data() { Generations(); }
    void importFile();
    void loadFileAlone_data() { Generations(); }
    void loadFileAlone();

private:
    static void Generations();
    // The target of the row's generation, and a full export of it.
    void UseTarget();

    QTemporaryDir m_dir;
    QString m_file;
};

void BenchTpcData::initTestCase()
{
    QLoggingCategory::setFilterRules("radbench.*.debug=false\ndefault.debug=false");
    QVERIFY(m_dir.isValid());
}

void BenchTpcData::Generations()
{
    QTest::addColumn<int>("nvramVersion");
    QTest::newRow("NVRAM records") << 1;
    QTest::newRow("layer 1 commands") << 2;
}

void BenchTpcData::UseTarget()
{
    QFETCH(int, nvramVersion);
    const QJsonObject capability{{"txClpcMode", 1}, {"ubin", true}, {"nvramVersion", nvramVersion}};
    QVERIFY(TavoSim::LoadProfile("default"));
    QVERIFY(TavoSim::PatchProfile({{"tdscdma", QJsonObject{{"rfCapability", capability}}}}, TavoSim::Patch::Reset));
    TavoSim::LoadDatabase();
    CTdscdmaCore::GetInstance()->ResetCapability();
    m_file = m_dir.filePath(QString("tpc-%1.ini").arg(nvramVersion));
    QFile::remove(m_file);
    CTpcCalItem item;
    QCOMPARE(int(item.Tpc().UploadFromFlash()), 0);
    TIniFile file(m_file);
    QCOMPARE(int(item.Tpc().WriteToFile(&file)), 0);
    QVERIFY(file.Save());
}

void BenchTpcData::bareRecordRead()
{
    QFETCH(int, nvramVersion);
    UseTarget();
    const int handle = CTavoTargetAccess().GetHandle();
    if (nvramVersion == 2) {
        uint8_t request[8] = {1, 0, 2, 0, 0xC8, 0xAB, 0, 0};
        uint8_t confirm[240] = {};
        QBENCHMARK { AST_Tavo_NVRAM_TX_Read_r(handle, 10000, request, confirm); }
    } else {
        unsigned char buffer[228] = {};
        const SNvramAccessRequest request{"NVRAM_EF_AST_TL1_TXDAC_BAND34_LID", 1, sizeof buffer, buffer};
        SNvramAccessConfirm confirm{};
        QBENCHMARK { TAVO_NVRAM_Read_r(handle, 10000, &request, &confirm); }
    }
}

void BenchTpcData::uploadAllBands()
{
    UseTarget();
    CTpcCalItem item;
    QBENCHMARK { item.Tpc().UploadFromFlash(); }
}

void BenchTpcData::exportFile()
{
    UseTarget();
    CTpcCalItem item;
    QCOMPARE(int(item.Tpc().UploadFromFlash()), 0);
    const QString path = m_dir.filePath("export.ini");
    QBENCHMARK {
        QFile::remove(path);
        TIniFile file(path);
        item.Tpc().WriteToFile(&file);
        file.Save();
    }
}

void BenchTpcData::importFile()
{
    UseTarget();
    CTpcCalItem item;
    QBENCHMARK {
        TIniFile file(m_file);
        item.Tpc().ReadFromFile(&file);
    }
}

void BenchTpcData::loadFileAlone()
{
    UseTarget();
    QBENCHMARK {
        TIniFile file(m_file);
        file.IsSectionExist("TDSCDMA 1850-1930MHz TPC");
    }
}

QTEST_GUILESS_MAIN(BenchTpcData)
#include "bench_TpcData.moc"
