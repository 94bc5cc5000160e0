#pragma once

#include <QString>
#include <QWidget>

#include <memory>

class TIniFile;

// Remembers the file the user chose last, across dialogs and runs, in the
// settings file "configs/User_Latest_Settings.txt" beside the folder of the
// host's executable (or the file the environment variable RADBENCH_SETTINGS
// names). Lives for one dialog: the constructor gives the path
// remembered (empty if none), the destructor stores the path the dialog gave,
// unless it is empty (the user cancelled). A settings file that cannot be
// read or written only costs the remembered path.
class CFilePathRecordSentry : public QWidget {
    Q_OBJECT
public:
    // `path` must outlive the sentry.
    CFilePathRecordSentry(QString &directory, QString *path, QWidget *parent = nullptr);
    ~CFilePathRecordSentry() override;

    static QString SettingsFilePath();

    static const char *const kSection;
    static const char *const kKey;

private:
    QString *m_path;
    std::unique_ptr<TIniFile> m_settings;
};
