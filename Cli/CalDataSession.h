#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

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

    // The names of `items` that no controller offers on this target.
    QStringList Unknown(const QStringList &items);

private:
    // The controller of `item` on this target, or null.
    IRfCoreCalDataOperation *ControllerOf(const QString &item);
    static QVector<SEachItemOperationResult> Run(IRfCoreCalDataOperation *controller, ECalDataMovement movement,
                                                 const QStringList &items, TIniFile *file);
    // `items` grouped by their controller, in the order of the controllers.
    QVector<QPair<IRfCoreCalDataOperation *, QStringList>> ByController(const QStringList &items);
};
