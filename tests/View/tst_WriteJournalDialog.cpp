// Backups and the journal of writes as a user meets them in the window: a
// page's Write backed up and journaled, a failed Write naming its backup,
// and the journal's dialog with its filter, exports and choice of backups.

#include <QToolButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

#include "ModalBoxCatcher.h"
#include "TavoPluginInterface.h"
#include "TavoSimControl.h"
#include "TestFiles.h"
#include "ToolSession.h"

namespace {

const char *const kAfcLid = "NVRAM_EF_AST_TL1_AFC_DATA_LID";

QStringList Column(QTableWidget *table, int column)
{
    QStringList cells;
    for (int row = 0; row < table->rowCount(); ++row)
        cells << table->item(row, column)->text();
    return cells;
}

} // namespace

class TestWriteJournalDialog : public ToolSuite {
    Q_OBJECT
public:
    TestWriteJournalDialog() : ToolSuite(RADBENCH_PLUGIN_PATH) {}

private:
    QDockWidget *m_page = nullptr;

    QString Backups() const { return QDir(m_tool.SettingsFolder()).filePath("backups"); }

    // The AFC page with backups on, its init DAC changed to `initDac`.
    bool OpenAfcPage(int initDac)
    {
        m_tool.Plugin()->HideTool();
        QDir(Backups()).removeRecursively();
        QFile::remove(QDir(m_tool.SettingsFolder()).filePath("journal.sqlite"));
        if (!m_tool.ChooseBackups(true) || !(m_page = OpenPage("CTdscdmaAfcDockWidget")))
            return false;
        if (!m_tool.Press(m_page, "m_btnRead", "Read data from target successfully."))
            return false;
        Find<QSpinBox>(m_page, "cmdIf_response_group1_memberProperty_initAfcdac")->setValue(initDac);
        return true;
    }

    QDialog *OpenJournal()
    {
        QTest::mouseClick(Find<QToolButton>(m_tool.Window(), "m_btnWriteJournal"), Qt::LeftButton);
        auto *dialog = m_tool.Window()->findChild<QDialog *>("CWriteJournalDialog");
        return dialog && dialog->isVisible() ? dialog : nullptr;
    }

private slots:
    void cleanup()
    {
        TavoSim::ClearFaults();
        ToolSuite::cleanup();
    }

    void pageWrite_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("status");
        QTest::newRow("written") << QString() << "Write data to target successfully.";
        QTest::newRow("the write fails") << "TAVO_NVRAM_Write_r" << "Write data to target failed.";
    }
    // A Write first saves what the target held; a failed one says where it
    // is. The backup, written back, gives the target its old record.
    void pageWrite()
    {
        QFETCH(QString, fault);
        QFETCH(QString, status);
        QVERIFY(OpenAfcPage(4321));
        const QByteArray before = TavoSim::NvramRecord(kAfcLid);
        if (!fault.isEmpty())
            TavoSim::FailAlways(fault);
        ModalBoxCatcher boxes;
        QVERIFY(m_tool.Press(m_page, "m_btnWrite", status));
        TavoSim::ClearFaults();

        const QStringList backups = QDir(Backups()).entryList({"backup-*.ini"});
        QCOMPARE(backups.size(), 1);
        const QString backup = QDir(Backups()).filePath(backups.first());
        if (fault.isEmpty()) {
            QVERIFY(TavoSim::NvramRecord(kAfcLid) != before);
        } else {
            QVERIFY(boxes.WaitFor(1));
            QVERIFY2(boxes.Boxes()[0].informativeText.contains("What the target held before is in " + backup),
                     qPrintable(boxes.Boxes()[0].informativeText));
        }
        boxes.AnswerFileDialogs({backup});
        QVERIFY(m_tool.Press(m_page, "m_btnImport", "Import data from file successfully."));
        QVERIFY(m_tool.Press(m_page, "m_btnWrite", "Write data to target successfully."));
        QCOMPARE(TavoSim::NvramRecord(kAfcLid), before);
    }

    void journalDialog_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("results"); // newest first
        QTest::newRow("all items") << "All items" << QStringList{"ok", "failed (3)", "ok"};
        QTest::newRow("AFC alone") << "AFC" << QStringList{"ok", "failed (3)", "ok"};
    }
    // The dialog shows every write newest first, follows new ones at once,
    // filters by item and exports what it shows.
    void journalDialog()
    {
        QFETCH(QString, filter);
        QVERIFY(OpenAfcPage(4000));
        QVERIFY(m_tool.Press(m_page, "m_btnWrite", "Write data to target successfully."));
        QDialog *dialog = OpenJournal();
        QVERIFY(dialog);
        auto *table = Find<QTableWidget>(dialog, "m_tableEntries");
        QCOMPARE(table->rowCount(), 1);
        {
            ModalBoxCatcher boxes;
            TavoSim::FailAlways("TAVO_NVRAM_Write_r");
            QVERIFY(m_tool.Press(m_page, "m_btnWrite", "Write data to target failed."));
            TavoSim::ClearFaults();
        }
        QVERIFY(m_tool.Press(m_page, "m_btnWrite", "Write data to target successfully."));
        QTRY_COMPARE(table->rowCount(), 3); // written while the dialog is open
        Find<QComboBox>(dialog, "m_cbItem")->setCurrentText(filter);
        QTEST(Column(table, 2), "results");
        QCOMPARE(Column(table, 1).filter("AFC").size(), 3);
        QVERIFY(Column(table, 5)[1].startsWith(Backups()));

        QTemporaryDir dir;
        ModalBoxCatcher dialogs;
        dialogs.AnswerFileDialogs({dir.filePath("journal.csv"), dir.filePath("journal.json")});
        QTest::mouseClick(Find<QPushButton>(dialog, "m_btnExportCsv"), Qt::LeftButton);
        QTest::mouseClick(Find<QPushButton>(dialog, "m_btnExportJson"), Qt::LeftButton);
        QTRY_VERIFY(QFile::exists(dir.filePath("journal.json")));
        QCOMPARE(TestFiles::Read(dir.filePath("journal.csv")).count("\r\n"), 4); // a message may hold a line break
        const QJsonArray exported = QJsonDocument::fromJson(TestFiles::Read(dir.filePath("journal.json"))).array();
        QCOMPARE(exported.size(), 3);
        QCOMPARE(exported[1].toObject()["code"].toInt(), 3);
        dialog->close();
    }

    // Switching backups off holds at once and is kept in the settings file.
    void backupsSwitchedOff()
    {
        QVERIFY(OpenAfcPage(4100));
        QDialog *dialog = OpenJournal();
        QVERIFY(dialog);
        auto *choice = Find<QCheckBox>(dialog, "m_chkBackup");
        QVERIFY(choice->isChecked());
        choice->setChecked(false);
        QVERIFY(m_tool.Press(m_page, "m_btnWrite", "Write data to target successfully."));
        QVERIFY(QDir(Backups()).entryList({"backup-*.ini"}).isEmpty());
        QVERIFY(TestFiles::Read(QDir(m_tool.SettingsFolder()).filePath("settings.txt"))
                    .contains("backup_before_write = 0"));
        dialog->close();
    }
};

QTEST_MAIN(TestWriteJournalDialog)
#include "tst_WriteJournalDialog.moc"
