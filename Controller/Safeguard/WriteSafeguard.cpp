#include "WriteSafeguard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "CalDataBackup.h"
#include "FilePathRecordSentry.h"
#include "Interface/CalItemDescriptor.h"
#include "Items/IMEI.h"
#include "RadbenchLog.h"
#include "TIniFile.h"
#include "WriteJournal.h"

const char *const CWriteSafeguard::kSection = "Write Safeguard";

namespace {

const char *const kBackupKey = "backup_before_write";
const char *const kFolderKey = "backup_folder";
const char *const kJournalKey = "journal_file";

} // namespace

CWriteSafeguard::CWriteSafeguard()
{
    qRegisterMetaType<SWriteJournalEntry>("SWriteJournalEntry");
    if (QCoreApplication::instance())
        moveToThread(QCoreApplication::instance()->thread());
}

CWriteSafeguard *CWriteSafeguard::Instance()
{
    static CWriteSafeguard *const instance = new CWriteSafeguard;
    return instance;
}

void CWriteSafeguard::Configure(const SSettings &settings)
{
    std::lock_guard<std::mutex> lock(m_lock);
    m_settings = settings;
}

CWriteSafeguard::SSettings CWriteSafeguard::Settings() const
{
    std::lock_guard<std::mutex> lock(m_lock);
    return m_settings;
}

std::unique_ptr<CWriteSafeguard::CWrites> CWriteSafeguard::BeginWrites() const
{
    const SSettings settings = Settings();
    if (!settings.backup && settings.journalFile.isEmpty())
        return nullptr;
    return std::unique_ptr<CWrites>(new CWrites(settings));
}

QString CWriteSafeguard::DefaultFolder()
{
    TIniFile file(CFilePathRecordSentry::SettingsFilePath());
    const QString remembered =
        file.ReadStringW(CFilePathRecordSentry::kSection, CFilePathRecordSentry::kKey, QString());
    if (!remembered.isEmpty())
        return QFileInfo(remembered).absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/radbench";
}

CWriteSafeguard::SSettings CWriteSafeguard::LoadSettings(const QString &program)
{
    TIniFile file(CFilePathRecordSentry::SettingsFilePath());
    SSettings settings;
    settings.backup = file.ReadInt(kSection, kBackupKey, 1) != 0;
    settings.backupFolder = file.ReadStringW(kSection, kFolderKey, QString());
    settings.journalFile = file.ReadStringW(kSection, kJournalKey, QString());
    if (settings.journalFile.isEmpty())
        settings.journalFile = QDir(DefaultFolder()).filePath("radbench-journal.sqlite");
    settings.program = program;
    return settings;
}

bool CWriteSafeguard::SaveBackupChoice(bool backup, const QString &folder)
{
    TIniFile file(CFilePathRecordSentry::SettingsFilePath());
    QDir().mkpath(QFileInfo(file.Path()).absolutePath());
    file.WriteInt(kSection, kBackupKey, backup ? 1 : 0);
    file.WriteStringW(kSection, kFolderKey, folder);
    return file.Save();
}

// ---- One download's writes ------------------------------------------------------

CWriteSafeguard::CWrites::CWrites(SSettings settings) : m_settings(std::move(settings)) {}

CWriteSafeguard::CWrites::~CWrites() = default;

QString CWriteSafeguard::CWrites::TargetIdentity()
{
    if (!m_identityKnown) {
        m_identityKnown = true;
        CIMEI imei;
        if (imei.UploadFromFlash() == ERROR_CODE_SUCCESS && imei.GetRecordCount() > 0)
            m_identity = imei.GetImei(0).trimmed();
    }
    return m_identity;
}

int CWriteSafeguard::CWrites::Write(CCalItemDescriptor &item, QString &message, QString &backupFile)
{
    // Which unit this is, asked before anything on it changes.
    const QString target = m_settings.journalFile.isEmpty() ? QString() : TargetIdentity();
    int code = ERROR_CODE_SUCCESS;
    if (m_settings.backup) {
        if (!m_backup) {
            const QString folder = m_settings.backupFolder.isEmpty()
                                       ? QDir(DefaultFolder()).filePath("radbench-backups")
                                       : m_settings.backupFolder;
            m_backup = std::make_unique<CCalDataBackup>(
                m_settings.backupFile.isEmpty() ? CCalDataBackup::NewPath(folder) : m_settings.backupFile);
        }
        QString why;
        code = m_backup->Take(item, why);
        if (code != ERROR_CODE_SUCCESS)
            message = "No backup of " + item.Name() + " could be made, so nothing was written: " + why;
        else
            backupFile = m_backup->Path();
    }
    if (code == ERROR_CODE_SUCCESS)
        code = item.Move(ECalDataMovement::DownloadToFlash, nullptr, message);
    if (code != ERROR_CODE_SUCCESS && !backupFile.isEmpty())
        message += QString(message.isEmpty() ? "" : "\n") + "What the target held before is in " + backupFile +
                   "; download that file to put it back.";
    if (m_settings.journalFile.isEmpty())
        return code;

    SWriteJournalEntry entry{QDateTime::currentDateTime(), item.Name(), target, code, message,
                             backupFile, m_settings.program};
    QString journalError;
    if (!CWriteJournal(m_settings.journalFile).Append(entry, &journalError))
        qCCritical(lcController).noquote() << "The write journal:" << journalError;
    emit CWriteSafeguard::Instance()->Signal_Journaled(entry, journalError);
    return code;
}
