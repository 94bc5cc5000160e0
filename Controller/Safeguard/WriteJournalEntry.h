#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>

// One write of one calibration item to the target, as the journal keeps it.
struct SWriteJournalEntry {
    QDateTime time;
    QString item;
    // The target's first IMEI; empty when the target gave none.
    QString target;
    int code = 0;
    QString message;
    // The Cal/INI file with what the target held before; empty when none was made.
    QString backupFile;
    // The program that wrote: "plug-in" or "radbench-cli".
    QString program;

    bool IsSuccess() const { return code == 0; }
};

Q_DECLARE_METATYPE(SWriteJournalEntry)
