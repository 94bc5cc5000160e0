// The TPC items of both record generations between the simulated target,
// the item and Cal/INI files.

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
        const QString exported = dir.filePath("exported.ini");
        CTpcCalItem descriptor;
        CTdscdmaTpc &item = descriptor.Tpc();
        QCOMPARE(bool(qobject_cast<CTdscdmaTpcV3 *>(&item)), generation == "commands");

        QByteArray before[kBands];
        for (int band = 0; band < kBands; ++band)
            before[band] = TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(band));
        QCOMPARE(int(item.UploadFromFlash()), 0);
        auto *v3 = qobject_cast<CTdscdmaTpcV3 *>(&item);
        const STdscdmaUITpcDataByBandV3 uploaded = v3 ? v3->GetBandDataV3(1) : STdscdmaUITpcDataByBandV3{};
        {
            TIniFile file(exported);
            QCOMPARE(int(item.WriteToFile(&file)), 0);
            QVERIFY(file.Save());
        }
        CheckWithAnotherReader(exported, txClpcMode == 1, apcEx, generation == "commands");
        CTpcCalItem other;
        {
            TIniFile file(exported);
            QCOMPARE(int(other.Tpc().ReadFromFile(&file)), 0);
        }
        QCOMPARE(int(other.Tpc().DownloadToFlash()), 0);
        for (int band = 0; band < kBands; ++band)
            QCOMPARE(TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(band)), before[band]);
        if (v3) {
            CTpcCalItem fresh;
            QCOMPARE(int(fresh.Tpc().UploadFromFlash()), 0);
            const STdscdmaUITpcDataByBandV3 after = fresh.TpcV3Obj().GetBandDataV3(1);
            QVERIFY(std::memcmp(&after, &uploaded, sizeof after) == 0);
        }

        // Every field reaches the target and comes back through a file.
        const QString reexported = dir.filePath("reexported.ini");
        for (int band = 0; band < kBands; ++band) {
            if (v3)
                other.TpcV3Obj().SetBandDataV3(band, Pattern(band));
            else
                other.Tpc().SetBandData(band, Pattern(band));
        }
        QCOMPARE(int(other.Tpc().DownloadToFlash()), 0);
        CTpcCalItem last;
        QCOMPARE(int(last.Tpc().UploadFromFlash()), 0);
        {
            TIniFile file(reexported);
            QCOMPARE(int(last.Tpc().WriteToFile(&file)), 0);
            QVERIFY(file.Save());
        }
        CTpcCalItem fromFile;
        {
            TIniFile file(reexported);
            QCOMPARE(int(fromFile.Tpc().ReadFromFile(&file)), 0);
        }
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
        TIniFile again(dir.filePath("again.ini"));
        QCOMPARE(int(fromFile.Tpc().WriteToFile(&again)), 0);
        QVERIFY(again.Save());
        QCOMPARE(TestFiles::Read(dir.filePath("again.ini")), TestFiles::Read(reexported));
    }

    void fileValues_data()
    {
        QTest::addColumn<bool>("apcEx");
        QTest::addColumn<QByteArray>("keys"); // of the 2010-2025MHz section
        QTest::addColumn<QString>("field");
        QTest::addColumn<QList<int>>("stored");
        QTest::newRow("two of four powers") << false << QByteArray("Power, PA low mode = 1.5,-1.5") << "paPower low"
                                            << QList<int>{48, -48, 0, 0};
        QTest::newRow("fraction towards zero") << false << QByteArray("Power, PA low mode = 1.99999,-1.99999,0.09375")
                                               << "paPower low" << QList<int>{63, -63, 3, 0};
        QTest::newRow("garbage reads as zero") << false << QByteArray("Power, PA low mode = abc") << "paPower low"
                                               << QList<int>{0, 0, 0, 0};
        QTest::newRow("largest and smallest power") << false << QByteArray("Power, PA low mode = 1023.96875,-1024")
                                                    << "paPower low" << QList<int>{32767, -32768, 0, 0};
        QTest::newRow("hysteresis defaults") << false << QByteArray("START1 = 5") << "hysteresis"
                                             << QList<int>{5, 12, 24, 24};
        QTest::newRow("max power defaults") << false << QByteArray("") << "max" << QList<int>{752, 3190};
        QTest::newRow("max power offsets") << true << QByteArray("Max Power Offset (dB) = -1\nUPA Max Power Offset (dB) = 2047.96875")
                                           << "max" << QList<int>{-32, 65535};
    }
    // What the keys of a section store, and what their absence stores.
    void fileValues()
    {
        QFETCH(bool, apcEx);
        QFETCH(QByteArray, keys);
        QFETCH(QString, field);
        QVERIFY(UseTarget("records", 1, apcEx));
        QTemporaryDir dir;
        const QString path = dir.filePath("tpc.ini");
        QVERIFY(TestFiles::Write(path, "[TDSCDMA 2010-2025MHz TPC]\n" + keys + "\n"));
        CTdscdmaTpc item;
        TIniFile file(path);
        QCOMPARE(int(item.ReadFromFile(&file)), 0);
        QVERIFY(item.IsBandValid(1) && !item.IsBandValid(0));
        const TavoTxDacRecord txDac = item.GetBandData(1).txDac;
        QList<int> stored;
        if (field == "paPower low")
            stored = QList<int>(txDac.paPower[2], txDac.paPower[2] + 4);
        else if (field == "hysteresis")
            stored = {txDac.hysteresisStart0, txDac.hysteresisEnd0, txDac.hysteresisStart1, txDac.hysteresisEnd1};
        else
            stored = {txDac.maxPower, txDac.maxVgaDac};
        QTEST(stored, "stored");
    }

    void failures_data()
    {
        QTest::addColumn<QString>("generation");
        QTest::addColumn<QString>("movement");
        QTest::addColumn<QString>("call");
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<bool>>("validBands");
        QTest::addColumn<int>("written"); // TX DAC records of bands 0 to n - 1 reach the target
        const QString failed = "TAVO_RESULT = TAVO_ERR_FAILED: the target answered with a failure";
        const QList<bool> none{false, false, false, false, false};
        QTest::newRow("record read of band 3") << "records" << "upload" << "TAVO_NVRAM_Read_r"
                                               << QStringList{"lid=NVRAM_EF_AST_TL1_TXCLPC_BAND38_LID"} << 3 << failed
                                               << none << 0;
        QTest::newRow("no database") << "records" << "upload" << "database" << QStringList() << 100
                                     << "TAVO_RESULT = TAVO_ERR_NO_DATABASE: no NVRAM database is loaded" << none << 0;
        QTest::newRow("decompose") << "records" << "upload" << "TAVO_NVRAM_DecomposeTxDac" << QStringList() << 101
                                   << failed << none << 0;
        QTest::newRow("record write of band 3") << "records" << "download" << "TAVO_NVRAM_Write_r"
                                                << QStringList{"lid=NVRAM_EF_AST_TL1_TXDAC_BAND38_LID"} << 3 << failed
                                                << QList<bool>{true, true, true, true, true} << 3;
        QTest::newRow("compose") << "records" << "download" << "TAVO_NVRAM_ComposeTxClpc" << QStringList() << 102
                                 << failed << QList<bool>{true, true, true, true, true} << 0;
        QTest::newRow("command read of band 2") << "commands" << "upload" << "AST_Tavo_NVRAM_TX_Read_r"
                                                << QStringList{"band=2"} << 3 << "" << QList<bool>{true, true, false, false, false} << 0;
        // The target stops keeping TX CLPC data after the tool looked.
        QTest::newRow("command refused") << "commands" << "upload" << "closed loop gone" << QStringList() << 1
                                         << "result code != NVRAM_OPER_SUCCESS\nresult_code:31\nNVRAM_OPER_SUCCESS:30"
                                         << none << 0;
        QTest::newRow("command write of band 1") << "commands" << "download" << "AST_Tavo_NVRAM_TX_Write_r"
                                                 << QStringList{"band=1"} << 3 << ""
                                                 << QList<bool>{true, true, true, true, true} << 0;
    }
    // A failing call gives its code and text, leaves the bands it did not
    // reach as they were on the target and in the item.
    void failures()
    {
        QFETCH(QString, generation);
        QFETCH(QString, movement);
        QFETCH(QString, call);
        QFETCH(QStringList, args);
        QFETCH(QList<bool>, validBands);
        QFETCH(int, written);
        QVERIFY(UseTarget(generation, 1, true));
        CTpcCalItem descriptor;
        CTdscdmaTpc &item = descriptor.Tpc();
        QByteArray before[kBands];
        for (int band = 0; band < kBands; ++band)
            before[band] = TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(band));
        if (movement == "download") {
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
            TavoSim::InjectFault({call, args, TAVO_ERR_FAILED, 1});
        }

        const uint32_t code = movement == "upload" ? item.UploadFromFlash() : item.DownloadToFlash();
        QTEST(int(code), "code");
        QTEST(item.GetErrorMessage(), "text");
        QList<bool> valid;
        for (int band = 0; band < kBands; ++band)
            valid << item.IsBandValid(band);
        QCOMPARE(valid, validBands);
        if (generation == "records") {
            for (int band = 0; band < kBands; ++band)
                QCOMPARE(TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(band)) != before[band], band < written);
        }
    }

    void fileSections_data()
    {
        QTest::addColumn<QByteArray>("content"); // null: no file object
        QTest::addColumn<int>("code");
        QTest::addColumn<QList<bool>>("validBands");
        QTest::newRow("no file") << QByteArray() << 50 << QList<bool>{false, false, false, false, false};
        QTest::newRow("no TPC section") << QByteArray("[TDSCDMA 2010-2025MHz RX loss]\nA = 1\n") << 51
                                        << QList<bool>{false, false, false, false, false};
        QTest::newRow("two of five bands") << QByteArray("[TDSCDMA 1850-1930MHz TPC]\n[TDSCDMA 2300-2400MHz TPC]\n") << 0
                                           << QList<bool>{true, false, false, false, true};
    }
    // A band without a section keeps its data, stays invalid and is not
    // written by the next download.
    void fileSections()
    {
        QFETCH(QByteArray, content);
        QVERIFY(UseTarget("records", 1, true));
        QTemporaryDir dir;
        const QString path = dir.filePath("tpc.ini");
        CTdscdmaTpc item;
        item.SetBandData(2, Pattern(2));
        std::unique_ptr<TIniFile> file;
        if (!content.isNull()) {
            QVERIFY(TestFiles::Write(path, content));
            file = std::make_unique<TIniFile>(path);
        }
        QTEST(int(item.ReadFromFile(file.get())), "code");
        QList<bool> valid;
        for (int band = 0; band < kBands; ++band)
            valid << item.IsBandValid(band);
        QTEST(valid, "validBands");
        const STdscdmaUITpcDataByBandV3 kept = Pattern(2);
        QVERIFY(SameTxDac(item.GetBandData(2).txDac, kept.txDac, true));
        if (item.IsDataValid()) {
            const QByteArray band2 = TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(2));
            TavoSim::ClearCallLog();
            QCOMPARE(int(item.DownloadToFlash()), 0);
            QCOMPARE(TavoSim::NvramRecord(TdscdmaTpcBand::TxDacLid(2)), band2);
        }
    }
};

QTEST_GUILESS_MAIN(TestTpcItem)
#include "tst_TpcItem.moc"
