#pragma once

#include <QObject>
#include <QString>

#include "TavoCore.h"
#include "TavoTargetAccess.h"

// Root of every object that talks to the target: test operations and
// calibration items. Keeps the text of its last failure.
class IGeneralOperation : public QObject {
    Q_OBJECT
public:
    explicit IGeneralOperation(QObject *parent = nullptr) : QObject(parent) {}
    ~IGeneralOperation() override = default;

    QString GetErrorMessage() const { return m_errorMessage; }

protected:
    int Handle() const { return m_targetAccess.GetHandle(); }
    // "TAVO_RESULT = " and the library's text of `result`.
    static QString TavoResultText(TAVO_RESULT result);

    CTavoTargetAccess m_targetAccess;
    QString m_errorMessage;
};
