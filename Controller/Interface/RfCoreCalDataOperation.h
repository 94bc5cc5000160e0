#pragma once

#include <QFuture>
#include <QObject>
#include <QStringList>
#include <QVector>

#include "Capability/FddRfCapability.h"
#include "Capability/GsmRfCapability.h"
#include "Capability/LteRfCapability.h"
#include "Capability/MmrfCapability.h"
#include "Capability/TdscdmaCapability.h"
#include "RatSupportStatus.h"
#include "SEachItemOperationResult.h"
#include "TavoTargetAccess.h"

class TIniFile;

// The calibration data face shared by the controllers: the four movements
// of calibration data between target, tool and Cal/INI file, each started
// by a call that returns at once and ended by its done signal.
class IRfCoreCalDataOperation : public QObject {
    Q_OBJECT
public:
    explicit IRfCoreCalDataOperation(QObject *parent = nullptr);
    ~IRfCoreCalDataOperation() override;

    virtual void UploadFromFlashInternal() = 0;
    virtual void SaveToFileInternal() = 0;
    virtual void LoadFromFileInternal() = 0;
    virtual void DownloadToFlashInternal() = 0;
    virtual QStringList GetSupportItem() = 0;
    virtual QStringList GetSupportItemFromFile(TIniFile *file) = 0;
    virtual void UploadFromFlash(QStringList items) = 0;
    virtual void DownloadToFlash(QStringList items) = 0;
    virtual void LoadFromFile(TIniFile *file, QStringList items) = 0;
    virtual void SaveToFile(TIniFile *file, QStringList items) = 0;
    virtual QString GetErrorMessage();
    virtual void ResetCapability() = 0;
    virtual SRatSupportStatus GetRatSupportStatus() = 0;
    virtual void ResetItemResults();
    virtual void AddItemResult(QString name, int code, QString message);
    virtual SEachItemOperationResult GetItemResult(int index);

signals:
    void Signal_FinishItemCount(int itemFinshCount, SEachItemOperationResult itemResult);
    void Signal_UploadFromFlashDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);
    void Signal_DownloadToFlashDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);
    void Signal_SaveToFileDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);
    void Signal_LoadFromFileDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);

protected:
    SRatSupportStatus m_ratStatus;
    QFuture<void> m_future;
    CGsmRfCapability m_gsmCapObj;
    CMmrfCapability m_mmrfCapObj;
    CLteRfCapability m_lteCapObj;
    CTdscdmaCapability m_tdscdmaCapObj;
    CFddRfCapability m_fddCapObj;
    CTavoTargetAccess m_targetAccess;
    QStringList m_operateItems;
    QString m_errorMessage;
    TIniFile *m_calFile = nullptr;
    QVector<SEachItemOperationResult> m_itemResults;
    bool m_isAllSuccess = true;
};
