#pragma once

#include <QLoggingCategory>
#include <QString>

// The channel for notes meant for a developer with a debugger attached, never
// for the user. Each note is one debug line of the logging category
// "radbench.debugger", so a message handler, QT_LOGGING_RULES or a test can
// capture or silence it.
namespace Platform {

Q_DECLARE_LOGGING_CATEGORY(lcDebugger)

void OutputDebuggerLine(const QString &line);

} // namespace Platform
