#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

// Dotted paths into a model: "calDataIf.data.group3.memberProperty.maxPower.caption".
// Every key but the last names an object; a path ends at an array and never
// indexes one. A JSON null and an absent key count the same everywhere.

// Neither null nor undefined.
bool IsJsonValueDefined(const QJsonValue &value);

// The value at `path`, undefined when any step is absent or not an object.
// Reads the first level with the modifying index operator, so an absent
// first key is left in `object` as null (harmless: null counts as absent).
QJsonValue GetJsonValue(QJsonObject &object, const QString &path);
// The same, leaving `object` untouched.
QJsonValue GetJsonValueConst(const QJsonObject &object, const QString &path);

// Replaces the value of a property that exists; false, with a log line,
// when any step of the path is absent (a null can't be overwritten).
// Creates nothing on the way.
bool SetJsonValue(QJsonObject &object, const QString &path, const QJsonValue &value, int depth = 0);

// Under the existing property at `path`, sets `key` to a new object that
// holds only `subkey` with `value`; a former `key` is replaced as a whole.
bool InsertJsonValue(QJsonObject &object, QString path, QString key, QString subkey, QJsonValue value);

// True when any step of `path` is absent, null or not an object.
bool IsJsonPathMissing(const QJsonObject &object, const QString &path);
