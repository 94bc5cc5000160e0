#include <QLabel>
#include <QSpinBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include "ModalBoxCatcher.h"
#include "TavoPluginInterface.h"
#include "TavoSimControl.h"
#include "TestFiles.h"
#include "ToolSession.h"

namespace {

const char *const kLid = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
const QStringList kButtons{"m_btnFetch", "m_btnUploadFromFlash", "m_btnDownloadToFlash", "m_btnLoadFromFile",
                           "m_btnSaveToFile"};

QStringList Enabled(QWidget *page)
{
    QStringList enabled;
    for (const QString &name : kButtons) {
        if (page->findChild<QAbstractButton *>(name)->isEnabled())
            enabled << name;
    }
    return enabled;
}

QSpinBox *Adc(QWidget *page, int index)
{
    return ToolSession::Find<QSpinBox>(page, QString("cmdIf_response_group2_memberProperty_adc%1").arg(index));
}

} // namespace

// The "Temperature ADC" page as a user drives it on the simulated target:
// measures, and the ADC table between target, page and file.
class TestTadcPage : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QString error;
        QVERIFY2(m_tool.Load(&error), qPrintable(error));
    }
    void cleanupTestCase() { QVERIFY(m_tool.Unload()); }
    void init()
    {
        m_tool.Plugin()->ResetPlugin();
        QVERIFY(m_tool.Open());
        m_page = m_tool.ShowPage("CTdscdmaTadcDockWidget");
        QVERIFY(m_page);
    }
    void cleanup()
    {
        m_tool.Plugin()->HideTool();
        TavoSim::Reset();
    }

    // The label shows the mean of the count's measures (a hexadecimal count
    // on the page, a number to the target), which the target's temperature
    // implies; a table edited and not written stays as it was.
    void measureShowsTheTargetsTemperature()
    {
        QCOMPARE(ToolSession::Find<QLabel>(m_page, "cmdIf_response_group1_memberProperty_adc_caption")->text(),
                 QString("ADC Channel( 3 )"));
        QVERIFY(TavoSim::PatchProfile({{"tadc", QJsonObject{{"temperature", 55}}}}));
        auto *count = ToolSession::Find<QSpinBox>(m_page, "cmdIf_request_group1_memberProperty_count");
        QCOMPARE(count->text(), QString("10"));
        count->setValue(0x20);
        Adc(m_page, 3)->setValue(4321);
        QVERIFY(m_tool.Press(m_page, "m_btnFetch", "TADC measure successfully."));

        const QString shown = ToolSession::Find<QLabel>(m_page, "cmdIf_response_group1_memberProperty_adc")->text();
        QVERIFY2(qAbs(shown.toInt() - TavoSim::TemperatureAdc()) <= 2,
                 qPrintable(shown + " for " + QString::number(TavoSim::TemperatureAdc())));
        QCOMPARE(TavoSim::CallLog().last().args, QStringList{"count=32"});
        QCOMPARE(Adc(m_page, 3)->value(), 4321);
        QCOMPARE(Enabled(m_page), kButtons);
    }

    void failuresReturnToIdle_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("failingCall");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("boxTitle");
        QTest::addColumn<QString>("label");
        QTest::newRow("measure") << "m_btnFetch" << "AST_GetRfTemperature_r" << "TADC measure failed."
                                 << "TADC measure failed" << "Error";
        QTest::newRow("read") << "m_btnUploadFromFlash" << "TAVO_NVRAM_Read_r" << "Read data from target failed."
                              << "Read data from target failed" << "N/A";
        QTest::newRow("write") << "m_btnDownloadToFlash" << "TAVO_NVRAM_Write_r" << "Write data to target failed."
                               << "Write data to target failed" << "N/A";
    }
    // A failure's box, the buttons back, the busy signal down, the target's
    // table untouched.
    void failuresReturnToIdle()
    {
        QFETCH(QString, button);
        QFETCH(QString, failingCall);
        QFETCH(QString, status);
        if (button == "m_btnDownloadToFlash") // a table to write
            QVERIFY(m_tool.Press(m_page, "m_btnUploadFromFlash", "Read data from target successfully."));
        Adc(m_page, 0)->setValue(99);
        const QByteArray before = TavoSim::NvramRecord(kLid);
        TavoSim::FailOnce(failingCall);
        ModalBoxCatcher boxes;
        QVERIFY(m_tool.Press(m_page, button, status));
        QVERIFY(boxes.WaitFor(1));
        QTEST(boxes.Boxes()[0].title, "boxTitle");
        QTEST(ToolSession::Find<QLabel>(m_page, "cmdIf_response_group1_memberProperty_adc")->text(), "label");
        QCOMPARE(Adc(m_page, 0)->value(), 99);
        QCOMPARE(Enabled(m_page), kButtons);
        QVERIFY(!m_tool.Busy().last().at(1).toBool());
        QCOMPARE(TavoSim::NvramRecord(kLid), before);
    }

    // Read, Export; the target loses its table; Import, Write: the target's
    // record is the one it had, byte for byte.
    void tableRoundTrip()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath("tadc.ini");
        const QByteArray record = TavoSim::NvramRecord(kLid);
        QVERIFY(m_tool.Press(m_page, "m_btnUploadFromFlash", "Read data from target successfully."));
        QCOMPARE(Adc(m_page, 7)->value(), 1044);
        ModalBoxCatcher dialogs;
        dialogs.AnswerFileDialogs({file});
        QVERIFY(m_tool.Press(m_page, "m_btnSaveToFile", "Export data to file successfully."));
        QVERIFY(TestFiles::Read(file).contains("ADC7 = 1044"));

        for (int i = 0; i < 8; ++i)
            Adc(m_page, i)->setValue(7);
        QVERIFY(m_tool.Press(m_page, "m_btnDownloadToFlash", "Write data to target successfully."));
        QVERIFY(TavoSim::NvramRecord(kLid) != record);
        dialogs.AnswerFileDialogs({file});
        QVERIFY(m_tool.Press(m_page, "m_btnLoadFromFile", "Import data from file successfully."));
        QCOMPARE(Adc(m_page, 7)->value(), 1044);
        QVERIFY(m_tool.Press(m_page, "m_btnDownloadToFlash", "Write data to target successfully."));
        QCOMPARE(TavoSim::NvramRecord(kLid), record);
    }

    // No file chosen: the box, and no operation.
    void cancelledImport()
    {
        ModalBoxCatcher boxes;
        boxes.AnswerFileDialogs({QString()});
        TavoSim::ClearCallLog();
        QTest::mouseClick(ToolSession::Find<QToolButton>(m_page, "m_btnLoadFromFile"), Qt::LeftButton);
        QVERIFY(boxes.WaitFor(1));
        QCOMPARE(boxes.Boxes()[0].title, QString("Open file"));
        QVERIFY(boxes.Boxes()[0].text.contains("Please choose the Cal/Ini file..."));
        QCOMPARE(Enabled(m_page), kButtons);
        QVERIFY(TavoSim::CallLog().isEmpty());
    }

private:
    ToolSession m_tool{RADBENCH_PLUGIN_PATH};
    QDockWidget *m_page = nullptr;
};

QTEST_MAIN(TestTadcPage)
#include "tst_TadcPage.moc"
