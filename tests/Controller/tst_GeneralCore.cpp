// The general controller and its clock and temperature items between the
// simulated target, the items and Cal/INI files.

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

#include "GeneralCore.h"
#include "Items/GpsCoClock.h"
#include "Items/GsmDcxoLpm.h"
#include "Items/MmrfAfc.h"
#include "JsonPath.h"
#include "ModelUpdateResult.h"
#include "MovementLog.h"
#include "NvramRecords.h"
#include "TIniFile.h"
#include "TestFiles.h"

namespace {

constexpr int32_t kNoSlope = std::numeric_limits<int32_t>::min();

// The target of `profile`, changed by `patch`, with its database loaded.
bool UseTarget(const QString &profile, const QJsonObject &patch = {})
{
    const bool loaded = TavoSim::LoadProfile(profile) &&
                        (patch.isEmpty() || TavoSim::PatchProfile(patch, TavoSim::Patch::Reset));
    TavoSim::LoadDatabase();
    CGeneralCore::GetInstance()->ResetCapability();
    return loaded;
}

// A target whose layer 1 keeps the AFC data in `version`.
QJsonObject AfcByL1(int version, bool dcxoLpm)
{
    return {{"multiRat", QJsonObject{{"afcByL1", true}, {"afcVersion", version}, {"dcxoLpm", dcxoLpm}}}};
}

QList<int> Fields(const SMmrfAfcData &data)
{
    return {int(data.initAfcDac), data.slope, int(data.capId), int(data.cload), data.aac};
}

// A model of the AFC page's response group: the members named, each with a
// default value and the current value given (a null text: not in the model).
std::string AfcModel(const QStringList &values)
{
    QJsonObject members, current;
    const char *names[] = {"initAfcdac", "slope", "capId"};
    for (int i = 0; i < values.size(); ++i) {
        if (values[i].isNull())
            continue;
        members.insert(names[i], QJsonObject{{"trait", QJsonObject{{"defaultValue", ""}}}});
        current.insert(names[i], values[i]);
    }
    const QJsonObject group{{"memberProperty", members}, {"memberValue", current}};
    const QJsonObject model{{"cmdIf", QJsonObject{{"response", QJsonObject{{"group1", group}}}}}};
    return QJsonDocument(model).toJson(QJsonDocument::Compact).toStdString();
}

// The default values of a model's response members, or the model's text
// when it has none of them (a failure).
QString Shown(const std::string &model)
{
    const QJsonObject members =
        GetJsonValueConst(QJsonDocument::fromJson(QByteArray::fromStdString(model)).object(),
                          "cmdIf.response.group1.memberProperty")
            .toObject();
    if (members.isEmpty())
        return QString::fromStdString(model);
    QStringList defaults;
    for (const char *name : {"initAfcdac", "slope", "capId"})
        defaults << GetJsonValueConst(members, QString(name) + ".trait.defaultValue").toString("-");
    return defaults.join(' ');
}

// Runs one movement of the general controller to its end; its results as
// "name:code:message", and whether all succeeded.
QStringList Run(ECalDataMovement movement, const QStringList &items, TIniFile *file = nullptr, bool *allOk = nullptr)
{
    CGeneralCore *core = CGeneralCore::GetInstance();
    SMovementLog log(core);
    switch (movement) {
    case ECalDataMovement::UploadFromFlash:
        core->UploadFromFlash(items);
        break;
    case ECalDataMovement::DownloadToFlash:
        core->DownloadToFlash(items);
        break;
    case ECalDataMovement::LoadFromFile:
        core->LoadFromFile(file, items);
        break;
    case ECalDataMovement::SaveToFile:
        core->SaveToFile(file, items);
        break;
    }
    if (!QTest::qWaitFor([&log] { return !log.done.isEmpty(); }, 5000))
        return {"no end"};
    if (allOk)
        *allOk = log.isAllSuccess;
    return log.results;
}

QStringList Succeeded(const QStringList &items)
{
    QStringList results;
    for (const QString &item : items)
        results << item + ":0:";
    return results;
}

// The target's clock and temperature data in layer 1, on the E-RF side and
// in the co-clock's NVRAM record.
const QStringList kRecords{"MMRF_AFC", "MMRF_GPS_CO_CLOCK", "ERF_GPS_CO_CLOCK", "MMRF_TADC",
                           "NVRAM_EF_GPS_CO_CLOCK_DATA_LID"};

// Gives every one of them other values than the target had.
bool ChangeTargetData()
{
    QJsonArray table;
    for (int i = 0; i < 64; ++i)
        table << 9 + i;
    const QJsonObject records{
        {"MMRF_AFC", QJsonObject{{"initAfcDac", 1}, {"aac", 2}, {"slope", 3}, {"capId", 4}, {"cload", 5}}},
        {"MMRF_GPS_CO_CLOCK", QJsonObject{{"c0", 6}, {"c1", 7}, {"coefficient2", 8}, {"coefficient3", 9}}},
        {"ERF_GPS_CO_CLOCK", QJsonObject{{"c0", 0.5}, {"c1", 0.75}}},
        {"MMRF_TADC", QJsonObject{{"table", table}}},
        {"NVRAM_EF_GPS_CO_CLOCK_DATA_LID", QJsonObject{{"C0", 2.0}, {"C1", 3.0}, {"initU", 4.0}, {"lastU", 5.0}}}};
    QJsonObject target;
    for (auto it = records.begin(); it != records.end(); ++it) {
        if (!TavoSim::NvramRecord(it.key()).isEmpty())
            target.insert(it.key(), it.value());
    }
    return TavoSim::PatchProfile({{"nvram", QJsonObject{{"records", target}}}});
}

} // namespace

