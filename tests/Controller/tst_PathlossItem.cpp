// The RX path loss items of the three generations between the simulated
// target, the item and Cal/INI files, and the descriptor that picks one.

#include <QTemporaryDir>
#include <QtTest>

#include <cstring>
#include <memory>

#include "Descriptors/PathlossCalItem.h"
#include "SimScope.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"
#include "TestFiles.h"

namespace {

constexpr int kBands = CTdscdmaPathLoss::kBandCount;

// The target of a generation: "records" (NVRAM service), "commands" (four
// modes over layer 1) or "8-level", with or without extended AGC.
bool UseTarget(const QString &generation, bool agcEx, bool rxExtend = false)
{
    const char *profile = generation == "records" ? "legacy-v1" : generation == "commands" ? "v1-pathloss-v2" : "default";
    const QJsonObject patch{{"tdscdma", QJsonObject{{"agcEx", agcEx}, {"rxExtendMode", rxExtend}}}};
    const bool loaded = TavoSim::LoadProfile(profile) && TavoSim::PatchProfile(patch, TavoSim::Patch::Reset);
    TavoSim::LoadDatabase();
    CTdscdmaCore::GetInstance()->ResetCapability();
    return loaded;
}

// What the target holds for the path loss of every band group of a generation.
QList<QByteArray> Records(const QString &generation)
{
    QList<QByteArray> records;
    for (int band = 0; band < kBands; ++band) {
        const QString lid = generation == "records"    ? QString(CTdscdmaPathLoss::Lid(band))
                            : generation == "commands" ? QString("TL1_PATHLOSS_BAND%1").arg(band)
                                                       : QString("TL1_PATHLOSS8_BAND%1").arg(band);
        records << TavoSim::NvramRecord(lid);
    }
    return records;
}

// Every field of a band different, within the page's range either way.
_FTA_tl1cal_pathlossData_8level_T Pattern(int band)
{
    _FTA_tl1cal_pathlossData_8level_T data = {};
    for (int i = 0; i < 15; ++i)
        data.subbandMaxUarfcn[i] = uint16_t(9000 + band * 100 + i);
    for (int mode = 0; mode < 8; ++mode) {
        for (int i = 0; i < 15; ++i)
            data.subbandLoss[mode][i] = int16_t(band * 3 - mode * 2 + i - 12);
        for (int i = 0; i < 8; ++i)
            data.tempLoss[mode][i] = int16_t(mode - band - i);
    }
    return data;
}

// The same pattern in the four-mode record.
_FTA_tl1cal_pathlossData_T Pattern4(int band)
{
    const _FTA_tl1cal_pathlossData_8level_T wide = Pattern(band);
    _FTA_tl1cal_pathlossData_T data = {};
    std::memcpy(data.subbandMaxUarfcn, wide.subbandMaxUarfcn, sizeof data.subbandMaxUarfcn);
    std::memcpy(data.subbandLoss, wide.subbandLoss, sizeof data.subbandLoss);
    std::memcpy(data.tempLoss, wide.tempLoss, sizeof data.tempLoss);
    return data;
}

void Fill(CPathlossCalItem &item, int band)
{
    if (auto *v3 = qobject_cast<CTdscdmaPathLossV3 *>(&item.PathLoss()))
        v3->SetBandDataV3(band, Pattern(band));
    else
        item.PathLoss().SetBandData(band, Pattern4(band));
}

int Move(CPathlossCalItem &item, ECalDataMovement movement, TIniFile *file = nullptr)
{
    QString text;
    return item.Move(movement, file, text);
}

} // namespace

