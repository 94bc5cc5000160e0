#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

namespace TavoSim {

/*
 * Strict reading of one object of a target profile.
 *
 * Every getter checks the type of its key. The first problem is kept, worded
 * with the dotted path of the key ("tdscdma.rfCapability.ubin: expected true
 * or false"); after it, getters give their fallbacks and nothing else is
 * recorded. A null value counts as an absent key. Readers of nested objects
 * share the error of the reader they came from.
 */
class ProfileReader
{
public:
    explicit ProfileReader(const QJsonObject &object);

    bool ok() const { return m_error->isEmpty(); }
    QString error() const { return *m_error; }

    /* Records a problem with `key` of this object, unless one is kept already. */
    void fail(const QString &key, const QString &problem);

    /* Fails on the first key of the object that is not named here. */
    void allowKeys(std::initializer_list<const char *> keys);

    bool contains(const char *key) const { return m_object.contains(QLatin1String(key)); }
    /* The keys of the object, for objects keyed by names (LIDs, fields). */
    QStringList keys() const { return m_object.keys(); }
    /* Absent, or present as null. */
    bool isAbsent(const char *key) const;
    QJsonValue value(const char *key) const { return m_object.value(QLatin1String(key)); }

    bool boolean(const char *key, bool fallback = false);
    /* An integral number within [min, max]; nullopt when absent or wrong. */
    std::optional<qint64> integer(const char *key, qint64 min, qint64 max);
    /* A number within [min, max]; nullopt when absent or wrong. */
    std::optional<double> real(const char *key, double min, double max);
    QString string(const char *key, const QString &fallback = QString());
    /* An array; nullopt when absent or wrong. */
    std::optional<QJsonArray> array(const char *key);
    /* An array of strings; nullopt when absent or wrong. */
    std::optional<QStringList> strings(const char *key);
    /* A nested object; nullopt when absent or wrong. */
    std::optional<ProfileReader> object(const char *key);
    /* An array of objects, one reader each; empty when absent or wrong. */
    std::vector<ProfileReader> objects(const char *key);

private:
    ProfileReader(const QJsonObject &object, const QString &path, std::shared_ptr<QString> error);
    QString pathOf(const QString &key) const;

    QJsonObject m_object;
    QString m_path;
    std::shared_ptr<QString> m_error;
};

} // namespace TavoSim
