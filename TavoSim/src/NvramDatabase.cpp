#include "NvramDatabase.h"

#include <QJsonArray>

#include "ProfileReader.h"

namespace TavoSim {

namespace {

/* Splits "name[3]" into "name" and 3; a plain name gives index -1. */
bool splitFieldName(const QString &text, QString *name, int *index)
{
    *index = -1;
    *name = text;
    const int open = text.indexOf(QLatin1Char('['));
    if (open < 0)
        return true;
    if (!text.endsWith(QLatin1Char(']')))
        return false;
    bool ok = false;
    *index = text.mid(open + 1, text.size() - open - 2).toInt(&ok);
    *name = text.left(open);
    return ok && *index >= 0;
}

} // namespace

NvramDatabase::NvramDatabase()
{
    for (const NvramLayout::Kind &kind : NvramLayout::kinds()) {
        if (kind.storeOf)
            continue;
        for (const char *name : kind.lids) {
            Lid lid;
            lid.kind = &kind;
            lid.size = uint32_t(kind.fullSize());
            lid.count = kind.defaultCount;
            m_lids.insert(QString::fromLatin1(name), lid);
        }
    }
}

const NvramDatabase::Lid *NvramDatabase::lid(const QString &name) const
{
    const auto it = m_lids.constFind(name);
    return it == m_lids.constEnd() ? nullptr : &*it;
}

std::optional<NvramDatabase::FieldRef> NvramDatabase::field(const QString &lidName, const QString &fieldName) const
{
    const Lid *lid = this->lid(lidName);
    QString name;
    int index = -1;
    if (!lid || !splitFieldName(fieldName, &name, &index) || lid->withoutFields.contains(name))
        return std::nullopt;
    int offset = 0;
    const NvramLayout::Field *field = lid->kind->field(name, &offset);
    if (!field || (field->optional && !lid->withOptionalField) || index >= field->count)
        return std::nullopt;
    FieldRef ref{field->type, offset, field->count};
    if (index >= 0)
        ref = FieldRef{field->type, offset + index * NvramLayout::sizeOf(field->type), 1};
    if (uint32_t(ref.offset + ref.size()) > lid->size)
        return std::nullopt;
    return ref;
}

void NvramDatabase::read(ProfileReader &database)
{
    database.allowKeys({"maxPaPowerBandGroups", "withoutLids", "withoutFields", "recordSizes", "recordCounts"});

    /* The TX DAC records of the groups named have the field "maxPaPower". */
    if (!database.isAbsent("maxPaPowerBandGroups")) {
        if (!database.value("maxPaPowerBandGroups").isArray()) {
            database.fail(QStringLiteral("maxPaPowerBandGroups"), QStringLiteral("expected an array of band groups"));
            return;
        }
        const QJsonArray groups = database.value("maxPaPowerBandGroups").toArray();
        const NvramLayout::Kind &txDac = NvramLayout::kind("TxDac");
        for (Lid &lid : m_lids) {
            if (lid.kind == &txDac) {
                lid.withOptionalField = false;
                lid.size = uint32_t(txDac.minimumSize());
            }
        }
        for (int i = 0; i < groups.size(); ++i) {
            const int group = groups[i].toInt(-1);
            if (!groups[i].isDouble() || group < 0 || group > 4) {
                database.fail(QStringLiteral("maxPaPowerBandGroups[%1]").arg(i),
                              QStringLiteral("expected a band group index from 0 to 4"));
                return;
            }
            Lid &lid = m_lids[QString::fromLatin1(txDac.lids[size_t(group)])];
            lid.withOptionalField = true;
            lid.size = uint32_t(txDac.fullSize());
        }
    }

    const std::optional<QStringList> without = database.strings("withoutLids");
    for (int i = 0; without && i < without->size(); ++i) {
        if (m_lids.remove(without->at(i)) == 0)
            database.fail(QStringLiteral("withoutLids[%1]").arg(i),
                          QStringLiteral("\"%1\" is not a LID of the database").arg(without->at(i)));
    }

    /* Objects keyed by LID. */
    auto eachLid = [&](const char *key, auto use) {
        std::optional<ProfileReader> byLid = database.object(key);
        if (!byLid)
            return;
        for (const QString &name : byLid->keys()) {
            auto it = m_lids.find(name);
            if (it == m_lids.end()) {
                byLid->fail(name, QStringLiteral("not a LID of the database"));
                return;
            }
            use(*byLid, name.toLatin1(), *it);
        }
    };
    eachLid("withoutFields", [](ProfileReader &byLid, const QByteArray &key, Lid &lid) {
        const QStringList names = byLid.strings(key.constData()).value_or(QStringList());
        for (const QString &name : names) {
            int offset = 0;
            if (!lid.kind->field(name, &offset)) {
                byLid.fail(QString::fromLatin1(key),
                           QStringLiteral("a %1 record has no field \"%2\"").arg(QLatin1String(lid.kind->name), name));
                return;
            }
            lid.withoutFields.insert(name);
        }
    });
    eachLid("recordSizes", [](ProfileReader &byLid, const QByteArray &key, Lid &lid) {
        lid.size = uint32_t(byLid.integer(key.constData(), 1, 65536).value_or(lid.size));
    });
    eachLid("recordCounts", [](ProfileReader &byLid, const QByteArray &key, Lid &lid) {
        lid.count = int(byLid.integer(key.constData(), 1, 255).value_or(lid.count));
    });
}

} // namespace TavoSim
