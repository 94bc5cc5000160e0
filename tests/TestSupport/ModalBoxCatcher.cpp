#include "ModalBoxCatcher.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QTest>

ModalBoxCatcher::ModalBoxCatcher(QObject *parent) : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &ModalBoxCatcher::Poll);
    m_timer.start(10);
}

void ModalBoxCatcher::Poll()
{
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    if (dialog && dialog->isVisible() && !m_paths.isEmpty()) {
        ++m_fileDialogs;
        const QString path = m_paths.takeFirst();
        if (path.isEmpty()) {
            dialog->reject();
        } else {
            dialog->selectFile(path);
            static_cast<QDialog *>(dialog)->accept();
        }
        return;
    }
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    m_boxes.append({box->windowTitle(), box->text(), box->informativeText(), box->icon(), box->standardButtons()});

    if (QAbstractButton *button = box->escapeButton())
        button->click();
    else if (!box->buttons().isEmpty())
        box->buttons().first()->click();
    else
        box->done(0);
}

bool ModalBoxCatcher::WaitFor(int count, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    while (m_boxes.size() < count && clock.elapsed() < timeoutMs)
        QTest::qWait(10);
    return m_boxes.size() >= count;
}
