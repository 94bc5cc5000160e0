#include "UnsignedSpinBox.h"

#include <QToolTip>
#include <QWheelEvent>

CUnsignedSpinBox::CUnsignedSpinBox(QWidget *parent, int base) : QLineEdit(parent), m_base(base)
{
    connect(this, &QLineEdit::textChanged, this, &CUnsignedSpinBox::validate);
    setFont(QFont("Arial", -1, -1, false));
}

void CUnsignedSpinBox::validate(QString input)
{
    if (input.isEmpty())
        return;
    bool ok = false;
    const quint32 number = input.toUInt(&ok, m_base);
    if (!ok || number > m_maximum || number < m_minimum) {
        setText(m_lastText);
        QToolTip::showText(mapToGlobal(QPoint(5, 5)),
                           "Range should be:" + QString::number(m_minimum, m_base).toUpper() + "~" +
                               QString::number(m_maximum, m_base).toUpper(),
                           this);
        return;
    }
    // The text goes up in case first; the nested check of that text is a
    // no-op, and the last good text stays as the user typed it.
    setText(input.toUpper());
    m_lastText = input;
}

void CUnsignedSpinBox::wheelEvent(QWheelEvent *e)
{
    bool ok = false;
    quint32 number = text().toUInt(&ok, m_base);
    if (!ok)
        number = 0;
    QString next;
    if (e->angleDelta().y() > 0) {
        if (number == m_maximum)
            return;
        next = QString::number(number + 1, m_base);
    } else {
        if (number == m_minimum)
            return;
        next = QString::number(number - 1, m_base);
    }
    emit textChanged(next);
}