class TestPathlossItem : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    void roundTrip_data()
    {
        QTest::addColumn<QString>("generation");
        QTest::addColumn<bool>("agcEx");
        QTest::addColumn<QString>("item");
        QTest::newRow("NVRAM records, whole dB") << "records" << false << "CTdscdmaPathLoss";
        QTest::newRow("NVRAM records, 1/8 dB") << "records" << true << "CTdscdmaPathLoss";
        QTest::newRow("four-mode commands, 1/8 dB") << "commands" << true << "CTdscdmaPathLossV2";
        QTest::newRow("four-mode commands, whole dB") << "commands" << false << "CTdscdmaPathLossV2";
        QTest::newRow("8-level commands, 1/8 dB") << "8-level" << true << "CTdscdmaPathLossV3";
    }
    // Target → item → file; the target changed; file → new item → target
    // gives back every record byte for byte.
    void roundTrip()
    {
        QFETCH(QString, generation);
        QFETCH(bool, agcEx);
        QVERIFY(UseTarget(generation, agcEx, generation == "commands"));
        QTemporaryDir dir;
        const QString path = dir.filePath("pathloss.ini");
        CPathlossCalItem item;
        QTEST(QString(item.PathLoss().metaObject()->className()), "item");

        const QList<QByteArray> before = Records(generation);
        QVERIFY(!before.first().isEmpty());
        Fill(item, 0); // the records' form has three gain modes: an upload leaves the fourth as it was
        QCOMPARE(Move(item, ECalDataMovement::UploadFromFlash), 0);
        if (generation == "records") {
            const _FTA_tl1cal_pathlossData_T data = item.PathLoss().GetBandData(0);
            QVERIFY(!std::memcmp(data.subbandLoss[3], Pattern4(0).subbandLoss[3], sizeof data.subbandLoss[3]) &&
                    !std::memcmp(data.tempLoss[3], Pattern4(0).tempLoss[3], sizeof data.tempLoss[3]));
        }
        {
            TIniFile file(path);
            QCOMPARE(Move(item, ECalDataMovement::SaveToFile, &file), 0);
            QVERIFY(file.Save());
        }
        for (int band = 0; band < kBands; ++band)
            Fill(item, band);
        QCOMPARE(Move(item, ECalDataMovement::DownloadToFlash), 0);
        QVERIFY(Records(generation) != before);

        CPathlossCalItem fresh;
        TIniFile file(path);
        QCOMPARE(Move(fresh, ECalDataMovement::LoadFromFile, &file), 0);
        TavoSim::ClearCallLog();
        QCOMPARE(Move(fresh, ECalDataMovement::DownloadToFlash), 0);
        QCOMPARE(Records(generation), before);
        // Layer 1's writes all stand inside the target's integrity record.
        for (const TavoSim::CallRecord &call : TavoSim::CallLog()) {
            if (call.name.startsWith("AST_Tavo_NVRAM_Pathloss"))
                QVERIFY2(call.integrityScope > 0, qPrintable(call.name));
        }
        QVERIFY(!TavoSim::IsCalDataIntegrityOpen());
    }

    void units_data()
    {
        QTest::addColumn<bool>("agcEx");
        QTest::addColumn<int>("stored");
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("read"); // the text a file gives
        QTest::addColumn<int>("readBack");
        QTest::newRow("1/8 dB, negative") << true << -5 << "-0.625" << "-0.625" << -5;
        QTest::newRow("1/8 dB, a fraction towards zero") << true << 15 << "1.875" << "1.99" << 15;
        QTest::newRow("1/8 dB, below zero towards zero") << true << -15 << "-1.875" << "-1.99" << -15;
        QTest::newRow("whole dB, negative") << false << -5 << "-5" << "-5" << -5;
        // The same file on a target of the other unit.
        QTest::newRow("a 1/8 dB file on a whole dB target") << false << -5 << "-5" << "13.875" << 13;
        QTest::newRow("a whole dB file on a 1/8 dB target") << true << -5 << "-0.625" << "13" << 104;
    }
    // A loss as the file shows it on a target with and without extended AGC.
    void units()
    {
        QFETCH(bool, agcEx);
        QFETCH(int, stored);
        QFETCH(QString, read);
        QVERIFY(UseTarget("records", agcEx));
        QTemporaryDir dir;
        const QString path = dir.filePath("units.ini");
        CPathlossCalItem item;
        _FTA_tl1cal_pathlossData_T data = {};
        data.subbandLoss[1][0] = int16_t(stored);
        item.PathLoss().SetBandData(0, data);
        {
            TIniFile file(path);
            QCOMPARE(int(item.PathLoss().WriteToFileSingleBand(&file, 0)), 0);
            const QString losses =
                QString::fromStdString(file.ReadString("TDSCDMA 1850-1930MHz RX loss", "Subband RX loss middle mode", ""));
            QTEST(losses.section(',', 0, 0), "written");
            QCOMPARE(losses.count(','), 14);
            file.WriteString("TDSCDMA 1850-1930MHz RX loss", "Subband RX loss middle mode", read.toStdString());
            QVERIFY(file.Save());
        }
        CPathlossCalItem other;
        TIniFile file(path);
        QCOMPARE(int(other.PathLoss().ReadFromFileSingleBand(&file, 0)), 0);
        QTEST(int(other.PathLoss().GetBandData(0).subbandLoss[1][0]), "readBack");
        QCOMPARE(int(other.PathLoss().GetBandData(0).subbandLoss[1][1]), 0);
    }

    void failures_data()
    {
        QTest::addColumn<QString>("generation");
        QTest::addColumn<QString>("movement");
        QTest::addColumn<QString>("call");
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("dataValid");
        QTest::addColumn<int>("validBands");
        // A command fails for the second band group the target supports.
        QTest::newRow("8-level read") << "8-level" << "upload" << "AST_Tavo_NVRAM_Pathloss_8level_Read_r" << 3 << false
                                      << 1;
        QTest::newRow("four-mode read") << "commands" << "upload" << "AST_Tavo_NVRAM_Pathloss_Read_r" << 3 << true << 1;
        QTest::newRow("8-level write") << "8-level" << "download" << "AST_Tavo_NVRAM_Pathloss_8level_Write_r" << 3
                                       << true << 5;
    }
    // A failing command ends the movement with the error table's code; a
    // download closes the integrity record all the same; what an upload
    // leaves valid follows its generation. (The NVRAM records' failures are
    // the item base's: tst_TpcItem.)
    void failures()
    {
        QFETCH(QString, generation);
        QFETCH(QString, movement);
        QFETCH(QString, call);
        QVERIFY(UseTarget(generation, true, generation == "commands"));
        CPathlossCalItem item;
        if (movement == "download")
            QCOMPARE(Move(item, ECalDataMovement::UploadFromFlash), 0);
        int supported = 0, target = -1;
        CTdscdmaCapability capability;
        for (int band = 0; band < kBands && target < 0; ++band) {
            if (capability.IsBandGroupSupported(band) && ++supported == 2)
                target = band;
        }
        TavoSim::InjectFault({call, {QString("band=%1").arg(target)}, TAVO_ERR_FAILED, 1});
        QTEST(Move(item, movement == "upload" ? ECalDataMovement::UploadFromFlash : ECalDataMovement::DownloadToFlash),
              "code");
        QVERIFY(!TavoSim::IsCalDataIntegrityOpen());
        QTEST(item.PathLoss().IsDataValid(), "dataValid");
        int valid = 0;
        for (int band = 0; band < kBands; ++band)
            valid += item.PathLoss().IsBandValid(band) ? 1 : 0;
        QTEST(valid, "validBands");
        if (!item.PathLoss().IsDataValid()) {
            TavoSim::ClearCallLog();
            QCOMPARE(Move(item, ECalDataMovement::DownloadToFlash), 2);
            QCOMPARE(TavoSim::CallNames(), QStringList());
        }
    }

    // A target with the RX extend mode but no structure version: no item
    // moves its path loss; every movement says why, and touches nothing.
    void targetWithoutAnItem()
    {
        QVERIFY(TavoSim::LoadProfile("no-pathloss"));
        TavoSim::LoadDatabase();
        CTdscdmaCore::GetInstance()->ResetCapability();
        QTemporaryDir dir;
        const QString path = dir.filePath("none.ini");
        QVERIFY(TestFiles::Write(path, "[TDSCDMA 1850-1930MHz RX loss]\nSubband Max UARFCN = 1,2,3\n"));
        const QByteArray file = TestFiles::Read(path);
        CPathlossCalItem item;
        TavoSim::ClearCallLog();
        for (const ECalDataMovement movement : {ECalDataMovement::UploadFromFlash, ECalDataMovement::DownloadToFlash,
                                                ECalDataMovement::LoadFromFile, ECalDataMovement::SaveToFile}) {
            TIniFile ini(path);
            QString text;
            QCOMPARE(item.Move(movement, &ini, text), 2);
            QCOMPARE(text, QString(CPathlossCalItem::kNoItemMessage));
            ini.Save();
        }
        QCOMPARE(TavoSim::CallNames().filter(QRegularExpression("NVRAM|Pathloss")), QStringList());
        QCOMPARE(TestFiles::Read(path), file);
    }
};

QTEST_GUILESS_MAIN(TestPathlossItem)
#include "tst_PathlossItem.moc"
