#include "MessageBoxMan.h"

#include <QGridLayout>
#include <QSpacerItem>

#include "ErrorCodeInfo.h"

CMessageBoxMan::CMessageBoxMan(QWidget *parent) : QMessageBox(parent) {}

QString CMessageBoxMan::WrapText(const QString &text)
{
    return "<P><FONT COLOR='#000080'><FONT SIZE='4'>" + text + "</FONT></FONT></P>";
}

void CMessageBoxMan::ShowMessage(int kind, QString title, QString text, QString informativeText,
                                 QString detailedText, int width)
{
    if (kind != KIND_WARNING_RICH)
        text = WrapText(text);

    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::NoButton, nullptr,
                    Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    if (!detailedText.isEmpty())
        box.setDetailedText(detailedText);
    if (!informativeText.isEmpty())
        box.setInformativeText(informativeText);

    switch (kind) {
    case KIND_INFORMATION:
        box.setStandardButtons(QMessageBox::Ok);
        box.setDefaultButton(QMessageBox::Ok);
        box.setIcon(QMessageBox::Information);
        break;
    case KIND_WARNING:
    case KIND_WARNING_RICH:
        box.setStandardButtons(QMessageBox::Close);
        box.setDefaultButton(QMessageBox::Close);
        box.setIcon(QMessageBox::Warning);
        break;
    case KIND_ERROR:
        box.setStandardButtons(QMessageBox::Close);
        box.setDefaultButton(QMessageBox::Close);
        box.setIcon(QMessageBox::Critical);
        break;
    default:
        break;
    }

    if (width != -1) {
        auto *grid = qobject_cast<QGridLayout *>(box.layout());
        if (grid) {
            auto *spacer = new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Expanding);
            grid->addItem(spacer, grid->rowCount(), 0, 1, grid->columnCount());
        }
    }
    box.exec();
}

void CMessageBoxMan::ShowResultMessage(const QString &title, const SEachItemOperationResult &result)
{
    const SErrorCodeInfo &row = GetErrorCodeInfo(result.errorCode);
    const int kind = row.level == 2 ? KIND_ERROR : KIND_WARNING;
    ShowMessage(kind, title, row.message, ResultInformativeText(result), QString(), -1);
}

QString ResultInformativeText(const SEachItemOperationResult &result)
{
    return result.errorMessage.isEmpty() ? GetErrorCodeInfo(result.errorCode).advice : result.errorMessage;
}
