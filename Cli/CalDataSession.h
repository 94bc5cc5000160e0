#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

#include "Interface/CalDataMovement.h"
#include "SEachItemOperationResult.h"

class IRfCoreCalDataOperation;
class TIniFile;

// The calibration items of both controllers, moved the way the pages move
// them but without a window: each movement started on a controller and
// waited for in a local event loop until its done signal.
class CCalDataSession {
public:
    // The items the target offers, in the order of the two controllers.
    QStringList TargetItems();
    // Those of them `path` holds.
    QStringList FileItems(const QString &path);

    // Target → file (created or replaced) and file → target. `items` empty:
    // every item the target offers (upload) or the file holds (download).
    // One result per item; false and `error` when nothing could be moved.
    bool Upload(const QString &path, QStringList items, QVector<SEachItemOperationResult> &results, QString &error);
    bool Download(const QString &path, QStringList items, QVector<SEachItemOperationResult> &results,
                  QString &error);

    // Brings `items` into the tool without writing anything: from the Cal/INI
    // file at `path`, or from the target when `path` is empty.
    bool Fetch(const QString &path, const QStringList &items, QVector<SEachItemOperationResult> &results,
               QString &error);

    // The names of `items` that no controller offers on this target.
    QStringList Unknown(const QStringList &items);

    // Told after each item of a movement: how many of the movement's items
    // are done, of how many, and the item.
    using Progress = std::function<void(int done, int total, const QString &item)>;
    void SetProgress(Progress progress) { m_progress = std::move(progress); }

private:
    // The controller of `item` on this target, or null.
    IRfCoreCalDataOperation *ControllerOf(const QString &item);
    QVector<SEachItemOperationResult> Run(IRfCoreCalDataOperation *controller, ECalDataMovement movement,
                                          const QStringList &items, TIniFile *file);
    // `items` grouped by their controller, in the order of the controllers.
    QVector<QPair<IRfCoreCalDataOperation *, QStringList>> ByController(const QStringList &items);

    Progress m_progress;
    // Of the running command: its items' steps done and in all.
    int m_done = 0;
    int m_total = 0;
};
