#include "JsonPath.h"

#include "RadbenchLog.h"

namespace {

// The path's first key and the rest after the first ".", without copying.
struct SPathStep {
    QStringView head;
    QStringView tail;
};

SPathStep Split(QStringView path)
{
    const int dot = path.indexOf(QLatin1Char('.'));
    if (dot < 0)
        return {path, QStringView()};
    return {path.left(dot), dot == 0 ? QStringView() : path.mid(dot + 1)};
}

QJsonValue ValueIn(const QJsonObject &object, QStringView path)
{
    QJsonValue value;
    QJsonObject level = object;
    for (;;) {
        const SPathStep step = Split(path);
        value = level.value(step.head);
        if (step.tail.isEmpty())
            return value;
        level = value.toObject();
        path = step.tail;
    }
}

bool SetIn(QJsonObject &object, QStringView path, const QString &wholePath, const QJsonValue &value, int depth)
{
    const SPathStep step = Split(path);
    QJsonValue local = object[step.head];
    if (!IsJsonValueDefined(local)) {
        qCCritical(lcFramework) << "Error: modify non-existing property" << step.head;
        return false;
    }
    if (step.tail.isEmpty()) {
        local = value;
    } else {
        QJsonObject inner = local.toObject();
        if (!SetIn(inner, step.tail, wholePath, value, depth + 1)) {
            if (depth == 0)
                qCCritical(lcFramework) << "path: " << wholePath;
            return false;
        }
        local = inner;
    }
    object[step.head] = local;
    return true;
}

bool InsertIn(QJsonObject &object, QStringView path, const QString &key, const QString &subkey,
              const QJsonValue &value)
{
    const SPathStep step = Split(path);
    QJsonValue local = object[step.head];
    if (!IsJsonValueDefined(local)) {
        qCCritical(lcFramework) << "modify non-existing property" << step.head;
        return false;
    }
    QJsonObject inner = local.toObject();
    if (step.tail.isEmpty())
        inner.insert(key, QJsonObject{{subkey, value}});
    else if (!InsertIn(inner, step.tail, key, subkey, value))
        return false;
    object[step.head] = inner;
    return true;
}

} // namespace

bool IsJsonValueDefined(const QJsonValue &value) { return !value.isNull() && !value.isUndefined(); }

QJsonValue GetJsonValue(QJsonObject &object, const QString &path)
{
    const SPathStep step = Split(path);
    const QJsonValue first = object[step.head];
    if (step.tail.isEmpty())
        return first;
    return ValueIn(first.toObject(), step.tail);
}

QJsonValue GetJsonValueConst(const QJsonObject &object, const QString &path) { return ValueIn(object, path); }

bool SetJsonValue(QJsonObject &object, const QString &path, const QJsonValue &value, int depth)
{
    return SetIn(object, path, path, value, depth);
}

bool InsertJsonValue(QJsonObject &object, QString path, QString key, QString subkey, QJsonValue value)
{
    return InsertIn(object, path, key, subkey, value);
}

bool IsJsonPathMissing(const QJsonObject &object, const QString &path)
{
    QJsonObject level = object;
    QStringView rest = path;
    for (;;) {
        const SPathStep step = Split(rest);
        const QJsonValue value = level.value(step.head);
        if (!IsJsonValueDefined(value))
            return true;
        if (step.tail.isEmpty())
            return false;
        if (!value.isObject())
            return true;
        level = value.toObject();
        rest = step.tail;
    }
}
