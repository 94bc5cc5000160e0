#pragma once

#include <QLineEdit>

// A field for a whole unsigned 32-bit number, in decimal or another base,
// that behaves like a spin box: text the base can't read, or a number
// outside the limits, puts the last good text back and shows the range; the
// mouse wheel steps by one within the limits.
class CUnsignedSpinBox : public QLineEdit {
    Q_OBJECT
public:
    CUnsignedSpinBox(QWidget *parent, int base);

    int m_base;
    QString m_lastText;
    quint32 m_maximum = 4294967295u;
    quint32 m_minimum = 0;

public slots:
    void validate(QString input);

protected:
    void wheelEvent(QWheelEvent *e) override;
};
