#include "FilePathRecordSentry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "TIniFile.h"

const char *const CFilePathRecordSentry::kSection = "Last User Open Path";
const char *const CFilePathRecordSentry::kKey = "last_open_path";

QString CFilePathRecordSentry::SettingsFilePath()
{
    // A station (or a test) may keep its settings elsewhere.
    const QString chosen = qEnvironmentVariable("RADBENCH_SETTINGS");
    if (!chosen.isEmpty())
        return chosen;
    return QCoreApplication::applicationDirPath() + "/../configs/User_Latest_Settings.txt";
}

CFilePathRecordSentry::CFilePathRecordSentry(QString &directory, QString *path, QWidget *parent)
    : QWidget(parent), m_path(path), m_settings(std::make_unique<TIniFile>(SettingsFilePath()))
{
    // A missing file gives the empty default: the dialog opens in its own
    // start folder.
    directory = m_settings->ReadStringW(kSection, kKey, QString());
}

CFilePathRecordSentry::~CFilePathRecordSentry()
{
    if (!m_settings || !m_path || m_path->isEmpty())
        return;
    // The configs folder is made on the first path worth remembering; a
    // fresh installation does not have it, and without it nothing would
    // ever be remembered. Failing that, the write reports and gives up.
    QDir().mkpath(QFileInfo(m_settings->Path()).absolutePath());
    m_settings->WriteStringW(kSection, kKey, *m_path);
    m_settings->Save();
}
