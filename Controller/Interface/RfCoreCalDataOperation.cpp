#include "RfCoreCalDataOperation.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include "PoolRun.h"
#include "RadbenchLog.h"
#include "Safeguard/WriteSafeguard.h"
#include "TavoApp.h"

IRfCoreCalDataOperation::IRfCoreCalDataOperation(QObject *parent) : QObject(parent)
{
    // The results cross threads in queued signals, to the user interface
    // thread whichever thread first made the controller.
    RegisterOperationMetaTypes();
    if (QCoreApplication::instance() && thread() != QCoreApplication::instance()->thread())
        moveToThread(QCoreApplication::instance()->thread());
    Platform::WatchEventQueueHandOffs();
}

QJsonObject IRfCoreCalDataOperation::ParseModel(const std::string &model)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(model)).object();
}

IRfCoreCalDataOperation::~IRfCoreCalDataOperation() = default;

QString IRfCoreCalDataOperation::GetErrorMessage()
{
    std::lock_guard<std::mutex> lock(m_stateLock);
    return m_errorMessage;
}

void IRfCoreCalDataOperation::SetErrorMessage(const QString &message)
{
    std::lock_guard<std::mutex> lock(m_stateLock);
    m_errorMessage = message;
}

bool IRfCoreCalDataOperation::IsC2kModem()
{
    const int handle = m_targetAccess.GetHandle();
    int modemIndex = 0;
    int service = TAVO_MD_SRV_NONE;
    return TavoConn_GetMdActiveIdx(handle, &modemIndex) == TAVO_OK &&
           TavoConn_GetMdSrv(handle, modemIndex, &service) == TAVO_OK && service == TAVO_MD_SRV_C2K;
}

void IRfCoreCalDataOperation::ForgetTarget()
{
    for (const auto &item : m_calItemMap.Items())
        item->ForgetTarget();
    CTdscdmaCapability::ResetTdscdmaCapability();
    CGsmRfCapability::ResetGsmRfCapability();
    CMmrfCapability::ResetMmrfCapability();
    CLteRfCapability::ResetLteRfCapability();
    CFddRfCapability::ResetFddRfCapability();
}

// ---- What a target and a file offer ------------------------------------------

QStringList IRfCoreCalDataOperation::GetSupportItem()
{
    if (!IsTargetServed())
        return {};
    QStringList items;
    for (const auto &item : m_calItemMap.Items()) {
        if (item->IsSupported())
            items << item->Name();
    }
    return items;
}

QStringList IRfCoreCalDataOperation::GetSupportItemFromFile(TIniFile *file)
{
    if (!IsTargetServed())
        return {};
    QStringList items;
    for (const auto &item : m_calItemMap.Items()) {
        if (item->IsSupported() && file && item->IsInFile(file))
            items << item->Name();
    }
    return items;
}

// ---- Movements -----------------------------------------------------------------

void IRfCoreCalDataOperation::UploadFromFlash(QStringList items)
{
    StartMovement(ECalDataMovement::UploadFromFlash, nullptr, std::move(items));
}

void IRfCoreCalDataOperation::DownloadToFlash(QStringList items)
{
    StartMovement(ECalDataMovement::DownloadToFlash, nullptr, std::move(items));
}

void IRfCoreCalDataOperation::LoadFromFile(TIniFile *file, QStringList items)
{
    StartMovement(ECalDataMovement::LoadFromFile, file, std::move(items));
}

void IRfCoreCalDataOperation::SaveToFile(TIniFile *file, QStringList items)
{
    StartMovement(ECalDataMovement::SaveToFile, file, std::move(items));
}

void IRfCoreCalDataOperation::StartMovement(ECalDataMovement movement, TIniFile *file, QStringList items)
{
    SCalDataRun run;
    run.movement = movement;
    run.m_operateItems = std::move(items);
    run.m_calFile = file;
    using Internal = void (IRfCoreCalDataOperation::*)(SCalDataRun);
    Internal internal = nullptr;
    switch (movement) {
    case ECalDataMovement::UploadFromFlash:
        internal = &IRfCoreCalDataOperation::UploadFromFlashInternal;
        break;
    case ECalDataMovement::DownloadToFlash:
        internal = &IRfCoreCalDataOperation::DownloadToFlashInternal;
        break;
    case ECalDataMovement::LoadFromFile:
        internal = &IRfCoreCalDataOperation::LoadFromFileInternal;
        break;
    case ECalDataMovement::SaveToFile:
        internal = &IRfCoreCalDataOperation::SaveToFileInternal;
        break;
    }
    RunInPool(this, internal, std::move(run));
}

