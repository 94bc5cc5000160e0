#pragma once

#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVector>

// Closes the modal message boxes a test provokes and records what they
// showed. While it lives, it looks for an active modal QMessageBox every few
// milliseconds and closes it with its escape (or first) button. File
// dialogs it answers with the paths it was given, one each, in order.
class ModalBoxCatcher : public QObject {
    Q_OBJECT
public:
    struct Box {
        QString title;
        QString text;
        QString informativeText;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QMessageBox::StandardButtons buttons;
    };

    explicit ModalBoxCatcher(QObject *parent = nullptr);

    const QVector<Box> &Boxes() const { return m_boxes; }
    int Count() const { return m_boxes.size(); }
    // Waits until `count` boxes have been closed, or the time is out.
    bool WaitFor(int count, int timeoutMs = 5000);

    // The next file dialogs choose these paths; an empty one cancels.
    void AnswerFileDialogs(const QStringList &paths) { m_paths += paths; }
    int FileDialogCount() const { return m_fileDialogs; }

private:
    void Poll();

    QTimer m_timer;
    QVector<Box> m_boxes;
    QStringList m_paths;
    int m_fileDialogs = 0;
};
