#include <QComboBox>
#include <QDoubleSpinBox>
#include <QProgressBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <cstring>

#include "ModalBoxCatcher.h"
#include "NvramRecords.h"
#include "TavoSimControl.h"
#include "ToolSession.h"

namespace {

constexpr int kBands = 5;
const char *const kLegacyTxDacLids[kBands] = {
    "NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND34_LID",
    "NVRAM_EF_AST_TL1_TXDAC_BAND36_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND38_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND40_LID"};

// The TPC page of a profile's record generation: layer-1 stores behind the
// TX data commands on "default", NVRAM records on "legacy-v1".
bool IsV3(const QString &profile) { return profile == "default"; }
QString PageOf(const QString &profile) { return IsV3(profile) ? "CTdscdmaTpcDockWidgetV3" : "CTdscdmaTpcDockWidget"; }

QString TxDacLid(const QString &profile, int band)
{
    return IsV3(profile) ? QString("TL1_TPC_TXDAC_BAND%1").arg(band) : kLegacyTxDacLids[band];
}

// The TX DAC and TX CLPC records of every band group as the target holds them.
QList<QByteArray> TpcRecords(const QString &profile)
{
    QStringList lids;
    for (int band = 0; band < kBands; ++band)
        lids << TxDacLid(profile, band) << TxDacLid(profile, band).replace("TXDAC", "TXCLPC");
    return NvramRecords::Read(lids);
}

// Band 0's TX DAC record decoded.
TavoTxDacRecord TxDac(const QString &profile, int band = 0)
{
    TavoTxDacRecord record = {};
    const QByteArray raw = TavoSim::NvramRecord(TxDacLid(profile, band));
    if (IsV3(profile))
        std::memcpy(&record, raw.constData(), qMin(size_t(raw.size()), sizeof record));
    else
        TAVO_NVRAM_DecomposeTxDac(&record, raw.constData(), uint32_t(raw.size()));
    return record;
}

} // namespace

