// The contract every NVRAM calibration item keeps, driven through a minimal
// item of two records, and the RF chip id and sections of Cal/INI files.

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include "ErrorCodeInfo.h"
#include "Items/CalItemByNvramOperation.h"
#include "TIniFile.h"
#include "TavoSimControl.h"
#include "TdscdmaCore.h"

namespace {

const char kTadcLid[] = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
const char kCapLid[] = "NVRAM_EF_AST_TL1_CAP_DATA_LID";

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

// The TADC table (a record kind with a compose pair) and the CAP id (a field).
class CTestItem : public ICalItemByNvramOperation {
public:
    uint16_t adc[8] = {};
    uint32_t capId = 0;
    bool isDataValid = false;

    ~CTestItem() override
    {
        for (uint8_t *buffer : m_buffers)
            delete[] buffer;
    }

    TAVO_RESULT PrepareNvramBuffers() override
    {
        for (int i = 0; i < 2; ++i) {
            if (m_buffers[i])
                continue;
            const TAVO_RESULT result = TAVO_NVRAM_GetRecordSize(kLids[i], &m_sizes[i]);
            if (result != TAVO_OK)
                return result;
            m_buffers[i] = new uint8_t[m_sizes[i]];
        }
        return TAVO_OK;
    }
    TAVO_RESULT DecomposeNvramData() override
    {
        const TAVO_RESULT result = TAVO_NVRAM_DecomposeTadc(adc, m_buffers[0], m_sizes[0]);
        return result != TAVO_OK ? result
                                 : TAVO_NVRAM_GetField(kCapLid, "capId", m_buffers[1], m_sizes[1], &capId, 4);
    }
    TAVO_RESULT ComposeNvramData() override
    {
        const TAVO_RESULT result = TAVO_NVRAM_ComposeTadc(adc, m_buffers[0], m_sizes[0]);
        return result != TAVO_OK ? result
                                 : TAVO_NVRAM_SetField(kCapLid, "capId", m_buffers[1], m_sizes[1], &capId, 4);
    }
    uint32_t UploadFromFlash() override
    {
        m_errorMessage.clear();
        isDataValid = false;
        const uint32_t code = UploadNvramRecords([this](CNvramBatch &batch) { Collect(batch); });
        isDataValid = code == ERROR_CODE_SUCCESS;
        return code;
    }
    uint32_t DownloadToFlash() override
    {
        m_errorMessage.clear();
        return DownloadNvramRecords(isDataValid, [this](CNvramBatch &batch) { Collect(batch); });
    }
    // Files: CRfChipIdRecorder, below.
    uint32_t ReadFromFile(TIniFile *) override { return ERROR_CODE_SUCCESS; }
    uint32_t WriteToFile(TIniFile *) override { return ERROR_CODE_SUCCESS; }

private:
    void Collect(CNvramBatch &batch)
    {
        for (int i = 0; i < 2; ++i)
            batch.Add(kLids[i], m_sizes[i], m_buffers[i]);
    }

    const char *const kLids[2] = {kTadcLid, kCapLid};
    uint32_t m_sizes[2] = {};
    uint8_t *m_buffers[2] = {};
};

// What the target holds, read through a fresh item.
std::pair<QList<int>, uint32_t> OnTarget()
{
    CTestItem item;
    if (item.UploadFromFlash() != 0)
        return {};
    return {QList<int>(item.adc, item.adc + 8), item.capId};
}

} // namespace

