#include "TestLog.h"

#include <QLoggingCategory>
#include <QString>

namespace {

QtMessageHandler s_next = nullptr;

void Handler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg && message.startsWith("This plugin does not support"))
        return;
    if (s_next)
        s_next(type, context, message);
}

QtMessageHandler s_beforeCapture = nullptr;
QStringList *s_captured = nullptr;

void CaptureHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtCriticalMsg && s_captured) {
        s_captured->append(message);
        return;
    }
    if (s_beforeCapture)
        s_beforeCapture(type, context, message);
}

} // namespace

void TestLog::MuteOffscreenPlatformNotes()
{
    QtMessageHandler previous = qInstallMessageHandler(Handler);
    if (previous != Handler)
        s_next = previous;
}

void TestLog::SetChannel(QtMsgType type, bool enabled)
{
    QLoggingCategory::defaultCategory()->setEnabled(type, enabled);
}

TestLog::CriticalCapture::CriticalCapture()
{
    s_captured = &m_lines;
    s_beforeCapture = qInstallMessageHandler(CaptureHandler);
    QLoggingCategory::defaultCategory()->setEnabled(QtCriticalMsg, true);
}

TestLog::CriticalCapture::~CriticalCapture()
{
    qInstallMessageHandler(s_beforeCapture);
    s_captured = nullptr;
}

int TestLog::CriticalCapture::Count(const QString &text) const
{
    int count = 0;
    for (const QString &line : m_lines)
        count += line.contains(text) ? 1 : 0;
    return count;
}
