#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <cmath>

#include "ModalBoxCatcher.h"
#include "TavoSimControl.h"
#include "TavoPluginInterface.h"
#include "ToolSession.h"

namespace {

const char *const kButtons[] = {"m_btnExport", "m_btnWrite", "m_btnRead", "m_btnImport", "m_btnCalculate",
                                "m_start",     "m_stop"};

// The buttons that are enabled, in the order above.
QStringList Enabled(QWidget *page)
{
    QStringList enabled;
    for (const char *name : kButtons) {
        if (page->findChild<QAbstractButton *>(name)->isEnabled())
            enabled << name;
    }
    return enabled;
}

TavoAfcRecord TargetAfc()
{
    const QByteArray raw = TavoSim::NvramRecord("NVRAM_EF_AST_TL1_AFC_DATA_LID");
    TavoAfcRecord record = {};
    TAVO_NVRAM_DecomposeAfc(&record, raw.constData(), uint32_t(raw.size()));
    return record;
}

} // namespace

// The AFC page as a user drives it on the simulated target: the AFC test's
// states, the calculator, and the AFC data between page and target.
class TestAfcPage : public ToolSuite {
    Q_OBJECT
public:
    TestAfcPage() : ToolSuite(RADBENCH_PLUGIN_PATH) {}

private slots:
    void init()
    {
        ToolSuite::init();
        m_page = OpenPage("CTdscdmaAfcDockWidget");
        QVERIFY(m_page);
    }

    // Idle, running with only the stop in reach, idle again; a failed start
    // stays idle, the host told so, and a failed stop keeps it running. (A
    // failed read: the calibration data pages' tests.)
    void testStates()
    {
        const QStringList idle{"m_btnExport", "m_btnWrite", "m_btnRead", "m_btnImport", "m_btnCalculate", "m_start"};
        QCOMPARE(Enabled(m_page), idle);
        ModalBoxCatcher boxes;
        TavoSim::FailOnce("AST_CAL_afc_start_r");
        QVERIFY(m_tool.Press(m_page, "m_start", "AFC start failed."));
        QVERIFY(boxes.WaitFor(1));
        QCOMPARE(Enabled(m_page), idle);
        QVERIFY(!m_tool.Busy().last().at(1).toBool());
        QVERIFY(m_tool.Press(m_page, "m_start", "AFC start..."));
        QCOMPARE(Enabled(m_page), QStringList{"m_stop"});
        QVERIFY(TavoSim::RadioActivity().startsWith("afc "));

        TavoSim::FailOnce("AST_CAL_stop_r");
        QVERIFY(m_tool.Press(m_page, "m_stop", "AFC stop failed."));
        QVERIFY(boxes.WaitFor(2));
        QCOMPARE(boxes.Boxes()[0].title, QString("AFC start failed"));
        QCOMPARE(boxes.Boxes()[1].title, QString("AFC stop failed"));
        QCOMPARE(Enabled(m_page), QStringList{"m_stop"});
        QVERIFY(m_tool.Press(m_page, "m_stop", "AFC stop."));
        QCOMPARE(Enabled(m_page), idle);
        QCOMPARE(TavoSim::RadioActivity(), QString("idle"));
        QVERIFY(!m_tool.Busy().last().at(1).toBool());
    }

    void calculatorRefuses_data()
    {
        QTest::addColumn<QString>("error1");
        QTest::addColumn<QString>("error2");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("one missing") << "-500" << "" << "Please both fill the value";
        QTest::newRow("the same twice") << "12" << "12" << "must be different!";
    }
    void calculatorRefuses()
    {
        QFETCH(QString, error1);
        QFETCH(QString, error2);
        auto *init = Find<QSpinBox>(m_page, "cmdIf_response_group1_memberProperty_initAfcdac");
        init->setValue(77);
        QTest::keyClicks(Find<QLineEdit>(m_page, "m_edtFreqError1"), error1);
        QTest::keyClicks(Find<QLineEdit>(m_page, "m_edtFreqError2"), error2);
        ModalBoxCatcher boxes;
        QTest::mouseClick(Find<QPushButton>(m_page, "m_btnCalculate"), Qt::LeftButton);
        QVERIFY(boxes.WaitFor(1));
        QCOMPARE(boxes.Boxes()[0].title, QString("AFC Control"));
        QFETCH(QString, refusal);
        QVERIFY(boxes.Boxes()[0].text.contains(refusal));
        QCOMPARE(init->value(), 77);
    }

