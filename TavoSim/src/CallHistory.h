#pragma once

#include <QHash>
#include <QVector>

#include "TavoSimControl.h"

namespace TavoSim {

/*
 * The calls that reached the simulated target, in the order of arrival. Not
 * locked: the target guards it.
 *
 * A call is logged when it arrives and gets its result when it answers, so
 * concurrent calls keep their order of arrival. A ticket names a logged call
 * and stays harmless when the log was cleared in between. The log keeps the
 * latest calls only (a long host session must not grow without end); the
 * counts per name cover every call since the last clear.
 */
class CallHistory
{
public:
    using Ticket = quint64;

    Ticket append(const CallRecord &record);
    void setResult(Ticket ticket, TAVO_RESULT result);
    /* Counts the call as one that reached the target and stamps its
     * CallRecord::targetIndex. */
    void reached(Ticket ticket);
    void clear();

    const QVector<CallRecord> &records() const { return m_records; }
    int count(const QString &call) const { return m_counts.value(call); }

    static constexpr int Capacity = 100000;

private:
    /* The record of a ticket, or null when it has left the log. */
    CallRecord *find(Ticket ticket);

    QVector<CallRecord> m_records;
    QHash<QString, int> m_counts;
    Ticket m_first = 0; /* ticket of m_records.first() */
    int m_reached = 0;  /* calls that reached the target */
};

} // namespace TavoSim
