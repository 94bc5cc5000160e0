#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>

#include "TargetNvram.h"

namespace TavoSim {

/*
 * A file in which the records written to the target's NVRAM outlive the
 * process, as they outlive a power cycle on a real target. It holds every
 * record written while it was in use (and those it held before), not the
 * whole NVRAM: on every reset and profile load the target starts from the
 * profile's records with the file's laid over them.
 *
 * JSON: {"format": "TavoSim NVRAM", "records": {"<LID>": {"<number>": "<hex>"}}}
 *
 * Not locked: the target guards it.
 */
class PersistentNvram
{
public:
    /* Keeps writes in `path` from now on, after reading what the file holds
     * (a missing file is an empty one, made on the first write). An empty
     * path stops keeping. On a problem nothing changes. */
    bool open(const QString &path, QString *error);
    QString path() const { return m_path; }
    bool isOpen() const { return !m_path.isEmpty(); }

    /* Replaces records of `records` by the file's, where the LID and number
     * exist and the sizes agree; a record that does not fit is left out with
     * a warning (the file keeps it). */
    void layOver(NvramRecords &records) const;

    /* Puts one record into the file and saves it. When the file cannot be
     * saved, it stays as it was and the answer is false. */
    bool keep(const QString &lid, int number, const QByteArray &bytes);

private:
    using Entries = QHash<QString, QMap<int, QByteArray>>;

    bool save(const Entries &entries, QString *error) const;

    QString m_path;
    Entries m_entries;
};

} // namespace TavoSim
