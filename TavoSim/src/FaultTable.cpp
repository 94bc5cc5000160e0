#include "FaultTable.h"

#include <algorithm>

namespace TavoSim {

void FaultTable::arm(const Fault &fault)
{
    if (fault.count == 0)
        return;
    Armed armed{fault, fault.call == QLatin1String("*")};
    armed.fault.count = std::max(armed.fault.count, -1);
    armed.fault.skip = std::max(armed.fault.skip, 0);
    m_faults.push_back(armed);
}

bool FaultTable::takes(const Armed &armed, const QString &call, const QStringList &inputs)
{
    if (!armed.anyCall && armed.fault.call != call)
        return false;
    return std::all_of(armed.fault.args.cbegin(), armed.fault.args.cend(),
                       [&](const QString &arg) { return inputs.contains(arg); });
}

std::optional<TAVO_RESULT> FaultTable::take(const QString &call, const QStringList &inputs)
{
    std::optional<TAVO_RESULT> fired;
    bool exhausted = false;
    for (Armed &armed : m_faults) {
        if (!takes(armed, call, inputs))
            continue;
        Fault &fault = armed.fault;
        if (fault.skip > 0) {
            --fault.skip;
        } else if (!fired) {
            fired = fault.result;
            if (fault.count > 0 && --fault.count == 0)
                exhausted = true;
        }
    }
    if (exhausted)
        m_faults.erase(std::remove_if(m_faults.begin(), m_faults.end(),
                                      [](const Armed &armed) { return armed.fault.count == 0; }),
                       m_faults.end());
    return fired;
}

} // namespace TavoSim
