// The temperature ADC item between the simulated target and Cal/INI files,
// and its measures in each way a target offers them.

#include <QTemporaryDir>
#include <QtTest>

#include "Items/TdscdmaTadc.h"
#include "SimScope.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"
#include "TestFiles.h"

namespace {

const char *const kLid = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
using Table = CTdscdmaTadc::AdcTable;

QList<int> Values(const Table &table) { return QList<int>(table.begin(), table.end()); }

bool UseTarget(const QJsonObject &patch = {})
{
    const bool loaded = TavoSim::LoadProfile("default") && TavoSim::PatchProfile(patch, TavoSim::Patch::Reset);
    TavoSim::LoadDatabase();
    CTdscdmaCore::GetInstance()->ResetCapability();
    return loaded;
}

} // namespace

class TestTadcItem : public QObject {
    Q_OBJECT

private slots:
    void cleanup()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    // Target → item → file → new item → target holding other values: the
    // record comes back byte for byte.
    void roundTrip()
    {
        QVERIFY(UseTarget());
        QTemporaryDir dir;
        const QString path = dir.filePath("tadc.ini");
        const QByteArray record = TavoSim::NvramRecord(kLid);

        CTdscdmaTadc item;
        QCOMPARE(int(item.UploadFromFlash()), 0);
        QCOMPARE(Values(item.GetAdcTable()), (QList<int>{3117, 2842, 2530, 2200, 1879, 1557, 1288, 1044}));
        {
            TIniFile file(path);
            QCOMPARE(int(item.WriteToFile(&file)), 0);
            QVERIFY(file.Save());
        }
        item.SetAdcTable({1, 2, 3, 4, 5, 6, 7, 65535});
        QCOMPARE(int(item.DownloadToFlash()), 0);
        QVERIFY(TavoSim::NvramRecord(kLid) != record);

        CTdscdmaTadc fresh;
        TIniFile file(path);
        QCOMPARE(int(fresh.ReadFromFile(&file)), 0);
        QCOMPARE(int(fresh.DownloadToFlash()), 0);
        QCOMPARE(TavoSim::NvramRecord(kLid), record);
    }

