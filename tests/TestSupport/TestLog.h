#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

// Keeps test output readable without removing any line from the product.
//
// Under CTest the trace of the tool is off by the logging rules of the
// environment (QT_LOGGING_RULES, tests/CMakeLists.txt). A test that checks
// trace lines turns the categories it needs on for itself; what it turns on
// or off here wins over those rules.
namespace TestLog {

// Drops the offscreen platform's notes that it cannot raise windows or
// propagate size hints; every other message goes on to the test framework.
void MuteOffscreenPlatformNotes();

// Turns one channel of all of the tool's log on or off for the rest of the
// test: its categories ("radbench.*") and the default category, where lines
// of code not yet moved to a category go.
void SetChannel(QtMsgType type, bool enabled);

// Collects the lines of one channel of the tool's log while it lives, with
// that channel on meanwhile; they don't reach the test framework's output.
// Afterwards the channel is as it was before (and what SetChannel changed
// meanwhile ends with it).
class Capture {
public:
    explicit Capture(QtMsgType type);
    ~Capture();
    Capture(const Capture &) = delete;
    Capture &operator=(const Capture &) = delete;

    QStringList Lines() const;

    struct SRecord;

private:
    SRecord *m_record;
    int m_overridesBefore;
};

} // namespace TestLog
