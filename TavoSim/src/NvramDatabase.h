#pragma once

#include <QHash>
#include <QJsonObject>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

#include "NvramLayout.h"

namespace TavoSim {

class ProfileReader;

/*
 * The NVRAM database of a software load: which LIDs it has, how large and how
 * many their records are, and which fields it can name. The host loads it
 * and the database calls answer from it. Databases differ between software
 * loads just as targets do, so a profile can take LIDs and field names away
 * and change sizes and counts. The target's NVRAM (TargetNvram) holds the
 * records the database describes unless the profile says otherwise.
 */
class NvramDatabase
{
public:
    struct Lid
    {
        const NvramLayout::Kind *kind = nullptr;
        uint32_t size = 0;
        int count = 0;
        bool withOptionalField = true;
        QSet<QString> withoutFields;
    };

    /* Where a field, or one element of an array field, lies in a raw record. */
    struct FieldRef
    {
        NvramLayout::Type type;
        int offset;
        int count;

        int size() const { return NvramLayout::sizeOf(type) * count; }
    };

    /* Every LID of every kind with its full record and default count
     * (layer-1 stores aside). */
    NvramDatabase();

    const Lid *lid(const QString &name) const;
    /* The field `field` ("name" or "name[index]") of the records of `lid`,
     * if the database names it and the record holds it. */
    std::optional<FieldRef> field(const QString &lid, const QString &field) const;

    const QHash<QString, Lid> &lids() const { return m_lids; }

    /* Reads the profile's "database" section over the full database. */
    void read(ProfileReader &database);

private:
    QHash<QString, Lid> m_lids;
};

} // namespace TavoSim
