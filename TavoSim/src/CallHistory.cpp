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

void CallHistory::setResult(Ticket ticket, TAVO_RESULT result)
{
    if (ticket < m_first || ticket - m_first >= Ticket(m_records.size()))
        return;
    m_records[int(ticket - m_first)].result = result;
}

void CallHistory::clear()
{
    m_first += Ticket(m_records.size());
    m_records.clear();
    m_counts.clear();
}

} // namespace TavoSim
