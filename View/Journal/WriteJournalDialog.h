#pragma once

#include <QDialog>
#include <QVector>

#include <functional>

#include "MessageBoxMan.h"
#include "Safeguard/WriteJournalEntry.h"

namespace Ui {
class CWriteJournalDialog;
}

// The journal of writes to targets, newest first and filterable by item,
// with its export as CSV or JSON and the choice of backups before writes.
// Follows the journal: every write the tool journals shows at once.
class CWriteJournalDialog : public QDialog {
    Q_OBJECT
public:
    explicit CWriteJournalDialog(QWidget *parent = nullptr);
    ~CWriteJournalDialog() override;

    // Reads the journal the tool writes to anew.
    void Refresh();
    // Writes the entries shown to `path`; false, with a message box, when the file cannot be written.
    bool ExportTo(const QString &path, bool csv);

    // Where the user's choice of backups is kept (the tool's settings file by default).
    using ChoiceStore = std::function<bool(bool backup, const QString &folder)>;
    void SetChoiceStore(ChoiceStore store) { m_storeChoice = std::move(store); }

private:
    void ShowEntries();
    void Export(bool csv);
    void ChangeBackups();

    Ui::CWriteJournalDialog *m_ui;
    QVector<SWriteJournalEntry> m_entries;
    QVector<SWriteJournalEntry> m_shown;
    QString m_journalError;
    ChoiceStore m_storeChoice;
    CMessageBoxMan m_messageBox;
};
