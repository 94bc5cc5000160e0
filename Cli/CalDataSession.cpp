#include "CalDataSession.h"

#include <QEventLoop>
#include <QFileInfo>

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
    QEventLoop loop;
    QVector<SEachItemOperationResult> results;
    const QMetaObject::Connection progress = QObject::connect(
        controller, &IRfCoreCalDataOperation::Signal_FinishItemCount, &loop,
        [this](int finished, SEachItemOperationResult itemResult) {
            if (finished > 0 && m_progress)
                m_progress(++m_done, m_total, itemResult.itemName);
        });
    const auto done = [&](bool, QVector<SEachItemOperationResult> itemResults) {
        results = itemResults;
        loop.quit();
    };
    QMetaObject::Connection connection;
    switch (movement) {
    case ECalDataMovement::UploadFromFlash:
        connection = QObject::connect(controller, &IRfCoreCalDataOperation::Signal_UploadFromFlashDone, &loop, done);
        controller->UploadFromFlash(items);
        break;
    case ECalDataMovement::DownloadToFlash:
        connection = QObject::connect(controller, &IRfCoreCalDataOperation::Signal_DownloadToFlashDone, &loop, done);
        controller->DownloadToFlash(items);
        break;
    case ECalDataMovement::LoadFromFile:
        connection = QObject::connect(controller, &IRfCoreCalDataOperation::Signal_LoadFromFileDone, &loop, done);
        controller->LoadFromFile(file, items);
        break;
    case ECalDataMovement::SaveToFile:
        connection = QObject::connect(controller, &IRfCoreCalDataOperation::Signal_SaveToFileDone, &loop, done);
        controller->SaveToFile(file, items);
        break;
    }
    loop.exec();
    QObject::disconnect(connection);
    QObject::disconnect(progress);
    return results;
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
