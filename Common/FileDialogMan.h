#pragma once

#include <QString>
#include <QWidget>

// The front of the file dialogs of all pages: default texts, and the dialog
// opens where the user chose a file last time (see CFilePathRecordSentry).
// Create one on the stack for one dialog, on the user interface thread.
//
// Filters have the form "Ini file (*.ini)|*.ini"; several pairs of
// description and patterns may follow each other, separated by bars.
class CFileDialogMan : public QWidget {
    Q_OBJECT
public:
    explicit CFileDialogMan(QWidget *parent = nullptr);

    // `path` receives the chosen file, or is empty when the user cancels.
    // An empty title or filter is replaced by the default.
    void GetOpenFilePath(QString title, QString filter, QString &path);
    void GetSaveFilePath(QString title, QString filter, QString &path);

    static const char *const kDefaultOpenTitle;
    static const char *const kDefaultSaveTitle;
    static const char *const kDefaultFilter;
};
