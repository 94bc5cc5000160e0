#include "DebuggerChannel.h"

namespace Platform {

Q_LOGGING_CATEGORY(lcDebugger, "radbench.debugger")

void OutputDebuggerLine(const QString &line)
{
    qCDebug(lcDebugger).noquote() << line;
}

} // namespace Platform
