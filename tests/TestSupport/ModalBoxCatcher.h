#pragma once

#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVector>

// Closes the modal message boxes a test provokes and records what they
// showed. While it lives, it looks for an active modal QMessageBox every few
// milliseconds and closes it with its escape (or first) button.
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

private:
    void Poll();

    QTimer m_timer;
    QVector<Box> m_boxes;
};
