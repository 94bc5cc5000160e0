#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include "WriteJournalEntry.h"

// The journal of every write to the target: an SQLite database through Qt
// SQL, appended to by any number of threads and processes at once (each
// append is one transaction; a writer waits for another's lock) and read
// newest first.
//
// Every call opens its own connection and closes it again, so a journal
// object may be used on any thread. Failures never throw: they give false
// or nothing, with the reason in `error`.
class CWriteJournal {
public:
    explicit CWriteJournal(QString path);

    const QString &Path() const { return m_path; }

    // Appends `entry`; the journal's folder and file are made as needed.
    bool Append(const SWriteJournalEntry &entry, QString *error = nullptr) const;
    // The entries, newest first; those of `item` alone unless it is empty.
    QVector<SWriteJournalEntry> Entries(const QString &item = QString(), QString *error = nullptr) const;

    // The entries as a CSV table with a head line, or as a JSON array.
    static QByteArray ToCsv(const QVector<SWriteJournalEntry> &entries);
    static QByteArray ToJson(const QVector<SWriteJournalEntry> &entries);

private:
    QString m_path;
};
