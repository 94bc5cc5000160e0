#include "CalDataSession.h"

#include <QFileInfo>

#include "AwaitSignal.h"
#include "GeneralCore.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"

namespace {

QVector<IRfCoreCalDataOperation *> Controllers()
{
    return {CTdscdmaCore::GetInstance(), CGeneralCore::GetInstance()};
}

} // namespace

QStringList CCalDataSession::TargetItems()
{
    QStringList items;
    for (IRfCoreCalDataOperation *controller : Controllers())
        items += controller->GetSupportItem();
    return items;
}

QStringList CCalDataSession::FileItems(const QString &path)
{
    TIniFile file(path);
    QStringList items;
    for (IRfCoreCalDataOperation *controller : Controllers())
        items += controller->GetSupportItemFromFile(&file);
    return items;
}

IRfCoreCalDataOperation *CCalDataSession::ControllerOf(const QString &item)
{
    for (IRfCoreCalDataOperation *controller : Controllers()) {
        if (controller->GetSupportItem().contains(item))
            return controller;
    }
    return nullptr;
}

QStringList CCalDataSession::Unknown(const QStringList &items)
{
    QStringList unknown;
    for (const QString &item : items) {
        if (!ControllerOf(item))
            unknown << item;
    }
    return unknown;
}

QVector<QPair<IRfCoreCalDataOperation *, QStringList>> CCalDataSession::ByController(const QStringList &items)
{
    QVector<QPair<IRfCoreCalDataOperation *, QStringList>> groups;
    for (IRfCoreCalDataOperation *controller : Controllers()) {
        QStringList own;
        const QStringList offered = controller->GetSupportItem();
        for (const QString &item : items) {
            if (offered.contains(item))
                own << item;
        }
        if (!own.isEmpty())
            groups.append({controller, own});
    }
    return groups;
}

QVector<SEachItemOperationResult> CCalDataSession::Run(IRfCoreCalDataOperation *controller, ECalDataMovement movement,
                                                       const QStringList &items, TIniFile *file)
{
    QObject receiver;
    QObject::connect(controller, &IRfCoreCalDataOperation::Signal_FinishItemCount, &receiver,
                     [this](int finished, SEachItemOperationResult itemResult) {
                         if (finished > 0 && m_progress)
                             m_progress(++m_done, m_total, itemResult.itemName);
                     });
    using Done = void (IRfCoreCalDataOperation::*)(bool, QVector<SEachItemOperationResult>);
    Done done = nullptr;
    std::function<void()> start;
    switch (movement) {
    case ECalDataMovement::UploadFromFlash:
        done = &IRfCoreCalDataOperation::Signal_UploadFromFlashDone;
        start = [&] { controller->UploadFromFlash(items); };
        break;
    case ECalDataMovement::DownloadToFlash:
        done = &IRfCoreCalDataOperation::Signal_DownloadToFlashDone;
        start = [&] { controller->DownloadToFlash(items); };
        break;
    case ECalDataMovement::LoadFromFile:
        done = &IRfCoreCalDataOperation::Signal_LoadFromFileDone;
        start = [&] { controller->LoadFromFile(file, items); };
        break;
    case ECalDataMovement::SaveToFile:
        done = &IRfCoreCalDataOperation::Signal_SaveToFileDone;
        start = [&] { controller->SaveToFile(file, items); };
        break;
    }
    return std::get<1>(AwaitSignal(controller, done, start));
}

bool CCalDataSession::Upload(const QString &path, QStringList items, QVector<SEachItemOperationResult> &results,
                             QString &error)
{
    if (items.isEmpty())
        items = TargetItems();
    m_done = 0;
    m_total = 2 * int(items.size());
    TIniFile file(path);
    for (const auto &[controller, own] : ByController(items)) {
        // What the target gave goes to the file; an item that failed to
        // come keeps its failure.
        const QVector<SEachItemOperationResult> uploaded = Run(controller, ECalDataMovement::UploadFromFlash, own, nullptr);
        QStringList good;
        for (const SEachItemOperationResult &result : uploaded) {
            if (result.errorCode == 0)
                good << result.itemName;
            else
                results << result;
        }
        if (!good.isEmpty())
            results += Run(controller, ECalDataMovement::SaveToFile, good, &file);
    }
    if (!file.Save()) {
        error = "cannot write " + path;
        return false;
    }
    return true;
}

bool CCalDataSession::Fetch(const QString &path, const QStringList &items, QVector<SEachItemOperationResult> &results,
                            QString &error)
{
    if (!path.isEmpty() && !QFileInfo(path).isFile()) {
        error = "no such file: " + path;
        return false;
    }
    m_done = 0;
    m_total = int(items.size());
    TIniFile file(path);
    for (const auto &[controller, own] : ByController(items))
        results += Run(controller, path.isEmpty() ? ECalDataMovement::UploadFromFlash : ECalDataMovement::LoadFromFile,
                       own, &file);
    return true;
}

bool CCalDataSession::Download(const QString &path, QStringList items, QVector<SEachItemOperationResult> &results,
                               QString &error)
{
    if (!QFileInfo(path).isFile()) {
        error = "no such file: " + path;
        return false;
    }
    if (items.isEmpty())
        items = FileItems(path);
    m_done = 0;
    m_total = 2 * int(items.size());
    TIniFile file(path);
    for (const auto &[controller, own] : ByController(items)) {
        const QVector<SEachItemOperationResult> loaded = Run(controller, ECalDataMovement::LoadFromFile, own, &file);
        QStringList good;
        for (const SEachItemOperationResult &result : loaded) {
            if (result.errorCode == 0)
                good << result.itemName;
            else
                results << result;
        }
        if (!good.isEmpty())
            results += Run(controller, ECalDataMovement::DownloadToFlash, good, nullptr);
    }
    return true;
}
