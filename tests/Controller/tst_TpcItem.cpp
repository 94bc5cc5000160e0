// The TPC items of both record generations between the simulated target,
// the item and Cal/INI files, and through them the NVRAM upload and download
// every calibration item inherits from the item base.

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

#include "Descriptors/TpcCalItem.h"
#include "ErrorCodeInfo.h"
#include "Items/TdscdmaTpcV3.h"
#include "SimScope.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"
#include "TestFiles.h"

namespace {

constexpr int kBands = TdscdmaTpcBand::kCount;

// A target of the given record generation: "records" (NVRAM service) or
// "commands" (layer 1), with or without closed-loop power control.
bool UseTarget(const QString &generation, int txClpcMode, bool apcEx)
{
    QJsonObject capability{{"txClpcMode", txClpcMode}, {"ubin", true}};
    capability["nvramVersion"] = generation == "commands" ? 2 : 1;
    const QJsonObject patch{{"tdscdma", QJsonObject{{"apcEx", apcEx}, {"rfCapability", capability}}}};
    const bool loaded = TavoSim::LoadProfile("default") && TavoSim::PatchProfile(patch, TavoSim::Patch::Reset);
    TavoSim::LoadDatabase();
    CTdscdmaCore::GetInstance()->ResetCapability();
    return loaded;
}

// Every field of a band different, negative where the field is signed, and
// whole 1/32 dB so that the file's five decimals hold them exactly.
STdscdmaUITpcDataByBandV3 Pattern(int band)
{
    STdscdmaUITpcDataByBandV3 data = {};
    auto *words = reinterpret_cast<uint16_t *>(&data);
    for (size_t i = 0; i < sizeof data / 2; ++i)
        words[i] = uint16_t(band * 1000 + int(i) * 7 - 300);
    return data;
}

QList<QByteArray> TxDacRecords()
{
    QList<QByteArray> records;
    for (int band = 0; band < kBands; ++band)
        records << TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(band));
    return records;
}

QList<bool> ValidBands(const CTdscdmaTpc &item)
{
    QList<bool> valid;
    for (int band = 0; band < kBands; ++band)
        valid << item.IsBandValid(band);
    return valid;
}

bool Save(CTdscdmaTpc &item, const QString &path)
{
    TIniFile file(path);
    return item.WriteToFile(&file) == 0 && file.Save();
}

bool Load(CTdscdmaTpc &item, const QString &path)
{
    TIniFile file(path);
    return item.ReadFromFile(&file) == 0;
}

bool SameTxDac(const TavoTxDacRecord &a, const TavoTxDacRecord &b, bool withMaxPower)
{
    const size_t compared = withMaxPower ? sizeof a : offsetof(TavoTxDacRecord, maxPower);
    return std::memcmp(&a, &b, compared) == 0;
}

// The file as Python's INI reader sees it: the sections of the supported
// band groups and their keys, values in decimal dB.
void CheckWithAnotherReader(const QString &path, bool clpc, bool apcEx, bool v3)
{
    QStringList arguments{TPC_EXPORT_CHECK, path, clpc ? "1" : "0", apcEx ? "1" : "0", v3 ? "1" : "0"};
    CTdscdmaCapability capability;
    for (int band = 0; band < kBands; ++band) {
        if (capability.IsBandGroupSupported(band))
            arguments << TdscdmaTpcBand::Section(band);
    }
    QProcess python;
    python.start("python3", arguments);
    if (!python.waitForStarted())
        QSKIP("no python3 on this machine");
    QVERIFY(python.waitForFinished());
    QVERIFY2(python.exitCode() == 0, python.readAllStandardOutput().constData());
}

} // namespace

