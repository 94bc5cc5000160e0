// The RF chip id in Cal/INI files and the section checks with which every
// item's file read begins. The NVRAM upload and download every item inherits
// from the item base: tst_TpcItem.

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include "Items/RfChipIdRecorder.h"
#include "SimScope.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"

namespace {

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

using Write = void (CRfChipIdRecorder::*)(TIniFile *, const std::string &);
const Write kWrites[] = {&CRfChipIdRecorder::WriteTdscdmaRfChipId, &CRfChipIdRecorder::WriteGsmRfChipId,
                         &CRfChipIdRecorder::WriteFddRfChipId, &CRfChipIdRecorder::WriteLteRfChipId};

} // namespace

class TestCalItemBase : public QObject {
    Q_OBJECT

private slots:
    void init() { CTdscdmaCore::GetInstance()->ResetCapability(); }

    void rfChipId_data()
    {
        QTest::addColumn<QJsonObject>("patch");
        QTest::addColumn<int>("radio"); // of kWrites
        QTest::addColumn<QString>("name");
        QTest::newRow("TD-SCDMA 16") << QJsonObject() << 0 << "TL1D_RF_ID_RFA10";
        QTest::newRow("TD-SCDMA 33") << Json(R"({"chipId": {"rf": 33}})") << 0 << "Unknown";
        QTest::newRow("GSM") << QJsonObject() << 1 << "GSM_RF_ID_RFG3";
        QTest::newRow("FDD") << QJsonObject() << 2 << "FDD_RF_ID_RFW2";
        QTest::newRow("LTE") << QJsonObject() << 3 << "LTE_RF_ID_RFL5";
    }
    // The chip's name lands under "RF Chip ID" and the file is saved. A file
    // read begins with the sections: 50 without a file, 51 when none of the
    // item's stands in it, with an empty text.
    void rfChipId()
    {
        QFETCH(QJsonObject, patch);
        QFETCH(int, radio);
        SimScope sim;
        QVERIFY(TavoSim::PatchProfile(patch));
        QTemporaryDir dir;
        const QString path = dir.filePath("chip.ini");
        {
            TIniFile file(path);
            CRfChipIdRecorder recorder;
            (recorder.*kWrites[radio])(&file, "Band A");
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
