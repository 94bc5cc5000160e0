#pragma once

#include <QStringList>
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

// Collects the critical lines logged while it lives (they still reach the
// test framework's output only if the channel is on).
class CriticalCapture {
public:
    CriticalCapture();
    ~CriticalCapture();
    CriticalCapture(const CriticalCapture &) = delete;
    CriticalCapture &operator=(const CriticalCapture &) = delete;

    const QStringList &Lines() const { return m_lines; }
    // The lines that contain `text`.
    int Count(const QString &text) const;

private:
    QStringList m_lines;
};

} // namespace TestLog