class TestTpcItem : public QObject {
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
        QTest::addColumn<int>("txClpcMode");
        QTest::addColumn<bool>("apcEx");
        QTest::newRow("NVRAM records, closed loop, APC ex") << "records" << 1 << true;
        QTest::newRow("NVRAM records, open loop") << "records" << 0 << false;
        QTest::newRow("layer 1 commands, closed loop") << "commands" << 1 << true;
        QTest::newRow("layer 1 commands, open loop") << "commands" << 2 << false;
    }
    // Target → item → file → new item → target, and file → item → file.
    void roundTrip()
    {
        QFETCH(QString, generation);
        QFETCH(int, txClpcMode);
        QFETCH(bool, apcEx);
        QVERIFY(UseTarget(generation, txClpcMode, apcEx));
        QTemporaryDir dir;
        const QString exported = dir.filePath("exported.ini"), reexported = dir.filePath("reexported.ini");
        CTpcCalItem descriptor;
        auto *v3 = qobject_cast<CTdscdmaTpcV3 *>(&descriptor.Tpc());
        QCOMPARE(bool(v3), generation == "commands");

        const QList<QByteArray> before = TxDacRecords();
        QCOMPARE(int(descriptor.Tpc().UploadFromFlash()), 0);
        const STdscdmaUITpcDataByBandV3 uploaded = v3 ? v3->GetBandDataV3(1) : STdscdmaUITpcDataByBandV3{};
        QVERIFY(Save(descriptor.Tpc(), exported));
        CheckWithAnotherReader(exported, txClpcMode == 1, apcEx, v3);
        CTpcCalItem other;
        QVERIFY(Load(other.Tpc(), exported));
        QCOMPARE(int(other.Tpc().DownloadToFlash()), 0);
        QCOMPARE(TxDacRecords(), before);
        if (v3) {
            CTpcCalItem fresh;
            QCOMPARE(int(fresh.Tpc().UploadFromFlash()), 0);
            const STdscdmaUITpcDataByBandV3 after = fresh.TpcV3Obj().GetBandDataV3(1);
            QVERIFY(std::memcmp(&after, &uploaded, sizeof after) == 0);
        }

        // Every field reaches the target and comes back through a file.
        for (int band = 0; band < kBands; ++band)
            v3 ? other.TpcV3Obj().SetBandDataV3(band, Pattern(band)) : other.Tpc().SetBandData(band, Pattern(band));
        QCOMPARE(int(other.Tpc().DownloadToFlash()), 0);
        CTpcCalItem last, fromFile;
        QCOMPARE(int(last.Tpc().UploadFromFlash()), 0);
        QVERIFY(Save(last.Tpc(), reexported) && Load(fromFile.Tpc(), reexported));
        for (int band = 0; band < kBands; ++band) {
            const STdscdmaUITpcDataByBandV3 expected = Pattern(band);
            const STdscdmaUITpcDataByBand got = fromFile.Tpc().GetBandData(band);
            QVERIFY2(SameTxDac(got.txDac, expected.txDac, fromFile.Tpc().IsMaxPaPowerFieldPresent(band)),
                     qPrintable(QString("band %1").arg(band)));
            if (txClpcMode == 1)
                QVERIFY(std::memcmp(&got.txClpc, &expected.txClpc, sizeof got.txClpc) == 0);
            if (v3) {
                QCOMPARE(fromFile.TpcV3Obj().GetBandDataV3(band).wantedPowerOffset, expected.wantedPowerOffset);
                QCOMPARE(fromFile.TpcV3Obj().GetBandDataV3(band).paMidPowerOffset, expected.paMidPowerOffset);
            }
        }
        QVERIFY(Save(fromFile.Tpc(), dir.filePath("again.ini")));
        QCOMPARE(TestFiles::Read(dir.filePath("again.ini")), TestFiles::Read(reexported));
    }

    void readFromFile_data()
    {
        QTest::addColumn<bool>("apcEx");
        QTest::addColumn<QByteArray>("content"); // null: no file object
        QTest::addColumn<int>("code");
        QTest::addColumn<QList<bool>>("validBands");
        QTest::addColumn<QString>("field"); // of band 1
        QTest::addColumn<QList<int>>("stored");
        const QList<bool> none{false, false, false, false, false}, band1{false, true, false, false, false};
        const auto band1Keys = [](const char *keys) { return "[TDSCDMA 2010-2025MHz TPC]\n" + QByteArray(keys); };
        QTest::newRow("no file") << true << QByteArray() << 50 << none << "" << QList<int>();
        QTest::newRow("no TPC section") << true << QByteArray("[TDSCDMA 2010-2025MHz RX loss]\nA = 1\n") << 51 << none
                                        << "" << QList<int>();
        QTest::newRow("two of five bands") << true
                                           << QByteArray("[TDSCDMA 1850-1930MHz TPC]\n[TDSCDMA 2300-2400MHz TPC]\n")
                                           << 0 << QList<bool>{true, false, false, false, true} << "" << QList<int>();
        QTest::newRow("fraction towards zero") << false << band1Keys("Power, PA low mode = 1.99999,-1.99999,0.09375")
                                               << 0 << band1 << "paPower low" << QList<int>{63, -63, 3, 0};
        QTest::newRow("garbage reads as zero") << false << band1Keys("Power, PA low mode = abc") << 0 << band1
                                               << "paPower low" << QList<int>{0, 0, 0, 0};
        QTest::newRow("hysteresis defaults") << false << band1Keys("START1 = 5") << 0 << band1 << "hysteresis"
                                             << QList<int>{5, 12, 24, 24};
        QTest::newRow("max power defaults") << false << band1Keys("") << 0 << band1 << "max" << QList<int>{752, 3190};
        QTest::newRow("max power offsets")
            << true << band1Keys("Max Power Offset (dB) = -1\nUPA Max Power Offset (dB) = 2047.96875") << 0 << band1
            << "max" << QList<int>{-32, 65535};
    }
    // What the keys of a section store, and what their absence stores. A
    // band without a section keeps its data, stays invalid and is not written
    // by the next download.
    void readFromFile()
    {
        QFETCH(bool, apcEx);
        QFETCH(QByteArray, content);
        QFETCH(QString, field);
        QFETCH(int, code);
        QVERIFY(UseTarget("records", 1, apcEx));
        QTemporaryDir dir;
        const QString path = dir.filePath("tpc.ini");
        CTdscdmaTpc item;
        item.SetBandData(2, Pattern(2));
        std::unique_ptr<TIniFile> file;
        if (!content.isNull()) {
            QVERIFY(TestFiles::Write(path, content + "\n"));
            file = std::make_unique<TIniFile>(path);
        }
        QCOMPARE(int(item.ReadFromFile(file.get())), code);
        QTEST(ValidBands(item), "validBands");
        const STdscdmaUITpcDataByBandV3 kept = Pattern(2);
        QVERIFY(SameTxDac(item.GetBandData(2).txDac, kept.txDac, true));
        const TavoTxDacRecord txDac = item.GetBandData(1).txDac;
        QList<int> stored;
        if (field == "paPower low")
            stored = QList<int>(txDac.paPower[2], txDac.paPower[2] + 4);
        else if (field == "hysteresis")
            stored = {txDac.hysteresisStart0, txDac.hysteresisEnd0, txDac.hysteresisStart1, txDac.hysteresisEnd1};
        else if (field == "max")
            stored = {txDac.maxPower, txDac.maxVgaDac};
        QTEST(stored, "stored");
        // Only a read that passes the checks makes the data good for the target.
        QCOMPARE(item.IsDataValid(), code == 0);
        if (code == 0) {
            const QByteArray band2 = TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(2));
            QCOMPARE(int(item.DownloadToFlash()), 0);
            QCOMPARE(TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(2)), band2);
        }
    }

    void failures_data()
    {
        QTest::addColumn<QString>("generation");
        QTest::addColumn<QString>("movement");
        QTest::addColumn<QString>("call"); // fails once: with TAVO_ERR_FAILED on upload, TAVO_ERR_BUSY on download
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("valid");   // bands 0 to n - 1 are valid afterwards
        QTest::addColumn<int>("written"); // TX DAC records of bands 0 to n - 1 reach the target
        const QString failed = "TAVO_RESULT = TAVO_ERR_FAILED: the target answered with a failure";
        const QString busy = "TAVO_RESULT = TAVO_ERR_BUSY: the target is in a state that refuses the command";
        QTest::newRow("record read of band 3") << "records" << "upload" << "TAVO_NVRAM_Read_r"
                                               << QStringList{"lid=NVRAM_EF_AST_TL1_TXCLPC_BAND38_LID"} << 3 << failed
                                               << 0 << 0;
        QTest::newRow("no database") << "records" << "upload" << "database" << QStringList() << 100
                                     << "TAVO_RESULT = TAVO_ERR_NO_DATABASE: no NVRAM database is loaded" << 0 << 0;
        QTest::newRow("decompose") << "records" << "upload" << "TAVO_NVRAM_DecomposeTxDac" << QStringList() << 101
                                   << failed << 0 << 0;
        QTest::newRow("record write of band 3") << "records" << "download" << "TAVO_NVRAM_Write_r"
                                                << QStringList{"lid=NVRAM_EF_AST_TL1_TXDAC_BAND38_LID"} << 3 << busy
                                                << kBands << 3;
        QTest::newRow("record read before the write") << "records" << "download" << "TAVO_NVRAM_Read_r"
                                                      << QStringList{"lid=NVRAM_EF_AST_TL1_TXDAC_BAND38_LID"} << 3
                                                      << busy << kBands << 0;
        QTest::newRow("compose") << "records" << "download" << "TAVO_NVRAM_ComposeTxClpc" << QStringList() << 102
                                 << busy << kBands << 0;
        QTest::newRow("command read of band 2") << "commands" << "upload" << "AST_Tavo_NVRAM_TX_Read_r"
                                                << QStringList{"band=2"} << 3 << "" << 2 << 0;
        // The target stops keeping TX CLPC data after the tool looked.
        QTest::newRow("command refused") << "commands" << "upload" << "closed loop gone" << QStringList() << 1
                                         << "result code != NVRAM_OPER_SUCCESS\nresult_code:31\nNVRAM_OPER_SUCCESS:30"
                                         << 0 << 0;
        QTest::newRow("command write of band 1") << "commands" << "download" << "AST_Tavo_NVRAM_TX_Write_r"
                                                 << QStringList{"band=1"} << 3 << "" << kBands << 0;
    }
    // A failing call gives its code and text, leaves the bands it did not
    // reach as they were on the target and in the item. With no band valid
    // the next download refuses without a call to the target.
    void failures()
    {
        QFETCH(QString, generation);
        QFETCH(QString, movement);
        QFETCH(QString, call);
        QFETCH(QStringList, args);
        QFETCH(int, valid);
        QFETCH(int, written);
        QVERIFY(UseTarget(generation, 1, true));
        CTpcCalItem descriptor;
        CTdscdmaTpc &item = descriptor.Tpc();
        const QList<QByteArray> before = TxDacRecords();
        const bool upload = movement == "upload";
        if (!upload) {
            QCOMPARE(int(item.UploadFromFlash()), 0);
            for (int band = 0; band < kBands; ++band)
                item.SetBandData(band, Pattern(band));
        }
        if (call == "database") {
            TavoSim::UnloadDatabase();
        } else if (call == "closed loop gone") {
            QCOMPARE(CTdscdmaCapability().GetTxClpcMode(), 1);
            const QJsonObject open{{"rfCapability", QJsonObject{{"txClpcMode", 0}}}};
            QVERIFY(TavoSim::PatchProfile({{"tdscdma", open}}));
        } else {
            TavoSim::InjectFault({call, args, upload ? TAVO_ERR_FAILED : TAVO_ERR_BUSY, 1});
        }

        QTEST(int(upload ? item.UploadFromFlash() : item.DownloadToFlash()), "code");
        QTEST(item.GetErrorMessage(), "text");
        QList<bool> validBands;
        for (int band = 0; band < kBands; ++band)
            validBands << (band < valid);
        QCOMPARE(ValidBands(item), validBands);
        const QList<QByteArray> after = TxDacRecords();
        for (int band = 0; generation == "records" && band < kBands; ++band)
            QCOMPARE(after[band] != before[band], band < written);
        if (valid == 0) {
            TavoSim::ClearCallLog();
            QCOMPARE(int(item.DownloadToFlash()), 2);
            QCOMPARE(item.GetErrorMessage(),
                     QString("Data is not valid now.\nYou should load it from file or upload it from flash."));
            QCOMPARE(TavoSim::CallNames(), QStringList());
        }
    }


};

QTEST_GUILESS_MAIN(TestTpcItem)
#include "tst_TpcItem.moc"
