#pragma once

#include <QMetaType>
#include <QString>
#include <QVector>

#include <string>

// The outcome of one operation on one item or page. Copied freely, also
// across threads; a code of 0 is success, any other code is a row of the
// error table (ErrorCodeInfo.h).
struct SEachItemOperationResult {
    QString itemName;
    qint32 errorCode = 0;
    QString errorMessage;
    // Of a write to the target: the Cal/INI file that holds what the target
    // had before; empty when no backup was made.
    QString backupFile = {};

    bool IsSuccess() const { return errorCode == 0; }
};

Q_DECLARE_METATYPE(SEachItemOperationResult)
Q_DECLARE_METATYPE(std::string)

// Makes the types that travel in queued signals known to the meta-type
// system: "std::string", "SEachItemOperationResult" and the result list.
void RegisterOperationMetaTypes();
