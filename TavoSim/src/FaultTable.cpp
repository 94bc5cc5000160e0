#include "FaultTable.h"

#include <algorithm>

namespace TavoSim {

void FaultTable::arm(const FaultSpec &fault)
{
    if (fault.count == 0)
        return;
    FaultSpec armed = fault;
    armed.count = std::max(armed.count, -1);
    armed.skip = std::max(armed.skip, 0);
    m_faults.push_back(armed);
}

std::optional<TAVO_RESULT> FaultTable::take(const QString &call)
{
    std::optional<TAVO_RESULT> fired;
    for (FaultSpec &fault : m_faults) {
        if (fault.call != call)
            continue;
        if (fault.skip > 0) {
            --fault.skip;
        } else if (!fired) {
            fired = fault.result;
            if (fault.count > 0)
                --fault.count;
        }
    }
    m_faults.erase(std::remove_if(m_faults.begin(), m_faults.end(),
                                  [](const FaultSpec &fault) { return fault.count == 0; }),
                   m_faults.end());
    return fired;
}

} // namespace TavoSim
