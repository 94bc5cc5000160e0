// Self calibration blocks in their three generations between the simulated
// target, the items and Cal/INI files.

#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include "GeneralCore.h"
#include "Items/MultiRatSelfCal.h"
#include "Items/MultiRatSelfCalV2.h"
#include "Items/MultiRatSelfCalV7.h"
#include "MovementLog.h"
#include "TIniFile.h"
#include "TavoSimControl.h"
#include "TdscdmaCore.h"
#include "TestFiles.h"

namespace {

// The item of a generation: 1, 2 (TD-SCDMA's blocks) or 7 (the radio's).
std::unique_ptr<IMultiRatSelfCal> Item(int generation)
{
    if (generation == 7)
        return std::make_unique<CMultiRatSelfCalV7>();
    if (generation == 2)
        return std::make_unique<CMultiRatSelfCalV2>(1);
    return std::make_unique<CMultiRatSelfCal>(1);
}

// A profile whose TD-SCDMA blocks go by the first generation (v1-pathloss-v2)
// or the second (default), and whose radio has blocks of the seventh
// (default), with `patch` over it.
bool UseTarget(int generation, const QJsonObject &patch = {})
{
    const bool loaded = TavoSim::LoadProfile(generation == 1 ? "v1-pathloss-v2" : "default") &&
                        (patch.isEmpty() || TavoSim::PatchProfile(patch, TavoSim::Patch::Reset));
    CTdscdmaCore::GetInstance()->ResetCapability();
    CGeneralCore::GetInstance()->ResetCapability();
    return loaded;
}

QList<QByteArray> TargetBlocks(const IMultiRatSelfCal &item, int generation)
{
    QList<QByteArray> blocks;
    for (const SSelfCalLidInfo &block : item.Blocks())
        blocks << TavoSim::NvramRecord((generation == 7 ? "MMRF_SELFCAL_" : "TDS_SELFCAL_") + QString::number(block.index));
    return blocks;
}

// A file of the item's section in which every block has `value` as its text.
QByteArray FileOf(const IMultiRatSelfCal &item, const QString &section, const std::function<QByteArray(int)> &value)
{
    QByteArray text = "[" + section.toLatin1() + "]\n";
    for (const SSelfCalLidInfo &block : item.Blocks())
        text += QByteArray(block.key) + " = " + value(int(block.size)) + "\n";
    return text;
}

QByteArray Zeros(int size) { return QByteArray("00 ").repeated(size).chopped(1); }

QString SectionOf(int generation) { return generation == 7 ? "RF SELF CALIBRATION" : "TDSCDMA RF SELF CAIBRATION"; }

} // namespace

