#include "FaultTable.h"

#include <algorithm>

namespace TavoSim {

void FaultTable::arm(const FaultSpec &fault)
{
    if (fault.count == 0)
        return;
    Armed armed{fault, fault.call == QLatin1String("*")};
    armed.spec.count = std::max(armed.spec.count, -1);
    armed.spec.skip = std::max(armed.spec.skip, 0);
    m_faults.push_back(armed);
}

bool FaultTable::takes(const Armed &fault, const QString &call, const QStringList &inputs)
{
    if (!fault.anyCall && fault.spec.call != call)
        return false;
    return std::all_of(fault.spec.args.cbegin(), fault.spec.args.cend(),
                       [&](const QString &arg) { return inputs.contains(arg); });
}

std::optional<TAVO_RESULT> FaultTable::take(const QString &call, const QStringList &inputs)
{
    std::optional<TAVO_RESULT> fired;
    bool exhausted = false;
    for (Armed &fault : m_faults) {
        if (!takes(fault, call, inputs))
            continue;
        FaultSpec &spec = fault.spec;
        if (spec.skip > 0) {
            --spec.skip;
        } else if (!fired) {
            fired = spec.result;
            if (spec.count > 0 && --spec.count == 0)
                exhausted = true;
        }
    }
    if (exhausted)
        m_faults.erase(std::remove_if(m_faults.begin(), m_faults.end(),
                                      [](const Armed &fault) { return fault.spec.count == 0; }),
                       m_faults.end());
    return fired;
}

} // namespace TavoSim
