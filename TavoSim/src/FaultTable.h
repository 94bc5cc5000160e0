#pragma once

#include <QString>

#include <optional>
#include <vector>

#include "TavoCore.h"

namespace TavoSim {

/* One armed fault: `call` answers `result` instead of doing its work, after
 * `skip` calls that pass, for `count` calls (-1: for good). */
struct FaultSpec
{
    QString call;
    TAVO_RESULT result = TAVO_ERR_FAILED;
    int count = -1;
    int skip = 0;
};

/*
 * The faults armed on the simulated target. Not locked: the target guards it.
 *
 * Skips count from the moment a fault is armed, so every call of its name
 * counts down every skipping fault of that name. Among the faults ready to
 * fire, the one armed first fires and uses up one of its count.
 */
class FaultTable
{
public:
    void arm(const FaultSpec &fault);
    void clear() { m_faults.clear(); }

    /* Called once for each call that reaches the target: the result of the
     * fault that fires, if one does. */
    std::optional<TAVO_RESULT> take(const QString &call);

private:
    std::vector<FaultSpec> m_faults;
};

} // namespace TavoSim
