#include "Radio.h"

#include <algorithm>
#include <cmath>

namespace TavoSim::Radio {

double inputPowerDbm(quint16 uarfcn)
{
    // A fixed, uneven spread over the channels, as from a signal generator
    // on a cable with frequency-dependent loss.
    return -85.0 + double((uarfcn * 37u) % 31u);
}

Measure measure(quint16 uarfcn, quint32 mode, quint8 gain, bool agcTracking)
{
    const double input = inputPowerDbm(uarfcn);
    Measure m;
    m.usedGain = agcTracking ? quint8(std::clamp(int(std::lround(-40.0 - input)) + 30, 0, 255)) : gain;
    // Higher gain modes add a little noise figure; the extended modes more.
    const double modePenalty = mode < 3 ? 0.5 * mode : 1.5 + 0.25 * (mode - 3);
    // The reported level moves a little with how far the gain is from ideal.
    const double gainError = (int(m.usedGain) - (std::lround(-40.0 - input) + 30)) / 16.0;
    m.rssiDbm = input - modePenalty + gainError;
    m.dspPowerDbm = m.rssiDbm + m.usedGain - 30.0;
    return m;
}

quint16 registerValue(const TargetState &state, quint16 address)
{
    const auto written = state.registers.constFind(address);
    if (written != state.registers.constEnd())
        return *written;
    return quint16((address * 0x9E37u) ^ 0x5A5Au);
}

double noise(quint32 n)
{
    quint32 h = n * 2654435761u;
    h ^= h >> 15;
    return double(h % 20001) / 10000.0 - 1.0;
}

} // namespace TavoSim::Radio
