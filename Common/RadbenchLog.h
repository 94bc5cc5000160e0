#pragma once

#include <QLoggingCategory>

// The logging categories of the tool. Every trace line of the tool goes to
// one of them, so that a user or a test silences or selects it with the usual
// rules, e.g. QT_LOGGING_RULES="radbench.*.debug=false":
//  - radbench.framework: the data-model binding (pages, the form base, model paths);
//  - radbench.controller: the controllers, their operations and items;
//  - radbench.view: the pages' own steps, the main window and the plug-in object.
// Notes for a developer at a debugger go to radbench.debugger (Platform/DebuggerChannel.h).
Q_DECLARE_LOGGING_CATEGORY(lcFramework)
Q_DECLARE_LOGGING_CATEGORY(lcController)
Q_DECLARE_LOGGING_CATEGORY(lcView)
