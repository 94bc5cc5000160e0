#pragma once

#include <QString>
#include <QVector>

#include "SEachItemOperationResult.h"

class CCalDataSession;

// The plausibility check of the TPC and RX path loss data, band by band,
// over what a Cal/INI file or the target holds: what a line reads to reject
// a unit.
class CCalDataCheck {
public:
    struct SFinding {
        QString item;
        QString band;
        QString text;
    };

    explicit CCalDataCheck(CCalDataSession &session) : m_session(session) {}

    // Brings the items in (from `path`, or from the target when it is empty)
    // and checks every band. False and `error` when the data could not be
    // brought in; the failed items in `results`.
    bool Run(const QString &path, double maxLossJump, QVector<SFinding> &findings,
             QVector<SEachItemOperationResult> &results, QString &error);

private:
    CCalDataSession &m_session;
};
