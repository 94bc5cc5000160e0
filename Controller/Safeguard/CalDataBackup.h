#pragma once

#include <QString>

#include <memory>

class CCalItemDescriptor;
class TIniFile;

// The backup of one download: what the target held for the items about to
// be written, in one Cal/INI file that a plain download puts back. The file
// is on disk, complete for every item taken, before that item's write
// begins, so a download that fails halfway leaves a backup of everything it
// touched.
class CCalDataBackup {
public:
    // Backs up into the file at `path`, made (with its folder) as needed or
    // added to when it is there.
    explicit CCalDataBackup(const QString &path);
    ~CCalDataBackup();

    const QString &Path() const { return m_path; }

    // A name in `folder` that no file has yet, after the time of the
    // download: "backup-20261124-130512-123.ini".
    static QString NewPath(const QString &folder);

    // Reads what the target holds for `item` and adds it to the file; the
    // item's own data (about to be written) are the same afterwards. A code
    // of the error table and the reason in `why` when the backup could not
    // be made.
    int Take(CCalItemDescriptor &item, QString &why);

private:
    QString m_path;
    std::unique_ptr<TIniFile> m_file;
};
