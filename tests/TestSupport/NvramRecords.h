#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include "TavoSimControl.h"

// Records of the simulated target's NVRAM as a list, and where two such
// lists differ: what a test of a write compares before and after.
namespace NvramRecords {

inline QList<QByteArray> Read(const QStringList &lids)
{
    QList<QByteArray> records;
    for (const QString &lid : lids)
        records << TavoSim::NvramRecord(lid);
    return records;
}

// The bytes that differ, as "record:byte" (or "record:size").
inline QStringList Differences(const QList<QByteArray> &before, const QList<QByteArray> &after)
{
    QStringList places;
    for (int i = 0; i < before.size() && i < after.size(); ++i) {
        if (before[i].size() != after[i].size())
            places << QString("%1:size").arg(i);
        for (int at = 0; at < before[i].size() && at < after[i].size(); ++at) {
            if (before[i][at] != after[i][at])
                places << QString("%1:%2").arg(i).arg(at);
        }
    }
    return places;
}

} // namespace NvramRecords
