#pragma once

#include <QMetaType>

// Makes a page class known by its name, as a page list names it, so that the
// form can build it: one line in the page's own source file,
//   RADBENCH_REGISTER_PAGE(CTdscdmaContTxDockWidget);
// The page class needs a Q_INVOKABLE constructor taking the parent widget.
#define RADBENCH_REGISTER_PAGE(Page)                                                                                   \
    namespace {                                                                                                        \
    const int s_registered##Page = qRegisterMetaType<Page *>(#Page "*");                                              \
    }
