#include "NvramDatabase.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

#include "ProfileReader.h"

namespace TavoSim {

namespace {

using NvramLayout::Type;

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

/* Smallest and largest number a JSON value may give an element of `type`:
 * signed and unsigned readings of the same width are both taken. */
void elementRange(Type type, double *min, double *max)
{
    switch (NvramLayout::sizeOf(type)) {
    case 1:
        *min = 0;
        *max = 255;
        break;
    case 2:
        *min = -32768;
        *max = 65535;
        break;
    default:
        *min = -2147483648.0;
        *max = 4294967295.0;
        break;
    }
}

/* Writes one JSON number as an element of `type` at `at`. */
bool putElement(Type type, const QJsonValue &value, uchar *at)
{
    if (!value.isDouble())
        return false;
    const double number = value.toDouble();
    if (type == Type::F32) {
        const float f = float(number);
        NvramLayout::elementToRaw(type, &f, at);
        return std::isfinite(number);
    }
    double min = 0, max = 0;
    elementRange(type, &min, &max);
    if (std::floor(number) != number || number < min || number > max)
        return false;
    const qint64 whole = qint64(number);
    if (NvramLayout::sizeOf(type) == 1) {
        *at = uchar(whole);
    } else if (NvramLayout::sizeOf(type) == 2) {
        const quint16 v = quint16(whole);
        NvramLayout::elementToRaw(type, &v, at);
    } else {
        const quint32 v = quint32(whole);
        NvramLayout::elementToRaw(type, &v, at);
    }
    return true;
}

/* Lays the fields given in `fields` over `record`. A field the kind does not
 * have is a problem; one that lies beyond the record is a problem only when
 * `strict` (the built-in defaults fit every record that has the field). */
void putFields(ProfileReader &fields, const NvramLayout::Kind &kind, QByteArray &record, bool strict)
{
    for (const QString &name : fields.keys()) {
        int offset = 0;
        const NvramLayout::Field *field = kind.field(name, &offset);
        if (!field) {
            fields.fail(name, QStringLiteral("a %1 record has no such field").arg(QLatin1String(kind.name)));
            return;
        }
        if (offset + field->size() > record.size()) {
            if (strict)
                fields.fail(name, QStringLiteral("the record of %1 bytes does not hold the field").arg(record.size()));
            continue;
        }
        auto *at = reinterpret_cast<uchar *>(record.data()) + offset;
        const int step = NvramLayout::sizeOf(field->type);
        const QJsonValue value = fields.value(name.toLatin1().constData());
        double min = 0, max = 0;
        elementRange(field->type, &min, &max);
        const QString expected = field->type == Type::F32
                                     ? QStringLiteral("numbers")
                                     : QStringLiteral("integers from %1 to %2").arg(qint64(min)).arg(qint64(max));

        if (value.isString() && field->type == Type::U8) {
            const QByteArray text = value.toString().toLatin1();
            if (text.size() > field->count) {
                fields.fail(name, QStringLiteral("at most %1 characters").arg(field->count));
                return;
            }
            std::fill(at, at + field->count, uchar(0));
            std::copy(text.begin(), text.end(), at);
        } else if (value.isArray()) {
            const QJsonArray values = value.toArray();
            bool ok = values.size() <= field->count;
            for (int i = 0; ok && i < values.size(); ++i)
                ok = putElement(field->type, values.at(i), at + i * step);
            if (!ok) {
                fields.fail(name, QStringLiteral("expected up to %1 %2").arg(field->count).arg(expected));
                return;
            }
        } else if (field->count != 1 || !putElement(field->type, value, at)) {
            fields.fail(name, field->count == 1 ? QStringLiteral("expected one of the %1").arg(expected)
                                                : QStringLiteral("expected an array of up to %1 %2")
                                                      .arg(field->count)
                                                      .arg(expected));
            return;
        }
    }
}

/* The software load's own record contents, by kind (":/TavoSim/nvram/defaults.json"). */
const QJsonObject &builtInDefaults()
{
    static const QJsonObject defaults = [] {
        QFile file(QStringLiteral(":/TavoSim/nvram/defaults.json"));
        if (!file.open(QIODevice::ReadOnly)) {
            qWarning("TavoSim: the built-in NVRAM defaults are missing");
            return QJsonObject();
        }
        return QJsonDocument::fromJson(file.readAll()).object();
    }();
    return defaults;
}

} // namespace

NvramDatabase::NvramDatabase()
{
    for (const NvramLayout::Kind &kind : NvramLayout::kinds()) {
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

NvramRecords NvramDatabase::initialRecords(ProfileReader *seeds) const
{
    ProfileReader defaults(builtInDefaults());
    NvramRecords records;
    for (auto it = m_lids.constBegin(); it != m_lids.constEnd(); ++it) {
        QByteArray record(int(it->size), '\0');
        if (std::optional<ProfileReader> fields = defaults.object(it->kind->name))
            putFields(*fields, *it->kind, record, false);
        records.insert(it.key(), QVector<QByteArray>(it->count, record));
    }
    if (!defaults.ok())
        qWarning("TavoSim: built-in NVRAM defaults: %s", qPrintable(defaults.error()));

    if (!seeds)
        return records;
    for (const QString &name : seeds->keys()) {
        const Lid *lid = this->lid(name);
        if (!lid) {
            seeds->fail(name, QStringLiteral("not a LID of the database"));
            break;
        }
        const QByteArray key = name.toLatin1();
        QVector<QByteArray> &held = records[name];
        if (seeds->value(key.constData()).isArray()) {
            std::vector<ProfileReader> list = seeds->objects(key.constData());
            if (int(list.size()) > lid->count) {
                seeds->fail(name, QStringLiteral("the LID has %1 record(s)").arg(lid->count));
                break;
            }
            for (size_t i = 0; i < list.size(); ++i)
                putFields(list[i], *lid->kind, held[int(i)], true);
        } else if (std::optional<ProfileReader> fields = seeds->object(key.constData())) {
            putFields(*fields, *lid->kind, held[0], true);
        }
    }
    return records;
}

} // namespace TavoSim