    // Two AFC tests measured by the instrument, the calculator, and the
    // target's crystal comes back: on frequency at DAC 4150, 2.5 Hz per
    // step at 900 MHz (the profile's), within the noise and the target's
    // storage of the slope.
    void slopeFromTwoMeasures()
    {
        auto *select = Find<QComboBox>(m_page, "cmdIf_request_group1_memberProperty_afcSelect");
        Find<QSpinBox>(m_page, "cmdIf_request_group1_memberProperty_afcdac1")->setValue(4000);
        Find<QSpinBox>(m_page, "cmdIf_request_group1_memberProperty_afcdac2")->setValue(4400);
        QStringList errors;
        for (const char *dac : {"AFC1", "AFC2"}) {
            select->setCurrentText(dac);
            QVERIFY(m_tool.Press(m_page, "m_start", "AFC start..."));
            errors << QString::number(TavoSim::FrequencyError(), 'f', 3);
            QVERIFY(m_tool.Press(m_page, "m_stop", "AFC stop."));
        }
        QVERIFY(std::isnan(TavoSim::FrequencyError()));
        QTest::keyClicks(Find<QLineEdit>(m_page, "m_edtFreqError1"), errors[0]);
        QTest::keyClicks(Find<QLineEdit>(m_page, "m_edtFreqError2"), errors[1]);
        QTest::mouseClick(Find<QPushButton>(m_page, "m_btnCalculate"), Qt::LeftButton);
        const int init = Find<QSpinBox>(m_page, "cmdIf_response_group1_memberProperty_initAfcdac")->value();
        const double slope = Find<QDoubleSpinBox>(m_page, "cmdIf_response_group1_memberProperty_slope")->value();
        QVERIFY2(qAbs(init - 4150) <= 2, qPrintable(QString::number(init)));
        QVERIFY2(qAbs(slope - 2.5) < 0.02, qPrintable(QString::number(slope)));
    }

    // Read shows the target's data; an edit written reaches the AFC record.
    void readEditWrite()
    {
        QVERIFY(m_tool.Press(m_page, "m_btnRead", "Read data from target successfully."));
        auto *init = Find<QSpinBox>(m_page, "cmdIf_response_group1_memberProperty_initAfcdac");
        auto *slope = Find<QDoubleSpinBox>(m_page, "cmdIf_response_group1_memberProperty_slope");
        const TavoAfcRecord before = TargetAfc();
        QCOMPARE(init->value(), int(before.initAfcDac));
        QCOMPARE(slope->value(), std::round(4096.0 / before.slopeInverse * 1e5) / 1e5);
        init->setValue(4321);
        slope->setValue(5.0);
        QVERIFY(m_tool.Press(m_page, "m_btnWrite", "Write data to target successfully."));
        QCOMPARE(int(TargetAfc().initAfcDac), 4321);
        QCOMPARE(int(TargetAfc().slopeInverse), 819);
    }

    // On a target whose layer 1 keeps the AFC data, Read, Export, Write and
    // Import move them through its AFC commands, never the AFC record.
    void layerOneData()
    {
        m_tool.Plugin()->HideTool();
        m_tool.Plugin()->ResetPlugin();
        QVERIFY(m_page = OpenPage("CTdscdmaAfcDockWidget", "modern-l1"));
        QTemporaryDir dir;
        auto *init = Find<QSpinBox>(m_page, "cmdIf_response_group1_memberProperty_initAfcdac");
        QVERIFY(m_tool.Press(m_page, "m_btnRead", "Read data from target successfully."));
        QCOMPARE(init->value(), 4120);
        ModalBoxCatcher dialogs;
        dialogs.AnswerFileDialogs({dir.filePath("afc.ini")});
        QVERIFY(m_tool.Press(m_page, "m_btnExport", "Export data to file successfully."));
        init->setValue(4321);
        QVERIFY(m_tool.Press(m_page, "m_btnWrite", "Write data to target successfully."));
        QCOMPARE(qFromLittleEndian<quint16>(TavoSim::NvramRecord("MMRF_AFC").constData()), quint16(4321));
        dialogs.AnswerFileDialogs({dir.filePath("afc.ini")});
        QVERIFY(m_tool.Press(m_page, "m_btnImport", "Import data from file successfully."));
        QCOMPARE(init->value(), 4120);
        // (The write's journal entry names the target by its IMEI record.)
        QStringList afcCalls;
        for (const TavoSim::CallRecord &call : TavoSim::CallLog()) {
            if (call.name.contains(QRegularExpression("MMAfc|NVRAM_(Read|Write)")) &&
                !call.args.join(',').contains("IMEI"))
                afcCalls << call.name;
        }
        QCOMPARE(afcCalls, (QStringList{"TAVO_MMAfc_GetDataV3", "TAVO_MMAfc_SetDataV3"}));
    }

private:
    QDockWidget *m_page = nullptr;
};

QTEST_MAIN(TestAfcPage)
#include "tst_AfcPage.moc"
