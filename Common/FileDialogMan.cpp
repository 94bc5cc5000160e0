#include "FileDialogMan.h"

#include <QFileDialog>

#include "FilePathRecordSentry.h"

namespace {

// Qt's dialog takes "Ini file (*.ini)" and would read the bar form
// "Ini file (*.ini)|*.ini" as a list of file names, showing no file at all.
// Pairs of description and patterns ("a;b" for several) become Qt's filters.
QString ToQtNameFilters(const QString &filter)
{
    if (!filter.contains('|'))
        return filter;
    const QStringList parts = filter.split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i];
        const int bracket = description.indexOf('(');
        if (bracket >= 0)
            description.truncate(bracket);
        filters << description.trimmed() + " (" + QString(parts[i + 1]).replace(';', ' ') + ")";
    }
    return filters.join(";;");
}

} // namespace

const char *const CFileDialogMan::kDefaultOpenTitle = "Please choose the file to open";
const char *const CFileDialogMan::kDefaultSaveTitle = "Please choose the file to save";
const char *const CFileDialogMan::kDefaultFilter = "All files (*.*)|*.*";

CFileDialogMan::CFileDialogMan(QWidget *parent) : QWidget(parent) {}

void CFileDialogMan::GetOpenFilePath(QString title, QString filter, QString &path)
{
    if (title.isEmpty())
        title = kDefaultOpenTitle;
    if (filter.isEmpty())
        filter = kDefaultFilter;
    QString directory;
    const CFilePathRecordSentry sentry(directory, &path);
    path = QFileDialog::getOpenFileName(this, title, directory, ToQtNameFilters(filter));
}

void CFileDialogMan::GetSaveFilePath(QString title, QString filter, QString &path)
{
    if (title.isEmpty())
        title = kDefaultSaveTitle;
    if (filter.isEmpty())
        filter = kDefaultFilter;
    QString directory;
    const CFilePathRecordSentry sentry(directory, &path);
    path = QFileDialog::getSaveFileName(this, title, directory, ToQtNameFilters(filter));
}
