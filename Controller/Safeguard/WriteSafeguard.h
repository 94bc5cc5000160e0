#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <mutex>

#include "WriteJournalEntry.h"

class CCalItemDescriptor;
class CCalDataBackup;

// What guards the writes of calibration data to the target, process-wide:
// a backup of the target's data before each download, and a journal entry
// after each write. Both controllers consult it in every download; the
// program configures it (the plug-in from its settings file, the command
// line from its options). Unconfigured, downloads are not guarded.
class CWriteSafeguard : public QObject {
    Q_OBJECT
public:
    struct SSettings {
        // Back up before every download.
        bool backup = false;
        // Where backups go; empty: "radbench-backups" beside the Cal/INI file
        // the user chose last (DefaultFolder).
        QString backupFolder;
        // One file for every download until the next Configure (a command
        // line run that downloads through both controllers); empty: a new
        // file in the folder for each download.
        QString backupFile;
        // The journal's SQLite file; empty: no journal.
        QString journalFile;
        // Who writes, as the journal names it.
        QString program;
    };

    // The writes of one download, item after item (on the download's thread).
    class CWrites {
    public:
        ~CWrites();
        // Backs the item up (when backups are on), writes it unless the
        // backup failed, and journals the write. The code of the write, its
        // text in `message` and the backup in `backupFile`.
        int Write(CCalItemDescriptor &item, QString &message, QString &backupFile);

    private:
        friend class CWriteSafeguard;
        explicit CWrites(SSettings settings);
        QString TargetIdentity();

        const SSettings m_settings;
        std::unique_ptr<CCalDataBackup> m_backup;
        bool m_identityKnown = false;
        QString m_identity;
    };

    static CWriteSafeguard *Instance();

    void Configure(const SSettings &settings);
    SSettings Settings() const;

    // The guard of one download; null when writes are not guarded.
    std::unique_ptr<CWrites> BeginWrites() const;

    // The folder beside the Cal/INI file the user chose last (remembered in
    // the settings file), else the user's application data folder.
    static QString DefaultFolder();
    // The program's settings as the settings file keeps them ("Write
    // Safeguard": "backup_before_write" 1 by default, "backup_folder",
    // "journal_file" with "radbench-journal.sqlite" in DefaultFolder by default).
    static SSettings LoadSettings(const QString &program);
    // Remembers the user's choice of backups and their folder.
    static bool SaveBackupChoice(bool backup, const QString &folder);

    static const char *const kSection;

signals:
    // After every journal append (from the download's thread): the entry,
    // and why it could not be appended (empty when it was).
    void Signal_Journaled(SWriteJournalEntry entry, QString journalError);

private:
    CWriteSafeguard();

    mutable std::mutex m_lock;
    SSettings m_settings;
};
