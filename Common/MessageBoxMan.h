#pragma once

#include <QMessageBox>

#include "SEachItemOperationResult.h"

// The one message box of the tool, with fixed kinds:
//   1 information, OK;  2 warning, Close;  3 warning, Close, text unwrapped
//   (for a caller's own rich text);  4 critical, Close;  other: no icon, no button.
class CMessageBoxMan : public QMessageBox {
    Q_OBJECT
public:
    enum EKind { KIND_INFORMATION = 1, KIND_WARNING = 2, KIND_WARNING_RICH = 3, KIND_ERROR = 4 };

    explicit CMessageBoxMan(QWidget *parent = nullptr);

    // Shows a modal box and returns when the user has closed it. A width
    // other than -1 makes the box at least that wide.
    void ShowMessage(int kind, QString title, QString text, QString informativeText, QString detailedText,
                     int width);

    // The presentation of a failed result: the error table's message as text,
    // the result's own message or else the table's advice as informative text,
    // an error box for level 2 and a warning box otherwise.
    void ShowResultMessage(const QString &title, const SEachItemOperationResult &result);

    // The wrapping of kinds other than 3.
    static QString WrapText(const QString &text);

signals:
    void Signal_InteractionResult(int result);
};

// The informative text of a failed result: its own message, else the advice
// of its row in the error table.
QString ResultInformativeText(const SEachItemOperationResult &result);
