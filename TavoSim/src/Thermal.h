#pragma once

#include "TargetProfile.h"
#include "TargetState.h"

namespace TavoSim {

/*
 * The temperature of the simulated target and what the ADC of its sensor
 * reads. The target sits at the profile's ambient temperature. While the
 * radio transmits (continuous TX, DPCH TX, the AFC test) it warms linearly
 * with wall time at the profile's heating rate, up to maxRise above ambient;
 * otherwise it cools back toward ambient at the same rate.
 *
 * The state keeps the rise and when it was last brought up to date. Whoever
 * changes the radio's activity or reads the temperature calls advance()
 * first, so the rise always follows the activity that really ran.
 */
namespace Thermal {

/* Brings the rise up to now, under the radio activity held since the last update. */
void advance(const TargetProfile &p, TargetState &state);

/* The temperature now, in degrees Celsius. */
double temperature(const TargetProfile &p, TargetState &state);

/* What the profile's ADC table gives for `celsius`, without noise: linear
 * between its points, the end values beyond them. */
double adcAt(const TargetProfile &p, double celsius);

/* The same, rounded and clamped to the ADC's range. */
quint16 adcWord(double adc);

/* One measure of the sensor now: the table's value for the temperature with
 * a noise of its own within +-p.adcNoise steps (the same sequence on every
 * run). */
quint16 measure(const TargetProfile &p, TargetState &state);

} // namespace Thermal

} // namespace TavoSim
