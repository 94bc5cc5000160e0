#include "CalDataBackup.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "Interface/CalItemDescriptor.h"
#include "TIniFile.h"

QString CCalDataBackup::NewPath(const QString &folder)
{
    const QString stem = "backup-" + QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss-zzz");
    QString path = QDir(folder).filePath(stem + ".ini");
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = QDir(folder).filePath(QString("%1-%2.ini").arg(stem).arg(n));
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

CCalDataBackup::CCalDataBackup(const QString &path) : m_path(path), m_file(std::make_unique<TIniFile>(path))
{
    QDir().mkpath(QFileInfo(path).absolutePath());
}

CCalDataBackup::~CCalDataBackup() = default;

int CCalDataBackup::Take(CCalItemDescriptor &item, QString &why)
{
    // The item's data go aside while it reads the target's, and come back.
    QTemporaryDir scratch;
    TIniFile aside(scratch.filePath("aside.ini"));
    QString text;
    int code = item.Move(ECalDataMovement::SaveToFile, &aside, text);
    if (code != ERROR_CODE_SUCCESS) {
        why = "the data to write cannot be kept aside: " + text;
        return code;
    }
    code = item.Move(ECalDataMovement::UploadFromFlash, nullptr, text);
    if (code != ERROR_CODE_SUCCESS) {
        why = "the target's data cannot be read: " + (text.isEmpty() ? GetErrorCodeInfo(code).message : text);
    } else {
        code = item.Move(ECalDataMovement::SaveToFile, m_file.get(), text);
        if (code == ERROR_CODE_SUCCESS && !m_file->Save())
            code = ERROR_CODE_FILE_NOT_OPERABLE;
        if (code != ERROR_CODE_SUCCESS)
            why = "cannot write " + m_path + (text.isEmpty() ? QString() : ": " + text);
    }
    const int back = item.Move(ECalDataMovement::LoadFromFile, &aside, text);
    if (back != ERROR_CODE_SUCCESS) {
        why = "the data to write cannot be taken back: " + text;
        return back;
    }
    return code;
}
