#include "ProfileReader.h"

#include <cmath>

namespace TavoSim {

ProfileReader::ProfileReader(const QJsonObject &object)
    : ProfileReader(object, QString(), std::make_shared<QString>())
{
}

ProfileReader::ProfileReader(const QJsonObject &object, const QString &path, std::shared_ptr<QString> error)
    : m_object(object), m_path(path), m_error(std::move(error))
{
}

QString ProfileReader::pathOf(const QString &key) const
{
    return m_path.isEmpty() ? key : m_path + QLatin1Char('.') + key;
}

void ProfileReader::fail(const QString &key, const QString &problem)
{
    if (m_error->isEmpty())
        *m_error = pathOf(key) + QStringLiteral(": ") + problem;
}

void ProfileReader::allowKeys(std::initializer_list<const char *> keys)
{
    for (auto it = m_object.constBegin(); it != m_object.constEnd(); ++it) {
        bool known = false;
        for (const char *key : keys)
            known = known || it.key() == QLatin1String(key);
        if (!known) {
            fail(it.key(), QStringLiteral("unknown key"));
            return;
        }
    }
}

bool ProfileReader::isAbsent(const char *key) const
{
    const QJsonValue v = value(key);
    return v.isUndefined() || v.isNull();
}

bool ProfileReader::boolean(const char *key, bool fallback)
{
    if (isAbsent(key))
        return fallback;
    const QJsonValue v = value(key);
    if (!v.isBool()) {
        fail(QLatin1String(key), QStringLiteral("expected true or false"));
        return fallback;
    }
    return v.toBool();
}

std::optional<qint64> ProfileReader::integer(const char *key, qint64 min, qint64 max)
{
    if (isAbsent(key))
        return std::nullopt;
    const QJsonValue v = value(key);
    const double d = v.toDouble();
    if (!v.isDouble() || std::floor(d) != d || d < double(min) || d > double(max)) {
        fail(QLatin1String(key), QStringLiteral("expected an integer from %1 to %2").arg(min).arg(max));
        return std::nullopt;
    }
    return qint64(d);
}

std::optional<double> ProfileReader::real(const char *key, double min, double max)
{
    if (isAbsent(key))
        return std::nullopt;
    const QJsonValue v = value(key);
    const double d = v.toDouble();
    if (!v.isDouble() || d < min || d > max) {
        fail(QLatin1String(key), QStringLiteral("expected a number from %1 to %2").arg(min).arg(max));
        return std::nullopt;
    }
    return d;
}

QString ProfileReader::string(const char *key, const QString &fallback)
{
    if (isAbsent(key))
        return fallback;
    const QJsonValue v = value(key);
    if (!v.isString()) {
        fail(QLatin1String(key), QStringLiteral("expected a string"));
        return fallback;
    }
    return v.toString();
}

std::optional<QJsonArray> ProfileReader::array(const char *key)
{
    if (isAbsent(key))
        return std::nullopt;
    const QJsonValue v = value(key);
    if (!v.isArray()) {
        fail(QLatin1String(key), QStringLiteral("expected an array"));
        return std::nullopt;
    }
    return v.toArray();
}

std::optional<QStringList> ProfileReader::strings(const char *key)
{
    if (isAbsent(key))
        return std::nullopt;
    const QJsonValue v = value(key);
    if (!v.isArray()) {
        fail(QLatin1String(key), QStringLiteral("expected an array of strings"));
        return std::nullopt;
    }
    QStringList list;
    const QJsonArray array = v.toArray();
    for (int i = 0; i < array.size(); ++i) {
        if (!array.at(i).isString()) {
            fail(QStringLiteral("%1[%2]").arg(QLatin1String(key)).arg(i), QStringLiteral("expected a string"));
            return std::nullopt;
        }
        list << array.at(i).toString();
    }
    return list;
}

std::optional<ProfileReader> ProfileReader::object(const char *key)
{
    if (isAbsent(key))
        return std::nullopt;
    const QJsonValue v = value(key);
    if (!v.isObject()) {
        fail(QLatin1String(key), QStringLiteral("expected an object"));
        return std::nullopt;
    }
    return ProfileReader(v.toObject(), pathOf(QLatin1String(key)), m_error);
}

std::vector<ProfileReader> ProfileReader::objects(const char *key)
{
    std::vector<ProfileReader> readers;
    if (isAbsent(key))
        return readers;
    const QJsonValue v = value(key);
    if (!v.isArray()) {
        fail(QLatin1String(key), QStringLiteral("expected an array of objects"));
        return readers;
    }
    const QJsonArray array = v.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QString element = QStringLiteral("%1[%2]").arg(QLatin1String(key)).arg(i);
        if (!array.at(i).isObject()) {
            fail(element, QStringLiteral("expected an object"));
            return {};
        }
        readers.push_back(ProfileReader(array.at(i).toObject(), pathOf(element), m_error));
    }
    return readers;
}

} // namespace TavoSim