// The TPC pages of both record generations as a user drives them: the real
// plug-in and window on a simulated target, the real widgets typed into and
// clicked, the file dialogs answered, the target's records checked.
class TestTpcPages : public ToolSuite {
    Q_OBJECT
public:
    TestTpcPages() : ToolSuite(RADBENCH_PLUGIN_PATH) {}

private slots:
    void readThenWriteChangesOneField_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<int>("group"); // of the PA powers
        QTest::newRow("layer 1's stores") << "default" << 6;
        QTest::newRow("NVRAM records") << "legacy-v1" << 5;
    }
    // A cell of the PA powers, the middle mode's third, in 1/32 dB on the
    // target. (The hysteresis box: the tests below.)
    void readThenWriteChangesOneField()
    {
        QFETCH(QString, profile);
        QFETCH(int, group);
        QDockWidget *page = OpenPage(PageOf(profile), profile);
        QVERIFY(page);
        QVERIFY(m_tool.Press(page, "m_btnUpload", "Read data from target successfully."));
        const QString powers = QString("calDataIf_data_group%1_memberProperty_paH").arg(group);
        auto *table = Find<QTableWidget>(page, powers);
        auto *cell = table ? qobject_cast<QDoubleSpinBox *>(table->cellWidget(1, 2)) : nullptr;
        QVERIFY(cell);
        QCOMPARE(cell->value() * 32, double(TxDac(profile).paPower[1][2]));

        const QList<QByteArray> before = TpcRecords(profile);
        cell->selectAll();
        QTest::keyClicks(cell, "-12.5");
        QVERIFY(m_tool.Press(page, "m_btnDownload", "Download to flash successfully."));
        QCOMPARE(int(TxDac(profile).paPower[1][2]), -400);
        // One 16-bit field of band 0's TX DAC record, nothing else anywhere.
        const QStringList changed = NvramRecords::Differences(before, TpcRecords(profile));
        QVERIFY2(!changed.isEmpty() && changed.size() <= 2 && changed.first().startsWith("0:"),
                 qPrintable(changed.join(' ')));
    }

    // Edits of two bands go to a file; a fresh target that takes the file
    // gets them, and every other band as it was. The user turns the band
    // with the keyboard: the exchange tells the host it is busy, writes
    // nothing, and what was typed in one band survives a trip to another.
    void bandEditsTravelThroughAFile()
    {
        QDockWidget *page = OpenPage(PageOf("default"));
        QVERIFY(page);
        const QList<QByteArray> seeded = TpcRecords("default");
        QVERIFY(m_tool.Press(page, "m_btnUpload", "Read data from target successfully."));
        auto *band = Find<QComboBox>(page, "calDataIf_config_group1_memberProperty_band");
        auto *hysteresis = Find<QSpinBox>(page, "calDataIf_data_group2_memberProperty_hysteresisStart0");
        hysteresis->setValue(7);
        m_tool.Busy().clear();
        band->setFocus();
        QTest::keyClick(band, Qt::Key_Down);
        QCOMPARE(band->currentIndex(), 1);
        QCOMPARE(hysteresis->value(), int(TxDac("default", 1).hysteresisStart0));
        QCOMPARE(m_tool.Busy().count(), 2);
        QCOMPARE(m_tool.Busy().last().at(1).toBool(), false);
        hysteresis->setValue(9);
        QTest::keyClick(band, Qt::Key_Up);
        QCOMPARE(hysteresis->value(), 7);
        QCOMPARE(TavoSim::CallCount("AST_Tavo_NVRAM_TX_Write_r"), 0);

        const QString file = m_dir.filePath("tpc.ini");
        ModalBoxCatcher dialogs;
        dialogs.AnswerFileDialogs({file});
        QVERIFY(m_tool.Press(page, "m_btnSave", "Export data to file successfully."));
        QCOMPARE(dialogs.FileDialogCount(), 1);

        // A fresh target; the page's item forgets by reading it.
        TavoSim::Reset();
        TavoSim::LoadDatabase();
        QVERIFY(m_tool.Press(page, "m_btnUpload", "Read data from target successfully."));
        QCOMPARE(hysteresis->value(), int(TxDac("default", 0).hysteresisStart0));
        dialogs.AnswerFileDialogs({file});
        QVERIFY(m_tool.Press(page, "m_btnLoad", "Import data from file successfully."));
        QCOMPARE(hysteresis->value(), 7);
        QVERIFY(m_tool.Press(page, "m_btnDownload", "Download to flash successfully."));

        QCOMPARE(int(TxDac("default", 0).hysteresisStart0), 7);
        QCOMPARE(int(TxDac("default", 1).hysteresisStart0), 9);
        const QStringList changed = NvramRecords::Differences(seeded, TpcRecords("default"));
        for (const QString &place : changed)
            QVERIFY2(place.startsWith("0:") || place.startsWith("2:"), qPrintable(changed.join(' ')));
    }

    void failuresLeaveThePageAndTheDataWhole_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("call"); // fails for band 2
        QTest::addColumn<QString>("status");
        // (A file without the item's data: tests/Controller/tst_TpcItem and
        // tests/Common/tst_Dialogs; no file chosen: tests/View/tst_TadcPage;
        // a file that cannot be written: tst_TdscdmaRadbenchCore.)
        QTest::newRow("read fails on one band") << "m_btnUpload" << "AST_Tavo_NVRAM_TX_Read_r"
                                                << "Read data from target failed.";
        QTest::newRow("write fails in the middle") << "m_btnDownload" << "AST_Tavo_NVRAM_TX_Write_r"
                                                   << "Download to flash failed.";
    }
    void failuresLeaveThePageAndTheDataWhole()
    {
        QFETCH(QString, button);
        QFETCH(QString, call);
        QFETCH(QString, status);
        QDockWidget *page = OpenPage(PageOf("default"));
        QVERIFY(page);
        QVERIFY(m_tool.Press(page, "m_btnUpload", "Read data from target successfully."));
        auto *hysteresis = Find<QSpinBox>(page, "calDataIf_data_group2_memberProperty_hysteresisStart0");
        hysteresis->setValue(5);
        const QList<QByteArray> before = TpcRecords("default");

        ModalBoxCatcher boxes;
        TavoSim::InjectFault({call, {"band=2"}, TAVO_ERR_FAILED, 1});
        m_tool.Busy().clear();
        m_tool.Window()->findChild<QStatusBar *>()->clearMessage();
        QTest::mouseClick(Find<QToolButton>(page, button), Qt::LeftButton);
        QVERIFY(boxes.WaitFor(1));
        QCOMPARE(m_tool.Status(), status);
        QCOMPARE(boxes.Boxes()[0].title, status);
        QVERIFY2(boxes.Boxes()[0].text.contains("Tavo command execute failed."), qPrintable(boxes.Boxes()[0].text));

        // Idle again, the host told so; nothing lost on the target or in the item.
        for (const char *name : {"m_btnUpload", "m_btnDownload", "m_btnLoad", "m_btnSave"})
            QVERIFY(Find<QToolButton>(page, name)->isEnabled());
        QVERIFY(Find<QComboBox>(page, "calDataIf_config_group1_memberProperty_band")->isEnabled());
        QVERIFY(!m_tool.Busy().last().at(1).toBool());
        if (button != "m_btnDownload")
            QCOMPARE(TpcRecords("default"), before);
        // The item holds every band still: the next band as read, the shown
        // one as typed.
        auto *band = Find<QComboBox>(page, "calDataIf_config_group1_memberProperty_band");
        band->setCurrentIndex(1);
        QCOMPARE(hysteresis->value(), int(TxDac("default", 1).hysteresisStart0));
        band->setCurrentIndex(0);
        QCOMPARE(hysteresis->value(), 5);
    }

    // A second per call: the window keeps serving events and shows how far
    // the movement has come.
    void slowReadKeepsTheWindowResponsive()
    {
        QDockWidget *page = OpenPage(PageOf("default"));
        QVERIFY(page);
        TavoSim::SetLatency("AST_Tavo_NVRAM_TX_Read_r", 1000);
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
        timer.start(50);
        QTest::mouseClick(Find<QToolButton>(page, "m_btnUpload"), Qt::LeftButton);
        auto *progress = m_tool.Window()->findChild<QProgressBar *>("operationProgress");
        QTRY_VERIFY(progress && progress->isVisible());
        QCOMPARE(progress->text(), QString("0/1 items"));
        // Running: no other movement and no band change can start.
        for (const char *name : {"m_btnUpload", "m_btnDownload", "m_btnLoad", "m_btnSave"})
            QVERIFY(!Find<QToolButton>(page, name)->isEnabled());
        QVERIFY(!Find<QComboBox>(page, "calDataIf_config_group1_memberProperty_band")->isEnabled());
        QCOMPARE(m_tool.Busy().last().at(1).toBool(), true);
        QTRY_COMPARE_WITH_TIMEOUT(m_tool.Status(), QString("Read data from target successfully."), 30000);
        QVERIFY(!progress->isVisible());
        // The read took a second per call; at least half the timer's ticks
        // of that time came.
        const int expected = TavoSim::CallCount("AST_Tavo_NVRAM_TX_Read_r") * 1000 / 50;
        QVERIFY2(ticks >= expected / 2, qPrintable(QString("%1 of %2 ticks").arg(ticks).arg(expected)));
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestTpcPages)
#include "tst_TpcPages.moc"
