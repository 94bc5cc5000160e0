#pragma once

#include <QObject>
#include <QStringList>

#include "Interface/RfCoreCalDataOperation.h"

// What a controller told of its movements of calibration data, in the order
// it told it: the progress counts, which movements ended, and their results
// as "name:code:message".
struct SMovementLog {
    QObject receiver;
    QList<int> progress;
    QStringList done; // "upload", "download", "load", "save"
    bool isAllSuccess = false;
    QStringList results;

    explicit SMovementLog(IRfCoreCalDataOperation *core)
    {
        QObject::connect(core, &IRfCoreCalDataOperation::Signal_FinishItemCount, &receiver,
                         [this](int count, SEachItemOperationResult) { progress << count; });
        const auto onDone = [this, core](auto signal, const char *name) {
            QObject::connect(core, signal, &receiver, [this, name](bool all, QVector<SEachItemOperationResult> items) {
                done << name;
                isAllSuccess = all;
                for (const SEachItemOperationResult &item : items)
                    results << QString("%1:%2:%3").arg(item.itemName).arg(item.errorCode).arg(item.errorMessage);
            });
        };
        onDone(&IRfCoreCalDataOperation::Signal_UploadFromFlashDone, "upload");
        onDone(&IRfCoreCalDataOperation::Signal_DownloadToFlashDone, "download");
        onDone(&IRfCoreCalDataOperation::Signal_LoadFromFileDone, "load");
        onDone(&IRfCoreCalDataOperation::Signal_SaveToFileDone, "save");
    }
};
