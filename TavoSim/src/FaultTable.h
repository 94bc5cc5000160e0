#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

#include "TavoSimControl.h"

namespace TavoSim {

/*
 * The faults armed on the simulated target (TavoSim::Fault). Not locked: the
 * target guards it.
 *
 * Skips count from the moment a fault is armed, so every call a fault takes
 * (by name, or "*", and inputs) counts down its skip. Among the faults ready
 * to fire, the one armed first fires and uses up one of its count.
 */
class FaultTable
{
public:
    void arm(const Fault &fault);
    void clear() { m_faults.clear(); }

    /* Called once for each call that reaches the target, with its logged
     * inputs: the result of the fault that fires, if one does. */
    std::optional<TAVO_RESULT> take(const QString &call, const QStringList &inputs);

private:
    struct Armed
    {
        Fault fault;
        bool anyCall; /* "*" */
    };

    static bool takes(const Armed &armed, const QString &call, const QStringList &inputs);

    std::vector<Armed> m_faults;
};

} // namespace TavoSim