class TestSelfCal : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { TavoSim::Reset(); }

    void roundTrip_data()
    {
        QTest::addColumn<int>("generation");
        QTest::newRow("first") << 1;
        QTest::newRow("second") << 2;
        QTest::newRow("seventh") << 7;
    }
    // Target → file; the target takes other blocks; the file back: every
    // block is the one it had, byte for byte.
    void roundTrip()
    {
        QFETCH(int, generation);
        QVERIFY(UseTarget(generation));
        QTemporaryDir dir;
        auto item = Item(generation);
        QCOMPARE(int(item->UploadFromFlash()), 0);
        const QList<QByteArray> original = TargetBlocks(*item, generation);
        QCOMPARE(original.size(), 3);
        {
            TIniFile file(dir.filePath("cal.ini"));
            QCOMPARE(int(item->WriteToFile(&file)), 0);
            QVERIFY(file.Save());
        }
        QVERIFY(TestFiles::Write(dir.filePath("zeros.ini"), FileOf(*item, SectionOf(generation), Zeros)));
        for (const char *name : {"zeros.ini", "cal.ini"}) {
            auto fresh = Item(generation);
            TIniFile file(dir.filePath(name));
            QCOMPARE(int(fresh->ReadFromFile(&file)), 0);
            QCOMPARE(int(fresh->DownloadToFlash()), 0);
            QCOMPARE(TargetBlocks(*fresh, generation) == original, QString(name) == "cal.ini");
        }
    }

    void collection_data()
    {
        QTest::addColumn<int>("generation");
        QTest::addColumn<QString>("query"); // the block list's
        QTest::addColumn<QString>("failure");
        QTest::newRow("first") << 1 << "TAVO_MMRf_GetSelfCalKeyStrings"
                               << "Failed to collect self-cal LID info of TDSCDMA RF SELF CAIBRATION";
        QTest::newRow("second") << 2 << "TAVO_MMRf_GetSelfCalLidInfoV2"
                                << "Failed to collect self-cal LID info of TDSCDMA RF SELF CAIBRATION";
        QTest::newRow("seventh") << 7 << "TAVO_MMRf_GetSelfCalLidInfoV7" << "Failed to collect self-cal LID info";
    }
    // The blocks are learned once; a target that does not tell them fails
    // every movement with the text of its generation.
    void collection()
    {
        QFETCH(int, generation);
        QFETCH(QString, query);
        QVERIFY(UseTarget(generation));
        auto item = Item(generation);
        QCOMPARE(int(item->UploadFromFlash()), 0);
        TavoSim::ClearCallLog();
        QCOMPARE(int(item->UploadFromFlash()), 0);
        QCOMPARE(TavoSim::CallCount(query), 0);
        TavoSim::FailAlways(query);
        auto fresh = Item(generation);
        QCOMPARE(int(fresh->UploadFromFlash()), 1);
        QTEST(fresh->GetErrorMessage(), "failure");
    }

    void batches_data()
    {
        QTest::addColumn<QList<int>>("sizes");
        QTest::addColumn<QList<int>>("batches"); // first position, count, ...
        QTest::newRow("30,000 ×3") << QList<int>{30000, 30000, 30000} << QList<int>{0, 2, 2, 1};
        QTest::newRow("17 of 10") << QVector<int>(17, 10).toList() << QList<int>{0, 16, 16, 1};
        QTest::newRow("one that fills the space") << QList<int>{61440, 1} << QList<int>{0, 1, 1, 1};
        QTest::newRow("a sum just below it") << QList<int>{61438, 1, 1} << QList<int>{0, 2, 2, 1};
    }
    void batches()
    {
        QFETCH(QList<int>, sizes);
        std::vector<SSelfCalLidInfo> blocks(size_t(sizes.size()));
        for (int i = 0; i < sizes.size(); ++i)
            blocks[size_t(i)].size = uint32_t(sizes[i]);
        QList<int> batches;
        for (const auto &[start, count] : CMultiRatSelfCalV2::Batches(blocks))
            batches << start << count;
        QTEST(batches, "batches");
    }

    void badFile_data()
    {
        QTest::addColumn<int>("generation");
        QTest::addColumn<QByteArray>("text"); // the first block's; "<n>" a text of n zero bytes
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message"); // its start
        QTest::newRow("no key") << 2 << QByteArray() << 52 << "Execution Warning : The Key value [TDS_SELFCAL_V2_0]";
        QTest::newRow("no key, first generation") << 1 << QByteArray() << 52 << "Execution Error : The Key value";
        QTest::newRow("one byte short") << 2 << QByteArray("<29999>") << 1 << "Execution Warning : The data length (29999)";
        QTest::newRow("one byte short, first generation") << 1 << QByteArray("<4095>") << 0 << QString();
        QTest::newRow("one byte long, first generation") << 1 << QByteArray("<4097>") << 1 << "Execution Error : The data length (4097)";
        QTest::newRow("odd length") << 7 << Zeros(2048) + "0" << 1 << "Transform the text to the binary data failed.";
        QTest::newRow("no hex digits") << 7 << Zeros(2047) + " 0G" << 1 << "Transform the text to the binary data failed.";
    }
    // A bad block in a file: the read fails with its text and nothing can be written.
    void badFile()
    {
        QFETCH(int, generation);
        QFETCH(QByteArray, text);
        QVERIFY(UseTarget(generation));
        QTemporaryDir dir;
        auto item = Item(generation);
        QCOMPARE(int(item->UploadFromFlash()), 0);
        const QList<QByteArray> before = TargetBlocks(*item, generation);
        const QByteArray first = text.startsWith('<') ? Zeros(text.mid(1, text.size() - 2).toInt()) : text;
        int block = 0;
        QVERIFY(TestFiles::Write(dir.filePath("bad.ini"), FileOf(*item, SectionOf(generation), [&](int size) {
                                     return block++ == 0 ? first : Zeros(size);
                                 })));
        auto fresh = Item(generation);
        TIniFile file(dir.filePath("bad.ini"));
        QTEST(int(fresh->ReadFromFile(&file)), "code");
        QFETCH(QString, message);
        QVERIFY2(fresh->GetErrorMessage().startsWith(message), qPrintable(fresh->GetErrorMessage()));
        if (fresh->IsDataValid())
            return;
        QCOMPARE(int(fresh->DownloadToFlash()), 2);
        QCOMPARE(TargetBlocks(*item, generation), before);
    }

    // A file of one generation on a target of another.
    void otherGeneration()
    {
        QVERIFY(UseTarget(1));
        QTemporaryDir dir;
        auto first = Item(1);
        QCOMPARE(int(first->UploadFromFlash()), 0);
        TIniFile file(dir.filePath("cal.ini"));
        QCOMPARE(int(first->WriteToFile(&file)), 0);
        QVERIFY(UseTarget(2));
        auto second = Item(2);
        QCOMPARE(int(second->ReadFromFile(&file)), 52);
        QVERIFY(second->GetErrorMessage().contains("[TDS_SELFCAL_V2_0] does not exist under Section "
                                                   "[TDSCDMA RF SELF CAIBRATION]"));
        QCOMPARE(int(Item(7)->ReadFromFile(&file)), 51);
    }

    // The second of two batches fails: the blocks of the first are the new
    // ones, those of the second the old ones; none is torn.
    void failingBatch()
    {
        QVERIFY(UseTarget(2));
        QTemporaryDir dir;
        auto item = Item(2);
        QCOMPARE(int(item->UploadFromFlash()), 0);
        const QList<QByteArray> before = TargetBlocks(*item, 2);
        QVERIFY(TestFiles::Write(dir.filePath("zeros.ini"), FileOf(*item, SectionOf(2), Zeros)));
        TIniFile file(dir.filePath("zeros.ini"));
        QCOMPARE(int(item->ReadFromFile(&file)), 0);
        TavoSim::InjectFault("TAVO_MMRf_SetSelfCalDataV2", TAVO_ERR_FAILED, 1, 1);
        QCOMPARE(int(item->DownloadToFlash()), 3);
        const QList<QByteArray> after = TargetBlocks(*item, 2);
        QCOMPARE(after[0], QByteArray(30000, '\0'));
        QCOMPARE(after[1], QByteArray(30000, '\0'));
        QCOMPARE(after[2], before[2]);
        QVERIFY(!TavoSim::IsCalDataIntegrityOpen());
    }

    // The radio reports another length for a block's data than its list
    // does: the upload fails with both lengths and the data stay invalid.
    void lengthsDisagree()
    {
        const QJsonArray blocks{QJsonObject{{"index", 4}, {"key", "MMRF_A"}, {"size", 100}, {"reportedLength", 99}}};
        QVERIFY(UseTarget(7, {{"selfCal", QJsonObject{{"mmrf", blocks}}}}));
        auto item = Item(7);
        QCOMPARE(int(item->UploadFromFlash()), 1);
        QVERIFY(item->GetErrorMessage().startsWith("Execution Warning : The data length (100) of Key value [MMRF_A] "
                                                   "reported from get key string command \nis inconsistent with the "
                                                   "data length (99)"));
        QVERIFY(!item->IsDataValid());
    }

    void noBlocks()
    {
        QVERIFY(UseTarget(2, {{"selfCal", QJsonObject{{"tdscdma", QJsonArray()}}}}));
        QTemporaryDir dir;
        auto item = Item(2);
        QCOMPARE(int(item->UploadFromFlash()), 0);
        QVERIFY(item->IsDataValid());
        TIniFile file(dir.filePath("cal.ini"));
        QCOMPARE(int(item->WriteToFile(&file)), 0);
        QVERIFY(file.Save());
        QCOMPARE(TestFiles::Read(dir.filePath("cal.ini")).count('='), 1); // "RF Chip ID"
    }

    // Through the controller: the download runs inside the Ubin mode, and
    // leaving it decides the result.
    void ubinAroundTheDownload()
    {
        QVERIFY(UseTarget(2));
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        SMovementLog log(core);
        core->UploadFromFlash({"Self Cal"});
        QTRY_COMPARE(log.results, QStringList{"Self Cal:0:"});
        TavoSim::InjectFault({"AST_UBIN_MODE_SETUP_r", {"mode=0"}});
        TavoSim::ClearCallLog();
        core->DownloadToFlash({"Self Cal"});
        QTRY_COMPARE(log.results, (QStringList{"Self Cal:0:", "Self Cal:202:"}));
        QCOMPARE(TavoSim::CallNames().filter(QRegularExpression("UBIN|SetSelfCal")),
                 (QStringList{"AST_UBIN_MODE_SETUP_r", "TAVO_MMRf_SetSelfCalDataV2", "TAVO_MMRf_SetSelfCalDataV2",
                              "AST_UBIN_MODE_SETUP_r"}));
    }
};

QTEST_GUILESS_MAIN(TestSelfCal)
#include "tst_SelfCal.moc"
