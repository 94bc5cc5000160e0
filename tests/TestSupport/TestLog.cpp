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
