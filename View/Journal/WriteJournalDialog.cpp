#include "WriteJournalDialog.h"

#include <QFileDialog>
#include <QSaveFile>
#include <QSet>

#include "FileDialogMan.h"
#include "Safeguard/WriteJournal.h"
#include "Safeguard/WriteSafeguard.h"
#include "ui_WriteJournalDialog.h"

namespace {

const char *const kAllItems = "All items";

enum EColumn { COLUMN_TIME, COLUMN_ITEM, COLUMN_RESULT, COLUMN_TARGET, COLUMN_PROGRAM, COLUMN_BACKUP, COLUMN_MESSAGE };

} // namespace

CWriteJournalDialog::CWriteJournalDialog(QWidget *parent)
    : QDialog(parent), m_ui(new Ui::CWriteJournalDialog), m_storeChoice(&CWriteSafeguard::SaveBackupChoice)
{
    m_ui->setupUi(this);
    const CWriteSafeguard::SSettings settings = CWriteSafeguard::Instance()->Settings();
    m_ui->m_chkBackup->setChecked(settings.backup);
    m_ui->m_leBackupFolder->setText(settings.backupFolder);

    connect(m_ui->m_btnRefresh, &QPushButton::clicked, this, &CWriteJournalDialog::Refresh);
    connect(m_ui->m_cbItem, &QComboBox::currentTextChanged, this, &CWriteJournalDialog::ShowEntries);
    connect(m_ui->m_btnExportCsv, &QPushButton::clicked, this, [this] { Export(true); });
    connect(m_ui->m_btnExportJson, &QPushButton::clicked, this, [this] { Export(false); });
    connect(m_ui->m_chkBackup, &QCheckBox::toggled, this, &CWriteJournalDialog::ChangeBackups);
    connect(m_ui->m_leBackupFolder, &QLineEdit::editingFinished, this, &CWriteJournalDialog::ChangeBackups);
    connect(m_ui->m_btnChooseFolder, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, "Folder of backups", m_ui->m_leBackupFolder->text());
        if (folder.isEmpty())
            return;
        m_ui->m_leBackupFolder->setText(folder);
        ChangeBackups();
    });
    // A write of this tool goes on top at once, without reading the journal
    // again (Refresh, and every opening, bring the other programs' writes).
    connect(CWriteSafeguard::Instance(), &CWriteSafeguard::Signal_Journaled, this,
            [this](SWriteJournalEntry entry, QString error) {
                if (!error.isEmpty()) {
                    // A journal that cannot be written is told of where the journal shows.
                    m_ui->m_lblJournal->setText("The last write could not be journaled: " + error);
                    return;
                }
                if (!isVisible())
                    return; // opening it reads the journal anew
                m_entries.prepend(entry);
                if (m_ui->m_cbItem->findText(entry.item) < 0)
                    m_ui->m_cbItem->addItem(entry.item);
                ShowEntries();
            });
    Refresh();
}

CWriteJournalDialog::~CWriteJournalDialog() { delete m_ui; }

void CWriteJournalDialog::Refresh()
{
    const QString path = CWriteSafeguard::Instance()->Settings().journalFile;
    m_journalError.clear();
    m_entries = path.isEmpty() ? QVector<SWriteJournalEntry>() : CWriteJournal(path).Entries(QString(), &m_journalError);
    m_ui->m_lblJournal->setText(path.isEmpty()            ? "Writes are not journaled."
                                : m_journalError.isEmpty() ? "Journal: " + path
                                                           : "The journal cannot be read: " + m_journalError);

    // The filter offers every item the journal has, and keeps its choice.
    QStringList items;
    for (const SWriteJournalEntry &entry : m_entries) {
        if (!items.contains(entry.item))
            items << entry.item;
    }
    items.sort();
    const QString chosen = m_ui->m_cbItem->currentText();
    const QSignalBlocker blocker(m_ui->m_cbItem);
    m_ui->m_cbItem->clear();
    m_ui->m_cbItem->addItem(kAllItems);
    m_ui->m_cbItem->addItems(items);
    m_ui->m_cbItem->setCurrentIndex(qMax(0, m_ui->m_cbItem->findText(chosen)));
    ShowEntries();
}

void CWriteJournalDialog::ShowEntries()
{
    const QString item = m_ui->m_cbItem->currentIndex() > 0 ? m_ui->m_cbItem->currentText() : QString();
    m_shown.clear();
    for (const SWriteJournalEntry &entry : m_entries) {
        if (item.isEmpty() || entry.item == item)
            m_shown << entry;
    }
    QTableWidget *table = m_ui->m_tableEntries;
    table->setRowCount(m_shown.size());
    for (int row = 0; row < m_shown.size(); ++row) {
        const SWriteJournalEntry &entry = m_shown[row];
        const QStringList cells{entry.time.toLocalTime().toString("yyyy-MM-dd HH:mm:ss"),
                                entry.item,
                                entry.IsSuccess() ? "ok" : QString("failed (%1)").arg(entry.code),
                                entry.target,
                                entry.program,
                                entry.backupFile,
                                QString(entry.message).replace('\n', ' ')};
        for (int column = 0; column < cells.size(); ++column) {
            auto *cell = new QTableWidgetItem(cells[column]);
            if (column == COLUMN_RESULT && !entry.IsSuccess())
                cell->setForeground(Qt::red);
            table->setItem(row, column, cell);
        }
    }
    table->resizeColumnsToContents();
}

bool CWriteJournalDialog::ExportTo(const QString &path, bool csv)
{
    QSaveFile file(path);
    const QByteArray text = csv ? CWriteJournal::ToCsv(m_shown) : CWriteJournal::ToJson(m_shown);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    m_messageBox.ShowMessage(CMessageBoxMan::KIND_ERROR, "Export the journal", "The journal was not exported.",
                             "Cannot write " + path + ": " + file.errorString(), QString(), -1);
    return false;
}

void CWriteJournalDialog::Export(bool csv)
{
    CFileDialogMan dialog;
    QString path;
    dialog.GetSaveFilePath("Export the journal", csv ? "CSV file (*.csv)|*.csv" : "JSON file (*.json)|*.json", path);
    if (!path.isEmpty())
        ExportTo(path, csv);
}

void CWriteJournalDialog::ChangeBackups()
{
    CWriteSafeguard::SSettings settings = CWriteSafeguard::Instance()->Settings();
    settings.backup = m_ui->m_chkBackup->isChecked();
    settings.backupFolder = m_ui->m_leBackupFolder->text().trimmed();
    CWriteSafeguard::Instance()->Configure(settings);
    if (m_storeChoice && !m_storeChoice(settings.backup, settings.backupFolder))
        m_ui->m_lblJournal->setText("The choice of backups holds until the tool closes: the settings file cannot be written.");
}
