#pragma once

#include <QtGlobal>

// Keeps test output readable without removing any line from the product.
namespace TestLog {

// Drops the offscreen platform's notes that it cannot raise windows or
// propagate size hints; every other message goes on to the test framework.
void MuteOffscreenPlatformNotes();

// Turns a channel of the default logging category on or off for the rest of
// the test (the trace is off under CTest; a test that checks trace lines
// turns it on for itself).
void SetChannel(QtMsgType type, bool enabled);

} // namespace TestLog
