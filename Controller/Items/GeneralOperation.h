#pragma once

#include <QObject>
#include <QString>

#include <cstdint>

#include "TavoCore.h"
#include "TavoTargetAccess.h"

// Root of every object that talks to the target: test operations and
// calibration items. Keeps the text of its last failure, which its owner
// reads after every call (also after success, when it is empty or a report).
class IGeneralOperation : public QObject {
    Q_OBJECT
public:
    explicit IGeneralOperation(QObject *parent = nullptr) : QObject(parent) {}
    ~IGeneralOperation() override = default;

    QString GetErrorMessage() const { return m_errorMessage; }

    // What a download of data that are not valid tells the user.
    static constexpr const char *kDataNotValidText =
        "Data is not valid now.\nYou should load it from file or upload it from flash.";

protected:
    int Handle() const { return m_targetAccess.GetHandle(); }
    // "TAVO_RESULT = " and the library's text of `result`.
    static QString TavoResultText(TAVO_RESULT result);
    // The library's text of `result` alone.
    static QString LibraryResultText(TAVO_RESULT result) { return QString::fromUtf8(TAVO_GetResultText(result)); }

    // How a failed library call reads in this object's error text:
    // TavoResultText by default; objects that report the library's text
    // alone override it.
    virtual QString DescribeTavoResult(TAVO_RESULT result) const { return TavoResultText(result); }
    // Keeps DescribeTavoResult(result) as the error text and gives `code`.
    uint32_t FailWithTavoResult(uint32_t code, TAVO_RESULT result);
    // Code 2 with kDataNotValidText.
    uint32_t FailDataNotValid();

    CTavoTargetAccess m_targetAccess;
    QString m_errorMessage;
};