    void readFromFile_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("code");
        QTest::addColumn<QList<int>>("table");
        const QByteArray section = "[TDSCDMA Temperature Sensor]\n";
        const QList<int> kept{9, 9, 9, 9, 9, 9, 9, 9};
        QTest::newRow("only ADC3") << section + "ADC3 = 500\n" << 0 << QList<int>{0, 0, 0, 500, 0, 0, 0, 0};
        QTest::newRow("above 65535: low 16 bits") << section + "ADC0 = 70000\nADC7 = 65535\n" << 0
                                                  << QList<int>{4464, 0, 0, 0, 0, 0, 0, 65535};
        QTest::newRow("garbled values read 0") << section + "ADC1 = warm\nADC2 = \n" << 0 << QList<int>{0, 0, 0, 0, 0, 0, 0, 0};
        QTest::newRow("no section") << QByteArray("[TDSCDMA AFC control]\nSlope = 2\n") << 51 << kept;
    }
    // A failed read keeps the table, and leaves nothing to write.
    void readFromFile()
    {
        QFETCH(QByteArray, text);
        QVERIFY(UseTarget());
        QTemporaryDir dir;
        const QString path = dir.filePath("tadc.ini");
        QVERIFY(TestFiles::Write(path, text));
        CTdscdmaTadc item;
        item.SetAdcTable({9, 9, 9, 9, 9, 9, 9, 9});
        TIniFile file(path);
        QTEST(int(item.ReadFromFile(&file)), "code");
        QTEST(Values(item.GetAdcTable()), "table");
        QFETCH(int, code);
        QCOMPARE(int(item.DownloadToFlash()), code == 0 ? 0 : 2);
    }

    void writeWithoutARead()
    {
        QVERIFY(UseTarget());
        QTemporaryDir dir;
        CTdscdmaTadc item;
        TIniFile file(dir.filePath("tadc.ini"));
        QCOMPARE(int(item.WriteToFile(&file)), 0);
        for (int i = 0; i < 8; ++i)
            QCOMPARE(file.ReadString(CTdscdmaTadc::kSection, "ADC" + std::to_string(i), "-"), std::string("0"));
        QCOMPARE(int(item.ReadFromFile(nullptr)), 50);
        QCOMPARE(int(item.WriteToFile(nullptr)), 50);
    }

    void measure_data()
    {
        QTest::addColumn<bool>("byCalCommand");
        QTest::addColumn<bool>("sum");
        QTest::addColumn<bool>("single");
        QTest::addColumn<QJsonObject>("tadc"); // laid over the profile's "tadc"
        QTest::addColumn<QString>("failing");  // the call that fails
        QTest::addColumn<QStringList>("calls");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message"); // its beginning
        const QStringList rf{"AST_GetRfTemperature_r"};
        const QStringList sum{"TAVO_MISC_GetTADCChannelIndex_r", "TAVO_MISC_GetADCMeasureSum_r"};
        const QStringList single{"TAVO_MISC_GetADCValue_r"};
        const QJsonObject notReady{{"sensorReady", false}};
        QTest::newRow("layer 1") << false << true << true << QJsonObject() << "" << rf << 0 << "";
        QTest::newRow("sum") << true << true << true << QJsonObject() << "" << sum << 0 << "";
        QTest::newRow("single read") << true << false << true << QJsonObject() << "" << single << 0 << "";
        QTest::newRow("no way: no call") << true << false << false << QJsonObject() << "" << QStringList() << 2
                                         << "The target offers no temperature ADC measure";
        QTest::newRow("layer 1 fails") << false << true << true << QJsonObject() << rf[0] << rf << 3 << "TAVO_RESULT = ";
        QTest::newRow("layer 1 not measured") << false << true << true << notReady << "" << rf << 203
                                              << "The RF temperature could not be measured";
        QTest::newRow("channel fails") << true << true << true << QJsonObject() << sum[0] << QStringList(sum.mid(0, 1)) << 3
                                       << "Get the TADC channel failed";
        QTest::newRow("sum fails") << true << true << true << QJsonObject() << sum[1] << sum << 3
                                   << "Get the ADC measure sum failed";
        QTest::newRow("sum status") << true << true << false << notReady << "" << sum << 203
                                    << "Success status code is 0 but current status code is 2";
        QTest::newRow("single read fails") << true << false << true << QJsonObject() << single[0] << single << 3
                                           << "TAVO_RESULT = ";
    }
    // Each way gives the mean of the measures, which the target's
    // temperature and ADC table imply within the sensor's noise.
    void measure()
    {
        QFETCH(bool, byCalCommand);
        QFETCH(bool, sum);
        QFETCH(bool, single);
        QFETCH(QJsonObject, tadc);
        QFETCH(QString, failing);
        QFETCH(int, code);
        tadc["channel"] = 5;
        tadc["temperature"] = 40;
        QVERIFY(UseTarget({{"tdscdma", QJsonObject{{"tadcByCalCommand", byCalCommand}}},
                           {"gsm", QJsonObject{{"ex2", QJsonObject{{"tadcMeasureSum", sum}, {"tadcSingleRead", single}}}}},
                           {"tadc", tadc}}));
        if (!failing.isEmpty())
            TavoSim::FailOnce(failing);
        const int expected = TavoSim::TemperatureAdc();
        TavoSim::ClearCallLog();

        CTdscdmaTadc item;
        uint32_t value = 7;
        QCOMPARE(item.Measure(32, value), code);
        QTEST(TavoSim::CallNames().filter(QRegularExpression("ADC|RfTemperature")), "calls");
        QFETCH(QString, message);
        const QString error = item.GetErrorMessage();
        QVERIFY2(message.isEmpty() ? error.isEmpty() : error.startsWith(message), qPrintable(error));
        if (code == 0)
            QVERIFY2(qAbs(int(value) - expected) <= 2, qPrintable(QString("%1 for %2").arg(value).arg(expected)));
        else
            QCOMPARE(value, 7u);
    }
};

QTEST_GUILESS_MAIN(TestTadcItem)
#include "tst_TadcItem.moc"
