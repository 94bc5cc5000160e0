#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include "CalDataMovement.h"
#include "SEachItemOperationResult.h"

class TIniFile;

// One movement of calibration data from its start to its done signal: the
// items it moves, the file of a load or save (the caller's), and what each
// item gave. A run is handed to its pool thread by value and touched by no
// other thread, so runs never share state.
struct SCalDataRun {
    ECalDataMovement movement = ECalDataMovement::UploadFromFlash;
    QStringList m_operateItems;
    TIniFile *m_calFile = nullptr;
    QVector<SEachItemOperationResult> m_itemResults;
    // True until the first item fails.
    bool m_isAllSuccess = true;
    // The text of the item that ran last.
    QString m_errorMessage;

    void ResetItemResults();
    void AddItemResult(const QString &name, int code, const QString &message);
    SEachItemOperationResult GetItemResult(int index) const { return m_itemResults.value(index); }
};
