#include "TargetNvram.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

#include "ProfileReader.h"

namespace TavoSim {

namespace {

using NvramLayout::Type;

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

/* The entries of the built-in defaults that make up a record of `lid`, in
 * the order they are laid: the kind's, then the LID's own. A layer-1 store
 * of an NVRAM record's data starts from those of the record of its band
 * group. */
QStringList defaultsOf(const QString &lid, const NvramLayout::Kind &kind)
{
    QStringList entries;
    if (kind.storeOf && qstrcmp(kind.storeOf, kind.name) != 0) {
        const NvramLayout::Kind &record = NvramLayout::kind(kind.storeOf);
        const auto band = std::find_if(kind.lids.begin(), kind.lids.end(),
                                       [&](const char *name) { return lid == QLatin1String(name); });
        entries << QLatin1String(record.name) << QLatin1String(record.lids.at(size_t(band - kind.lids.begin())));
    }
    return entries << QLatin1String(kind.name) << lid;
}

} // namespace

TargetNvram::TargetNvram(const NvramDatabase &database)
{
    const QHash<QString, NvramDatabase::Lid> &lids = database.lids();
    for (auto it = lids.constBegin(); it != lids.constEnd(); ++it)
        m_lids.insert(it.key(), Lid{it->kind, it->size, it->count});
    for (const NvramLayout::Kind &kind : NvramLayout::kinds()) {
        if (!kind.storeOf)
            continue;
        for (const char *name : kind.lids)
            m_lids.insert(QString::fromLatin1(name), Lid{&kind, uint32_t(kind.fullSize()), kind.defaultCount});
    }
}

void TargetNvram::read(ProfileReader &target)
{
    for (const QString &name : target.keys()) {
        const NvramLayout::Kind *kind = NvramLayout::kindOfLid(name);
        if (!kind || kind->storeOf) {
            target.fail(name, QStringLiteral("not a LID of any record kind"));
            return;
        }
        std::optional<ProfileReader> shape = target.object(name.toLatin1().constData());
        if (!shape)
            continue;
        shape->allowKeys({"count", "size"});
        const auto known = m_lids.constFind(name);
        Lid lid = known != m_lids.constEnd() ? *known : Lid{kind, uint32_t(kind->fullSize()), kind->defaultCount};
        lid.count = int(shape->integer("count", 0, 255).value_or(lid.count));
        lid.size = uint32_t(shape->integer("size", 1, 65536).value_or(lid.size));
        if (lid.count == 0)
            m_lids.remove(name);
        else
            m_lids.insert(name, lid);
    }
}

NvramRecords TargetNvram::initialRecords(ProfileReader *seeds) const
{
    ProfileReader defaults(builtInDefaults());
    NvramRecords records;
    for (auto it = m_lids.constBegin(); it != m_lids.constEnd(); ++it) {
        QByteArray record(int(it->size), '\0');
        for (const QString &entry : defaultsOf(it.key(), *it->kind)) {
            if (std::optional<ProfileReader> fields = defaults.object(entry.toLatin1().constData()))
                putFields(*fields, *it->kind, record, false);
        }
        records.insert(it.key(), QVector<QByteArray>(it->count, record));
    }
    if (!defaults.ok())
        qWarning("TavoSim: built-in NVRAM defaults: %s", qPrintable(defaults.error()));

    if (!seeds)
        return records;
    for (const QString &name : seeds->keys()) {
        const auto lid = m_lids.constFind(name);
        if (lid == m_lids.constEnd()) {
            seeds->fail(name, QStringLiteral("not a LID of the target's NVRAM"));
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
