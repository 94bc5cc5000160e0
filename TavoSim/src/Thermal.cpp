#include "Thermal.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

#include "Radio.h"

namespace TavoSim::Thermal {

void advance(const TargetProfile &p, TargetState &state)
{
    const auto now = std::chrono::steady_clock::now();
    const double seconds = std::chrono::duration<double>(now - state.heatUpdated).count();
    state.heatUpdated = now;

    const RadioState::Activity activity = state.radio.activity;
    const bool transmitting =
        activity == RadioState::ContinuousTx || activity == RadioState::DpchTx || activity == RadioState::Afc;
    // Toward the ceiling while transmitting, else back toward ambient; a
    // patched profile may have left the rise on either side of its goal.
    const double goal = transmitting ? p.maxTemperatureRise : 0.0;
    const double step = p.heatingRate * seconds;
    double &rise = state.temperatureRise;
    rise = rise < goal ? std::min(goal, rise + step) : std::max(goal, rise - step);
}

double temperature(const TargetProfile &p, TargetState &state)
{
    advance(p, state);
    return p.ambientTemperature + state.temperatureRise;
}

double adcAt(const TargetProfile &p, double celsius)
{
    // The profile holds at least two points, by rising temperature.
    const QVector<QPointF> &table = p.adcTable;
    const double c = std::clamp(celsius, table.first().x(), table.last().x());
    const auto above = std::upper_bound(table.cbegin() + 1, table.cend() - 1, c,
                                        [](double t, const QPointF &point) { return t < point.x(); });
    const QLineF segment(*(above - 1), *above);
    return segment.pointAt((c - segment.x1()) / segment.dx()).y();
}

quint16 adcWord(double adc)
{
    return quint16(std::clamp(std::lround(adc), 0L, 65535L));
}

quint16 measure(const TargetProfile &p, TargetState &state)
{
    const double noise = std::round(Radio::noise(++state.adcMeasures) * p.adcNoise);
    return adcWord(adcAt(p, temperature(p, state)) + noise);
}

} // namespace TavoSim::Thermal