class TestGeneralCore : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        TavoSim::Reset();
        CGeneralCore::GetInstance()->ResetCapability();
    }

    void afcFromFile_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<bool>("dcxoLpm");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("code");
        QTest::addColumn<QList<int>>("data"); // initAfcDac, slope, capId, cload, aac
        const QByteArray dcxo = "[DCXO low power mode data]\ncload = 70000\n";
        QTest::newRow("version 3") << 3 << true
                                   << "[MMRF AFC control]\nInitial value = 4000\nSlope = 5\ncap_id = 40\naac = -7\n" + dcxo
                                   << 0 << QList<int>{4000, 819, 40, 70000, -7};
        QTest::newRow("defaults") << 3 << true << QByteArray("[MMRF AFC control]\n") << 0
                                  << QList<int>{4100, 4096, 31, 90000, 0};
        QTest::newRow("a negative slope rounds away from zero")
            << 1 << false << QByteArray("[MMRF AFC control]\nSlope = -5\n") << 0 << QList<int>{4100, -819, 31, 4, 5};
        QTest::newRow("slope 0 has no stored form")
            << 1 << false << QByteArray("[MMRF AFC control]\nSlope = 0\n") << 0 << QList<int>{4100, kNoSlope, 31, 4, 5};
        QTest::newRow("older sections") << 2 << false
                                        << QByteArray("[AFC control]\nInitial value = 3000\nSlope = 2.5\n"
                                                      "[Crystal AFC control]\ncap_id = 50\n")
                                        << 0 << QList<int>{3000, 1638, 50, 4, 5};
        QTest::newRow("older sections without the crystal's")
            << 2 << false << QByteArray("[AFC control]\nSlope = 2.5\n") << 51 << QList<int>{1, 2, 3, 4, 5};
        QTest::newRow("older sections without the low power mode's")
            << 2 << true << QByteArray("[AFC control]\n[Crystal AFC control]\n") << 51 << QList<int>{1, 2, 3, 4, 5};
    }
    void afcFromFile()
    {
        QFETCH(int, version);
        QFETCH(bool, dcxoLpm);
        QFETCH(QByteArray, text);
        QVERIFY(UseTarget("default", AfcByL1(version, dcxoLpm)));
        QTemporaryDir dir;
        QVERIFY(TestFiles::Write(dir.filePath("afc.ini"), text));
        CMmrfAfc item;
        item.SetAfcData({1, 2, 3, 4, 5});
        TIniFile file(dir.filePath("afc.ini"));
        QTEST(int(item.ReadFromFile(&file)), "code");
        QTEST(Fields(item.GetAfcData()), "data");
    }

    void afcToFile_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<bool>("dcxoLpm");
        QTest::addColumn<QStringList>("keys"); // Slope, aac, cload
        QTest::newRow("version 3 with the low power mode") << 3 << true << QStringList{"5.0012", "-7", "70000"};
        QTest::newRow("version 2 without it") << 2 << false << QStringList{"5.0012", "-", "-"};
        QTest::newRow("version 1") << 1 << true << QStringList{"5.0012", "-", "-"};
    }
    void afcToFile()
    {
        QFETCH(int, version);
        QFETCH(bool, dcxoLpm);
        QVERIFY(UseTarget("default", AfcByL1(version, dcxoLpm)));
        QTemporaryDir dir;
        CMmrfAfc item;
        item.SetAfcData({4000, 819, 40, 70000, -7});
        TIniFile file(dir.filePath("afc.ini"));
        QCOMPARE(int(item.WriteToFile(&file)), 0);
        const QStringList keys{QString::fromStdString(file.ReadString("MMRF AFC control", "Slope", "-")),
                               QString::fromStdString(file.ReadString("MMRF AFC control", "aac", "-")),
                               QString::fromStdString(file.ReadString("DCXO low power mode data", "cload", "-"))};
        QTEST(keys, "keys");
        QVERIFY(!file.IsKeyExist("MMRF AFC control", "RF Chip ID"));
    }

    void itemLists_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QJsonObject>("patch");
        QTest::addColumn<QStringList>("target");
        QTest::addColumn<QStringList>("file");
        const QJsonObject noGpsLid{{"database", QJsonObject{{"withoutLids", QJsonArray{"NVRAM_EF_GPS_CO_CLOCK_DATA_LID"}}}}};
        QTest::newRow("everything by layer 1")
            << "modern-l1" << QJsonObject()
            << QStringList{"IMEI", "Barcode", "GPS Co-Clock", "MultiRat Tadc", "MMRF AFC", "MMRF Self Cal"}
            << QStringList{"IMEI", "GPS Co-Clock", "MultiRat Tadc"};
        QTest::newRow("co-clock by E-RF and NVRAM") << "default" << QJsonObject()
                                                    << QStringList{"IMEI", "Barcode", "GPS Co-Clock", "MMRF Self Cal"}
                                                    << QStringList{"IMEI", "GPS Co-Clock"};
        QTest::newRow("co-clock by NVRAM") << "legacy-v1" << QJsonObject()
                                           << QStringList{"IMEI", "Barcode", "GPS Co-Clock"}
                                           << QStringList{"IMEI", "GPS Co-Clock"};
        QTest::newRow("no home for the co-clock")
            << "legacy-v1" << noGpsLid << QStringList{"IMEI", "Barcode"} << QStringList{"IMEI"};
        QTest::newRow("a C2K modem") << "c2k-modem" << QJsonObject() << QStringList() << QStringList();
    }
    // The file holds the co-clock, the TADC tables and the older AFC section
    // without the crystal's, which is not the AFC data.
    void itemLists()
    {
        QFETCH(QString, profile);
        QFETCH(QJsonObject, patch);
        QVERIFY(UseTarget(profile, patch));
        QTemporaryDir dir;
        QVERIFY(TestFiles::Write(dir.filePath("cal.ini"), "[IMEI]\n[GPS COClock Coefficients]\n[AFC control]\n"
                                                          "[Multi-RAT Temperature Sensor]\n"));
        TIniFile file(dir.filePath("cal.ini"));
        CGeneralCore *core = CGeneralCore::GetInstance();
        QTEST(core->GetSupportItem(), "target");
        QTEST(core->GetSupportItemFromFile(&file), "file");
        QCOMPARE(core->GetSupportItemFromFile(nullptr), QStringList());
    }

    void roundTrip_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("items");
        QTest::newRow("layer 1: AFC v3, co-clock v3, TADC of 2 chips")
            << "modern-l1" << QStringList{"GPS Co-Clock", "MultiRat Tadc", "MMRF AFC"};
        QTest::newRow("layer 1: AFC v2, co-clock v1") << "hybrid-l1" << QStringList{"GPS Co-Clock", "MMRF AFC"};
        QTest::newRow("AFC v1, co-clock on the E-RF side alone")
            << "afc-v1-gps-erf" << QStringList{"GPS Co-Clock", "MMRF AFC"};
        QTest::newRow("co-clock in NVRAM and on the E-RF side") << "default" << QStringList{"GPS Co-Clock"};
        QTest::newRow("co-clock in NVRAM") << "legacy-v1" << QStringList{"GPS Co-Clock"};
    }
    // Target → file; a target with other data takes the file; what it then
    // gives to a file is the first file, byte for byte.
    void roundTrip()
    {
        QFETCH(QString, profile);
        QFETCH(QStringList, items);
        QVERIFY(UseTarget(profile));
        QTemporaryDir dir;
        const QString first = dir.filePath("first.ini"), second = dir.filePath("second.ini");
        const auto exportTo = [&items](const QString &path) {
            QCOMPARE(Run(ECalDataMovement::UploadFromFlash, items), Succeeded(items));
            TIniFile file(path);
            QCOMPARE(Run(ECalDataMovement::SaveToFile, items, &file), Succeeded(items));
            QVERIFY(file.Save());
        };
        exportTo(first);
        const QList<QByteArray> original = NvramRecords::Read(kRecords);
        QVERIFY(ChangeTargetData());
        QVERIFY(NvramRecords::Read(kRecords) != original);
        {
            TIniFile file(first);
            QCOMPARE(Run(ECalDataMovement::LoadFromFile, items, &file), Succeeded(items));
            QCOMPARE(Run(ECalDataMovement::DownloadToFlash, items), Succeeded(items));
        }
        exportTo(second);
        QCOMPARE(TestFiles::Read(second), TestFiles::Read(first));
    }

    void coClockWays_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("writes"); // the co-clock's writes of a download, in order
        QTest::newRow("NVRAM") << "legacy-v1" << QStringList{"TAVO_NVRAM_Write_r"};
        QTest::newRow("NVRAM, then E-RF") << "default" << QStringList{"TAVO_NVRAM_Write_r", "TAVO_ERf_SetCoClock"};
        QTest::newRow("E-RF alone") << "afc-v1-gps-erf" << QStringList{"TAVO_ERf_SetCoClock"};
        QTest::newRow("layer 1 v1") << "hybrid-l1" << QStringList{"TAVO_MMGps_SetCoClock"};
        QTest::newRow("layer 1 v3") << "modern-l1" << QStringList{"TAVO_MMGps_SetCoClockV3"};
    }
    // Every write to the target lies in an integrity record, but layer 1's.
    void coClockWays()
    {
        QFETCH(QString, profile);
        QFETCH(QStringList, writes);
        QVERIFY(UseTarget(profile));
        const QStringList items{"GPS Co-Clock"};
        QCOMPARE(Run(ECalDataMovement::UploadFromFlash, items), Succeeded(items));
        TavoSim::ClearCallLog();
        QCOMPARE(Run(ECalDataMovement::DownloadToFlash, items), Succeeded(items));
        QStringList made;
        for (const TavoSim::CallRecord &call : TavoSim::CallLog()) {
            if (call.name.contains("Write_r") || call.name.contains("SetCoClock")) {
                made << call.name;
                QCOMPARE(call.integrityScope != 0, !call.name.startsWith("TAVO_MMGps"));
            }
        }
        QCOMPARE(made, writes);
    }

    // A record of another size than the co-clock's cannot be taken apart.
    void coClockRecordOfAnotherSize()
    {
        QVERIFY(UseTarget("legacy-v1", {{"database", QJsonObject{{"recordSizes",
                                                                  QJsonObject{{"NVRAM_EF_GPS_CO_CLOCK_DATA_LID", 20}}}}}}));
        CGpsCoClock item;
        QCOMPARE(int(item.UploadFromFlash()), 101);
        QVERIFY(!item.IsDataValid());
    }

    // A write that fails in the middle of a download: that item fails with
    // the library's text and keeps the target's data; the others are written.
    void failingCallMidMovement()
    {
        QVERIFY(UseTarget("modern-l1"));
        const QStringList items{"GPS Co-Clock", "MultiRat Tadc", "MMRF AFC"};
        QCOMPARE(Run(ECalDataMovement::UploadFromFlash, items), Succeeded(items));
        const QList<QByteArray> uploaded = NvramRecords::Read(kRecords);
        QVERIFY(ChangeTargetData());
        const QList<QByteArray> changed = NvramRecords::Read(kRecords);
        TavoSim::FailAlways("TAVO_MMTadc_SetData");
        bool allOk = true;
        QCOMPARE(Run(ECalDataMovement::DownloadToFlash, items, nullptr, &allOk),
                 (QStringList{"GPS Co-Clock:0:",
                              "MultiRat Tadc:3:TAVO_RESULT = " + QString(TAVO_GetResultText(TAVO_ERR_FAILED)),
                              "MMRF AFC:0:"}));
        QVERIFY(!allOk);
        const QList<QByteArray> after = NvramRecords::Read(kRecords);
        QCOMPARE(after[0], uploaded[0]);
        QCOMPARE(after[1], uploaded[1]);
        QCOMPARE(after[3], changed[3]);
    }

    // The low power mode's load value: a file without its section leaves the
    // file's default and nothing to write; with it the value reaches the
    // target's record.
    void dcxoLowPowerMode()
    {
        QVERIFY(UseTarget("default"));
        QTemporaryDir dir;
        QVERIFY(TestFiles::Write(dir.filePath("bare.ini"), "[IMEI]\n"));
        QVERIFY(TestFiles::Write(dir.filePath("dcxo.ini"), "[DCXO low power mode data]\ncload = 70000\n"));
        CGsmDcxoLpm item;
        TIniFile bare(dir.filePath("bare.ini"));
        QCOMPARE(int(item.ReadFromFile(&bare)), 0);
        QCOMPARE(item.GetCload(), 90000);
        QCOMPARE(int(item.DownloadToFlash()), 2);
        TIniFile file(dir.filePath("dcxo.ini"));
        QCOMPARE(int(item.ReadFromFile(&file)), 0);
        QCOMPARE(int(item.DownloadToFlash()), 0);
        CGsmDcxoLpm fresh;
        QCOMPARE(int(fresh.UploadFromFlash()), 0);
        QCOMPARE(fresh.GetCload(), 70000);
    }

    void afcModel_data()
    {
        QTest::addColumn<int>("rat");
        QTest::addColumn<QStringList>("model"); // the values it carries; null: not in it
        QTest::addColumn<QString>("shown");     // what the item gives back into it
        const QStringList all{"4000", "5", "40"};
        const QStringList noCapId{"4000", "5", QString()};
        const auto failure = [](const char *text) { return QString::fromStdString(BuildEmptyModelStringWithError(text)); };
        QTest::newRow("page") << 1 << all << "4000 5.00122 40";
        QTest::newRow("rat 0 takes what the model has") << 0 << QStringList{QString(), "5", QString()} << "- 5.00122 -";
        QTest::newRow("rat 5, slope 0") << 5 << QStringList{"4000", "0", "40"} << "4000 -1.90735e-06 40";
        QTest::newRow("page model without the cap ID") << 1 << noCapId << failure("Update cap ID failed");
        QTest::newRow("rat 2") << 2 << all << failure("It does not support this rat.(2 )");
    }
    // The values of a model into "MMRF AFC" and back, over what the item
    // held before (1000, slope 2.5, 77).
    void afcModel()
    {
        QFETCH(int, rat);
        QFETCH(QStringList, model);
        CGeneralCore *core = CGeneralCore::GetInstance();
        core->SetAfcDataFromModel(AfcModel({"1000", "2.5", "77"}), 1);
        core->SetAfcDataFromModel(AfcModel(model), rat);
        QTEST(Shown(core->GetModelWithAfcData(AfcModel(model), rat)), "shown");
        QCOMPARE(Shown(core->GetModelWithAfcData(AfcModel({"", "", ""}), 1)).split(' ').size(), 3);
    }
};

QTEST_GUILESS_MAIN(TestGeneralCore)
#include "tst_GeneralCore.moc"
