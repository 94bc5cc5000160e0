#include "WriteJournal.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QRegularExpression>

#include <atomic>

namespace {

const char *const kCreate = "CREATE TABLE IF NOT EXISTS writes ("
                            "id INTEGER PRIMARY KEY AUTOINCREMENT, time TEXT NOT NULL, item TEXT NOT NULL, "
                            "target TEXT, code INTEGER NOT NULL, message TEXT, backup TEXT, program TEXT)";
// How long a writer waits for another one's lock before it gives up.
const char *const kBusyTimeout = "QSQLITE_BUSY_TIMEOUT=20000";

// One connection of its own for one call: open on construction, closed and
// forgotten on destruction.
class CConnection {
public:
    CConnection(const QString &path, bool create)
    {
        static std::atomic<int> counter{0};
        m_name = QString("radbench-journal-%1").arg(++counter);
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", m_name);
        if (!db.isValid()) {
            m_error = "the SQLite driver of Qt SQL is missing";
            return;
        }
        if (create && !QDir().mkpath(QFileInfo(path).absolutePath())) {
            m_error = "cannot make the folder of " + path;
            return;
        }
        if (!create && !QFileInfo::exists(path)) {
            m_missing = true;
            return;
        }
        db.setDatabaseName(path);
        db.setConnectOptions(create ? kBusyTimeout : QString(kBusyTimeout) + ";QSQLITE_OPEN_READONLY");
        if (!db.open()) {
            m_error = "cannot open " + path + ": " + db.lastError().text();
            return;
        }
        if (create && !Exec(kCreate))
            return;
        m_open = true;
    }
    ~CConnection()
    {
        {
            QSqlDatabase db = QSqlDatabase::database(m_name, false);
            if (db.isOpen())
                db.close();
        }
        QSqlDatabase::removeDatabase(m_name);
    }

    bool IsOpen() const { return m_open; }
    // The file is not there yet (a read of a journal nobody wrote).
    bool IsMissing() const { return m_missing; }
    const QString &Error() const { return m_error; }
    QSqlDatabase Database() const { return QSqlDatabase::database(m_name, false); }

    bool Check(QSqlQuery &query, bool done)
    {
        if (!done)
            m_error = query.lastError().text();
        return done;
    }
    bool Exec(const QString &statement)
    {
        QSqlQuery query(Database());
        return Check(query, query.exec(statement));
    }

private:
    QString m_name;
    QString m_error;
    bool m_open = false;
    bool m_missing = false;
};

void Tell(QString *error, const QString &text)
{
    if (error)
        *error = text;
}

QString CsvField(QString text)
{
    if (!text.contains(QRegularExpression("[\",\r\n]")))
        return text;
    return '"' + text.replace('"', "\"\"") + '"';
}

} // namespace

CWriteJournal::CWriteJournal(QString path) : m_path(std::move(path)) {}

bool CWriteJournal::Append(const SWriteJournalEntry &entry, QString *error) const
{
    CConnection connection(m_path, true);
    if (!connection.IsOpen()) {
        Tell(error, connection.Error());
        return false;
    }
    QSqlQuery query(connection.Database());
    query.prepare("INSERT INTO writes (time, item, target, code, message, backup, program) "
                  "VALUES (?, ?, ?, ?, ?, ?, ?)");
    query.addBindValue(entry.time.toUTC().toString(Qt::ISODateWithMs));
    query.addBindValue(entry.item);
    query.addBindValue(entry.target);
    query.addBindValue(entry.code);
    query.addBindValue(entry.message);
    query.addBindValue(entry.backupFile);
    query.addBindValue(entry.program);
    if (!connection.Check(query, query.exec())) {
        Tell(error, "cannot append to " + m_path + ": " + connection.Error());
        return false;
    }
    return true;
}

QVector<SWriteJournalEntry> CWriteJournal::Entries(const QString &item, QString *error) const
{
    Tell(error, QString());
    CConnection connection(m_path, false);
    if (connection.IsMissing())
        return {};
    if (!connection.IsOpen()) {
        Tell(error, connection.Error());
        return {};
    }
    QSqlQuery query(connection.Database());
    query.setForwardOnly(true);
    query.prepare(item.isEmpty() ? "SELECT time, item, target, code, message, backup, program FROM writes "
                                   "ORDER BY id DESC"
                                 : "SELECT time, item, target, code, message, backup, program FROM writes "
                                   "WHERE item = ? ORDER BY id DESC");
    if (!item.isEmpty())
        query.addBindValue(item);
    if (!connection.Check(query, query.exec())) {
        Tell(error, "cannot read " + m_path + ": " + connection.Error());
        return {};
    }
    QVector<SWriteJournalEntry> entries;
    while (query.next()) {
        SWriteJournalEntry entry;
        entry.time = QDateTime::fromString(query.value(0).toString(), Qt::ISODateWithMs);
        entry.item = query.value(1).toString();
        entry.target = query.value(2).toString();
        entry.code = query.value(3).toInt();
        entry.message = query.value(4).toString();
        entry.backupFile = query.value(5).toString();
        entry.program = query.value(6).toString();
        entries << entry;
    }
    return entries;
}

QByteArray CWriteJournal::ToCsv(const QVector<SWriteJournalEntry> &entries)
{
    QString text = "time,item,target,success,code,message,backup,program\r\n";
    for (const SWriteJournalEntry &entry : entries) {
        const QStringList fields{entry.time.toUTC().toString(Qt::ISODateWithMs),
                                 entry.item,
                                 entry.target,
                                 entry.IsSuccess() ? "yes" : "no",
                                 QString::number(entry.code),
                                 entry.message,
                                 entry.backupFile,
                                 entry.program};
        QStringList quoted;
        for (const QString &field : fields)
            quoted << CsvField(field);
        text += quoted.join(',') + "\r\n";
    }
    return text.toUtf8();
}

QByteArray CWriteJournal::ToJson(const QVector<SWriteJournalEntry> &entries)
{
    QJsonArray array;
    for (const SWriteJournalEntry &entry : entries)
        array.append(QJsonObject{{"time", entry.time.toUTC().toString(Qt::ISODateWithMs)},
                                 {"item", entry.item},
                                 {"target", entry.target},
                                 {"success", entry.IsSuccess()},
                                 {"code", entry.code},
                                 {"message", entry.message},
                                 {"backup", entry.backupFile},
                                 {"program", entry.program}});
    return QJsonDocument(array).toJson(QJsonDocument::Indented);
}
