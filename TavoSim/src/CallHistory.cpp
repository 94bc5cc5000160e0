#include "CallHistory.h"

namespace TavoSim {

CallHistory::Ticket CallHistory::append(const CallRecord &record)
{
    if (m_records.size() >= Capacity) {
        const int dropped = Capacity / 10;
        m_records.remove(0, dropped);
        m_first += Ticket(dropped);
    }
    m_records.append(record);
    ++m_counts[record.name];
    return m_first + Ticket(m_records.size() - 1);
}

CallRecord *CallHistory::find(Ticket ticket)
{
    if (ticket < m_first || ticket - m_first >= Ticket(m_records.size()))
        return nullptr;
    return &m_records[int(ticket - m_first)];
}

void CallHistory::setResult(Ticket ticket, TAVO_RESULT result)
{
    if (CallRecord *record = find(ticket))
        record->result = result;
}

void CallHistory::reached(Ticket ticket)
{
    ++m_reached;
    if (CallRecord *record = find(ticket))
        record->targetIndex = m_reached;
}

void CallHistory::clear()
{
    m_first += Ticket(m_records.size());
    m_records.clear();
    m_counts.clear();
    m_reached = 0;
}

} // namespace TavoSim
