#pragma once

#include <QVector>
#include <QtGlobal>

// The positions of the calls a fault sweep fails, out of the `calls` a run
// makes without a fault: all of them when RADBENCH_FULL_SWEEP=1 or the run is
// short; else the first five, the last, and ten spread between.
inline QVector<int> FaultPositions(int calls)
{
    QVector<int> positions;
    const bool full = qEnvironmentVariableIntValue("RADBENCH_FULL_SWEEP") == 1;
    const int spread = 10;
    for (int n = 1; n <= calls; ++n) {
        if (full || calls <= 2 * spread || n <= spread / 2 || n == calls || n % (calls / spread) == 0)
            positions << n;
    }
    return positions;
}
