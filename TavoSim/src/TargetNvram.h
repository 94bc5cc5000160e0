#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

#include "NvramDatabase.h"

namespace TavoSim {

class ProfileReader;

/* Records of the target's NVRAM by LID; record number n at index n - 1. */
using NvramRecords = QHash<QString, QVector<QByteArray>>;

/*
 * What the target's NVRAM holds: which LIDs, how many records of what size,
 * and what the records hold before anybody writes to them. The transport
 * calls answer from these records, the database calls from the database.
 *
 * By default the target holds exactly what the database describes. A
 * profile's "nvram.target" makes them disagree, as they do when the host
 * loads the database of another software load than the target runs: more or
 * fewer records of a LID, another size, a LID only one side has.
 */
class TargetNvram
{
public:
    /* The LIDs, sizes and counts of `database`, and layer 1's stores. */
    explicit TargetNvram(const NvramDatabase &database);

    /* Reads "nvram.target": LID -> {"count": 0-255, "size": 1-65536}. A LID
     * the database lacks is added (with its kind's full size and default
     * count unless given); count 0 takes a LID away. */
    void read(ProfileReader &target);

    /* The records before anybody writes: zeros, with the software load's
     * defaults (of the kind, then of the LID; a layer-1 store starts from
     * those of its band's NVRAM record) and then the profile's
     * "nvram.records" (if given) laid over them. */
    NvramRecords initialRecords(ProfileReader *seeds) const;

private:
    struct Lid
    {
        const NvramLayout::Kind *kind = nullptr;
        uint32_t size = 0;
        int count = 0;
    };

    QHash<QString, Lid> m_lids;
};

} // namespace TavoSim