void IRfCoreCalDataOperation::RunMovement(SCalDataRun &run)
{
    run.ResetItemResults();
    m_stopRequested = false;
    // The writes of a download are backed up and journaled, as the program says.
    const std::unique_ptr<CWriteSafeguard::CWrites> writes =
        run.movement == ECalDataMovement::DownloadToFlash ? CWriteSafeguard::Instance()->BeginWrites() : nullptr;
    // Whatever escapes from an item ends the pass with the results so far.
    try {
        for (int i = 0; i < run.m_operateItems.size(); ++i) {
            if (i == 0) {
                HandOverToReceivers();
                emit Signal_FinishItemCount(0, SEachItemOperationResult());
            }
            if (StopBefore(run, i))
                break;
            const QString &name = run.m_operateItems.at(i);
            run.m_errorMessage.clear();
            int code = ERROR_CODE_NOT_EXECUTED;
            QString backupFile;
            if (CCalItemDescriptor *item = m_calItemMap.ByName(name))
                code = writes ? writes->Write(*item, run.m_errorMessage, backupFile)
                              : item->Move(run.movement, run.m_calFile, run.m_errorMessage);
            if (code != ERROR_CODE_SUCCESS)
                run.m_isAllSuccess = false;
            run.AddItemResult(name, code, run.m_errorMessage);
            run.m_itemResults.last().backupFile = backupFile;
            HandOverToReceivers();
            emit Signal_FinishItemCount(i + 1, run.GetItemResult(i));
        }
    } catch (...) {
    }
    SetErrorMessage(run.m_errorMessage);

    HandOverToReceivers();
    switch (run.movement) {
    case ECalDataMovement::UploadFromFlash:
        emit Signal_UploadFromFlashDone(run.m_isAllSuccess, run.m_itemResults);
        break;
    case ECalDataMovement::DownloadToFlash:
        emit Signal_DownloadToFlashDone(run.m_isAllSuccess, run.m_itemResults);
        break;
    case ECalDataMovement::LoadFromFile:
        emit Signal_LoadFromFileDone(run.m_isAllSuccess, run.m_itemResults);
        break;
    case ECalDataMovement::SaveToFile:
        emit Signal_SaveToFileDone(run.m_isAllSuccess, run.m_itemResults);
        break;
    }
}

bool IRfCoreCalDataOperation::StopBefore(SCalDataRun &run, int next)
{
    if (!m_stopRequested.exchange(false))
        return false;
    qCDebug(lcController).noquote() << QString("[%1] action stop()").arg(metaObject()->className())
                                    << run.m_operateItems.at(next);
    run.m_isAllSuccess = false;
    for (int i = next; i < run.m_operateItems.size(); ++i) {
        run.AddItemResult(run.m_operateItems.at(i), ERROR_CODE_TERMINATED, "You stoped the operation.");
        HandOverToReceivers();
        emit Signal_FinishItemCount(i + 1, run.GetItemResult(i));
    }
    return true;
}

// ---- Exchange with pages -----------------------------------------------------------

void IRfCoreCalDataOperation::SetCalibrationData(const QString &item, const std::string &model)
{
    if (m_calItemMap.ByName(item))
        SetCalibrationData(item, ParseModel(model));
}

std::string IRfCoreCalDataOperation::GetCalibrationData(const QString &item, const std::string &model)
{
    CCalItemDescriptor *descriptor = m_calItemMap.ByName(item);
    return descriptor ? descriptor->GetCalibrationData(ParseModel(model)) : model;
}

void IRfCoreCalDataOperation::SetCalibrationData(const QString &item, const QJsonObject &model)
{
    if (CCalItemDescriptor *descriptor = m_calItemMap.ByName(item))
        descriptor->SetCalibrationData(model);
}

QJsonObject IRfCoreCalDataOperation::GetCalibrationData(const QString &item, const QJsonObject &model)
{
    CCalItemDescriptor *descriptor = m_calItemMap.ByName(item);
    return descriptor ? descriptor->GetCalibrationDataModel(model) : model;
}

SCalDataRoute IRfCoreCalDataOperation::CalDataRoute(const QString &item)
{
    CCalItemDescriptor *descriptor = m_calItemMap.ByName(item);
    return descriptor ? descriptor->Route(this) : SCalDataRoute{this, item};
}
