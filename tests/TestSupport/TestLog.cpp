#include "TestLog.h"

#include <QLoggingCategory>
#include <QMutex>
#include <QVector>

// The lines of one running capture.
struct TestLog::Capture::SRecord {
    QtMsgType type;
    QStringList lines;
};

namespace {

// Shared with the threads that log and register categories. An override is
// a channel of the tool's log turned on or off by a test; later ones win.
QMutex s_mutex;
QVector<QPair<QtMsgType, bool>> s_overrides;
QVector<TestLog::Capture::SRecord *> s_captures;
bool s_muteOffscreenNotes = false;
QtMessageHandler s_nextHandler = nullptr;
bool s_handlerInstalled = false;
QLoggingCategory::CategoryFilter s_rulesFilter = nullptr;

// Qt's own filter (the rules of the environment) first, then the tests'
// overrides for the tool's categories and the default category.
void Filter(QLoggingCategory *category)
{
    if (s_rulesFilter)
        s_rulesFilter(category);
    const char *name = category->categoryName();
    if (qstrcmp(name, "default") != 0 && qstrncmp(name, "radbench.", 9) != 0)
        return;
    QMutexLocker lock(&s_mutex);
    for (const auto &override : qAsConst(s_overrides))
        category->setEnabled(override.first, override.second);
}

// Lays the overrides over every category there is, and over those made later.
void ApplyOverrides()
{
    const QLoggingCategory::CategoryFilter previous = QLoggingCategory::installFilter(Filter);
    if (previous != Filter)
        s_rulesFilter = previous;
}

void Handler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    {
        QMutexLocker lock(&s_mutex);
        if (s_muteOffscreenNotes && type == QtWarningMsg && message.startsWith("This plugin does not support"))
            return;
        for (TestLog::Capture::SRecord *record : qAsConst(s_captures)) {
            if (record->type == type) {
                record->lines.append(message);
                return;
            }
        }
    }
    if (s_nextHandler)
        s_nextHandler(type, context, message);
}

void InstallHandler()
{
    if (!s_handlerInstalled)
        s_nextHandler = qInstallMessageHandler(Handler);
    s_handlerInstalled = true;
}

} // namespace

void TestLog::MuteOffscreenPlatformNotes()
{
    InstallHandler();
    QMutexLocker lock(&s_mutex);
    s_muteOffscreenNotes = true;
}

void TestLog::SetChannel(QtMsgType type, bool enabled)
{
    {
        QMutexLocker lock(&s_mutex);
        s_overrides.append({type, enabled});
    }
    ApplyOverrides();
}

TestLog::Capture::Capture(QtMsgType type) : m_record(new SRecord{type, {}})
{
    InstallHandler();
    {
        QMutexLocker lock(&s_mutex);
        m_overridesBefore = s_overrides.size();
        s_captures.append(m_record);
    }
    SetChannel(type, true);
}

TestLog::Capture::~Capture()
{
    {
        QMutexLocker lock(&s_mutex);
        s_captures.removeAll(m_record);
        s_overrides.resize(m_overridesBefore);
    }
    // A category the capture turned on goes back to what the rules and the
    // earlier overrides say.
    ApplyOverrides();
    delete m_record;
}

QStringList TestLog::Capture::Lines() const
{
    QMutexLocker lock(&s_mutex);
    return m_record->lines;
}
