#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>

#include <cstring>

#include "NvramRecords.h"
#include "TavoSimControl.h"
#include "ToolSession.h"

namespace {

constexpr int kBands = 5;
const char *const kPage = "CTdscdmaPathlossDockWidget";
const char *const kSubbandTable = "calDataIf_data_group1_memberProperty_uarfcn";
const char *const kTemperatureTable = "calDataIf_data_group2_memberProperty_loss0";

// Where a profile keeps its path loss: the 8-level or four-mode layer-1
// stores, or the database's records (whose raw form only the library reads).
QString Lid(const QString &profile, int band)
{
    static const char *const records[kBands] = {
        "NVRAM_EF_AST_TL1_PATHLOSS_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_PATHLOSS_BAND34_LID",
        "NVRAM_EF_AST_TL1_PATHLOSS_BAND36_LID", "NVRAM_EF_AST_TL1_PATHLOSS_BAND38_LID",
        "NVRAM_EF_AST_TL1_PATHLOSS_BAND40_LID"};
    if (profile == "default")
        return QString("TL1_PATHLOSS8_BAND%1").arg(band);
    if (profile == "v1-pathloss-v2")
        return QString("TL1_PATHLOSS_BAND%1").arg(band);
    return records[band];
}

QList<QByteArray> Records(const QString &profile)
{
    QStringList lids;
    for (int band = 0; band < kBands; ++band)
        lids << Lid(profile, band);
    return NvramRecords::Read(lids);
}

// The sub-band loss of a gain mode and sub-band, as the target holds it.
int SubbandLoss(const QString &profile, int band, int mode, int subband)
{
    const QByteArray raw = TavoSim::NvramRecord(Lid(profile, band));
    if (profile == "legacy-v1") {
        TavoPathlossRecord record = {};
        TAVO_NVRAM_DecomposePathloss(&record, raw.constData(), uint32_t(raw.size()));
        return record.subbandLoss[mode][subband];
    }
    int16_t loss = 0;
    std::memcpy(&loss, raw.constData() + 30 + (mode * 15 + subband) * 2, sizeof loss);
    return loss;
}

// A loss cell of a table, and a UARFCN cell (row 0 of the sub-band table).
QDoubleSpinBox *Cell(QDockWidget *page, const char *table, int row, int column)
{
    auto *widget = ToolSession::Find<QTableWidget>(page, table);
    return widget ? qobject_cast<QDoubleSpinBox *>(widget->cellWidget(row, column)) : nullptr;
}
int Uarfcn(QDockWidget *page, int column)
{
    auto *widget = ToolSession::Find<QTableWidget>(page, kSubbandTable);
    auto *cell = widget ? qobject_cast<QSpinBox *>(widget->cellWidget(0, column)) : nullptr;
    return cell ? cell->value() : -1;
}

} // namespace

// The path loss page on targets of each generation as a user drives it:
// the real plug-in and window, the target's records checked. (Failures: the
// TPC pages' test; a target that no item serves: tst_PathlossItem.)
class TestPathlossPage : public ToolSuite {
    Q_OBJECT
public:
    TestPathlossPage() : ToolSuite(RADBENCH_PLUGIN_PATH) {}

private slots:
    void readThenWriteChangesOneLoss_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<double>("unit"); // dB per stored step
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("stored");
        QTest::newRow("8-level commands, 1/8 dB") << "default" << 0.125 << "3.5" << 28;
        QTest::newRow("four-mode commands with the ext mode") << "v1-pathloss-v2" << 0.125 << "-2.375" << -19;
        QTest::newRow("NVRAM records, whole dB") << "legacy-v1" << 1.0 << "7" << 7;
    }
    void readThenWriteChangesOneLoss()
    {
        QFETCH(QString, profile);
        QFETCH(double, unit);
        QDockWidget *page = OpenPage(kPage, profile);
        QVERIFY(page);
        QVERIFY(m_tool.Press(page, "m_btnUpload", "Read data from target successfully."));
        // Row 2 is the middle gain mode.
        QDoubleSpinBox *cell = Cell(page, kSubbandTable, 2, 4);
        QVERIFY(cell);
        QCOMPARE(cell->value(), SubbandLoss(profile, 0, 1, 4) * unit);

        const QList<QByteArray> before = Records(profile);
        cell->selectAll();
        QFETCH(QString, typed);
        QTest::keyClicks(cell, typed);
        QVERIFY(m_tool.Press(page, "m_btnDownload", "Write data to target successfully."));
        QTEST(SubbandLoss(profile, 0, 1, 4), "stored");
        const QStringList changed = NvramRecords::Differences(before, Records(profile));
        QVERIFY2(!changed.isEmpty() && changed.size() <= 2 && changed.first().startsWith("0:"),
                 qPrintable(changed.join(' ')));
        // The page is idle again, and a read shows what the target took.
        QVERIFY(m_tool.Press(page, "m_btnUpload", "Read data from target successfully."));
        QCOMPARE(Cell(page, kSubbandTable, 2, 4)->value(), SubbandLoss(profile, 0, 1, 4) * unit);
    }

    // "Reset" clears the losses of the sub-band tab and keeps its UARFCN row;
    // a band change stores the zeroes under the old band.
    void resetAndBandChange()
    {
        QDockWidget *page = OpenPage(kPage);
        QVERIFY(page);
        QVERIFY(m_tool.Press(page, "m_btnUpload", "Read data from target successfully."));
        const int uarfcn = Uarfcn(page, 3);
        const double temperature = Cell(page, kTemperatureTable, 0, 3)->value();
        QVERIFY(uarfcn > 0 && Cell(page, kSubbandTable, 1, 3)->value() != 0.0);
        QTest::mouseClick(Find<QPushButton>(page, "pushButton"), Qt::LeftButton);
        QCOMPARE(Uarfcn(page, 3), uarfcn);
        for (int row = 1; row < 7; ++row)
            QCOMPARE(Cell(page, kSubbandTable, row, 3)->value(), 0.0);
        QCOMPARE(Cell(page, kTemperatureTable, 0, 3)->value(), temperature);

        auto *band = Find<QComboBox>(page, "calDataIf_config_group1_memberProperty_band");
        band->setCurrentIndex(1);
        QCOMPARE(Cell(page, kSubbandTable, 1, 3)->value(), SubbandLoss("default", 1, 0, 3) * 0.125);
        band->setCurrentIndex(0);
        QCOMPARE(Cell(page, kSubbandTable, 1, 3)->value(), 0.0);
        QCOMPARE(Uarfcn(page, 3), uarfcn);
    }
};

QTEST_MAIN(TestPathlossPage)
#include "tst_PathlossPage.moc"
