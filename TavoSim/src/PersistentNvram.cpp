#include "PersistentNvram.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <cctype>

namespace TavoSim {

namespace {

const char kFormat[] = "TavoSim NVRAM";

bool isHex(const QString &text)
{
    if (text.size() % 2 != 0)
        return false;
    for (const QChar c : text) {
        if (!std::isxdigit(static_cast<unsigned char>(c.toLatin1())))
            return false;
    }
    return true;
}

} // namespace

bool PersistentNvram::open(const QString &path, QString *error)
{
    auto fail = [&](const QString &problem) {
        if (error)
            *error = path + QStringLiteral(": ") + problem;
        return false;
    };

    Entries entries;
    QFile file(path);
    if (!path.isEmpty() && file.exists()) {
        if (!file.open(QIODevice::ReadOnly))
            return fail(file.errorString());
        QJsonParseError parse;
        const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parse);
        if (parse.error != QJsonParseError::NoError)
            return fail(QStringLiteral("not JSON: %1 at offset %2").arg(parse.errorString()).arg(parse.offset));
        const QJsonObject top = document.object();
        if (top.value(QStringLiteral("format")).toString() != QLatin1String(kFormat))
            return fail(QStringLiteral("not a TavoSim NVRAM file (\"format\" is not \"%1\")").arg(kFormat));
        const QJsonObject byLid = top.value(QStringLiteral("records")).toObject();
        for (auto lid = byLid.constBegin(); lid != byLid.constEnd(); ++lid) {
            const QJsonObject byNumber = lid->toObject();
            for (auto record = byNumber.constBegin(); record != byNumber.constEnd(); ++record) {
                bool ok = false;
                const int number = record.key().toInt(&ok);
                const QString hex = record->toString();
                if (!ok || number < 1 || !isHex(hex))
                    return fail(QStringLiteral("records.%1.%2: expected a record number and hex bytes")
                                    .arg(lid.key(), record.key()));
                entries[lid.key()].insert(number, QByteArray::fromHex(hex.toLatin1()));
            }
        }
    }
    m_path = path;
    m_entries = entries;
    return true;
}

void PersistentNvram::layOver(NvramRecords &records) const
{
    for (auto lid = m_entries.constBegin(); lid != m_entries.constEnd(); ++lid) {
        auto held = records.find(lid.key());
        for (auto record = lid->constBegin(); record != lid->constEnd(); ++record) {
            const int index = record.key() - 1;
            if (held == records.end() || index >= held->size() || held->at(index).size() != record->size()) {
                qWarning("TavoSim: %s: record %d of %s does not fit the target's NVRAM and is left out",
                         qPrintable(m_path), record.key(), qPrintable(lid.key()));
                continue;
            }
            (*held)[index] = *record;
        }
    }
}

bool PersistentNvram::keep(const QString &lid, int number, const QByteArray &bytes)
{
    Entries entries = m_entries;
    entries[lid].insert(number, bytes);
    QString error;
    if (!save(entries, &error)) {
        qWarning("TavoSim: cannot keep the NVRAM in %s: %s", qPrintable(m_path), qPrintable(error));
        return false;
    }
    m_entries = entries;
    return true;
}

bool PersistentNvram::save(const Entries &entries, QString *error) const
{
    QJsonObject byLid;
    for (auto lid = entries.constBegin(); lid != entries.constEnd(); ++lid) {
        QJsonObject byNumber;
        for (auto record = lid->constBegin(); record != lid->constEnd(); ++record)
            byNumber.insert(QString::number(record.key()), QString::fromLatin1(record->toHex()));
        byLid.insert(lid.key(), byNumber);
    }
    const QJsonObject top{{QStringLiteral("format"), QLatin1String(kFormat)}, {QStringLiteral("records"), byLid}};

    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(top).toJson()) < 0 || !file.commit()) {
        *error = file.errorString();
        return false;
    }
    return true;
}

} // namespace TavoSim