class TestCalItemBase : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY(TavoSim::LoadProfile("default"));
        TavoSim::LoadDatabase();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }
    void cleanup()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    void upload_data()
    {
        QTest::addColumn<QString>("fault"); // the call that fails once; "database": none loaded
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("success") << "" << 0 << "";
        QTest::newRow("no database") << "database" << 100
                                     << "TAVO_RESULT = TAVO_ERR_NO_DATABASE: no NVRAM database is loaded";
        QTest::newRow("read fails") << "TAVO_NVRAM_Read_r" << 3
                                    << "TAVO_RESULT = TAVO_ERR_FAILED: the target answered with a failure";
        QTest::newRow("decompose fails") << "TAVO_NVRAM_DecomposeTadc" << 101
                                         << "TAVO_RESULT = TAVO_ERR_FAILED: the target answered with a failure";
    }
    // A failed upload leaves the data invalid, so the next download gives 2
    // without a call to the target.
    void upload()
    {
        QFETCH(QString, fault);
        QFETCH(int, code);
        QFETCH(QString, text);
        if (fault == "database") {
            TavoSim::UnloadDatabase();
        } else if (!fault.isEmpty()) {
            TavoSim::FailOnce(fault);
        }
        CTestItem item;
        QCOMPARE(int(item.UploadFromFlash()), code);
        QCOMPARE(item.GetErrorMessage(), text);
        QCOMPARE(item.isDataValid, code == 0);

        TavoSim::ClearFaults();
        TavoSim::LoadDatabase();
        TavoSim::ClearCallLog();
        QCOMPARE(int(item.DownloadToFlash()), code == 0 ? 0 : 2);
        if (code != 0) {
            QCOMPARE(item.GetErrorMessage(),
                     QString("Data is not valid now.\nYou should load it from file or upload it from flash."));
            QCOMPARE(TavoSim::CallNames(), QStringList());
        }
        if (code == 0) {
            QCOMPARE(QList<int>(item.adc, item.adc + 8), (QList<int>{180, 330, 480, 630, 780, 930, 1080, 1230}));
            QCOMPARE(item.capId, 160u);
        }
    }

    void download_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<int>("skip");
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("written"); // records that reach the target
        QTest::newRow("success") << "" << 0 << 0 << 2;
        QTest::newRow("compose fails") << "TAVO_NVRAM_ComposeTadc" << 0 << 102 << 0;
        QTest::newRow("write fails on the second record") << "TAVO_NVRAM_Write_r" << 1 << 3 << 1;
    }
    // What a download changes on the target, and what stays when it fails.
    void download()
    {
        QFETCH(QString, fault);
        QFETCH(int, skip);
        QFETCH(int, code);
        QFETCH(int, written);
        const auto before = OnTarget();
        CTestItem item;
        QCOMPARE(int(item.UploadFromFlash()), 0);
        for (uint16_t &value : item.adc)
            value = uint16_t(value + 1);
        item.capId = 7;
        if (!fault.isEmpty())
            TavoSim::InjectFault(fault, TAVO_ERR_BUSY, 1, skip);

        QCOMPARE(int(item.DownloadToFlash()), code);
        QCOMPARE(item.GetErrorMessage(),
                 code == 0 ? QString() : "TAVO_RESULT = TAVO_ERR_BUSY: the target is in a state that refuses the command");
        QVERIFY(item.isDataValid);
        const auto after = OnTarget();
        QCOMPARE(after.first, written >= 1 ? QList<int>(item.adc, item.adc + 8) : before.first);
        QCOMPARE(after.second, written >= 2 ? item.capId : before.second);
        QVERIFY(!TavoSim::IsCalDataIntegrityOpen());
    }

    void rfChipId_data()
    {
        QTest::addColumn<QJsonObject>("patch");
        QTest::addColumn<QString>("radio");
        QTest::addColumn<QString>("name");
        QTest::newRow("TD-SCDMA 16") << QJsonObject() << "tdscdma" << "TL1D_RF_ID_RFA10";
        QTest::newRow("TD-SCDMA 33") << Json(R"({"chipId": {"rf": 33}})") << "tdscdma" << "Unknown";
        QTest::newRow("GSM") << QJsonObject() << "gsm" << "GSM_RF_ID_RFG3";
        QTest::newRow("FDD") << QJsonObject() << "fdd" << "FDD_RF_ID_RFW2";
        QTest::newRow("LTE") << QJsonObject() << "lte" << "LTE_RF_ID_RFL5";
    }
    // The chip's name lands under "RF Chip ID" and the file is saved. A file
    // read begins with the sections: 50 without a file, 51 when none of the
    // item's stands in it, with an empty text.
    void rfChipId()
    {
        QFETCH(QJsonObject, patch);
        QFETCH(QString, radio);
        QVERIFY(TavoSim::PatchProfile(patch));
        QTemporaryDir dir;
        const QString path = dir.filePath("chip.ini");
        {
            TIniFile file(path);
            CRfChipIdRecorder recorder;
            if (radio == "tdscdma")
                recorder.WriteTdscdmaRfChipId(&file, "Band A");
            else if (radio == "gsm")
                recorder.WriteGsmRfChipId(&file, "Band A");
            else if (radio == "fdd")
                recorder.WriteFddRfChipId(&file, "Band A");
            else
                recorder.WriteLteRfChipId(&file, "Band A");
            recorder.WriteTdscdmaRfChipId(nullptr, "Band A");
        }
        TIniFile saved(path);
        QVERIFY(saved.IsKeyExist("Band A", "RF Chip ID"));
        QTEST(QString::fromStdString(saved.ReadString("Band A", "RF Chip ID", "-")), "name");

        CRfChipIdRecorder recorder;
        QString text = "old";
        QCOMPARE(int(recorder.CheckFileSections(nullptr, {"Band A"}, text)), 50);
        QCOMPARE(text, QString());
        QCOMPARE(int(recorder.CheckFileSections(&saved, {"Band B"}, text)), 51);
        QCOMPARE(int(recorder.CheckFileSections(&saved, {"Band B", "Band A"}, text)), 0);
    }
};

QTEST_GUILESS_MAIN(TestCalItemBase)
#include "tst_CalItemBase.moc"
