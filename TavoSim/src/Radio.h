#pragma once

#include "TargetProfile.h"
#include "TargetState.h"

namespace TavoSim {

/*
 * The radio of the simulated target, as plausible as a test needs: what a
 * channel receives, what a measure reports at a gain and mode, and the
 * reset values of the baseband registers. Pure functions of the state.
 */
namespace Radio {

/* The power arriving on a channel, in dBm: between -85 and -55, fixed per channel. */
double inputPowerDbm(quint16 uarfcn);

struct Measure
{
    double rssiDbm = 0;  /* what the receiver reports */
    double dspPowerDbm = 0;
    quint8 usedGain = 0;
};
/* An RSSI measure at a gain and gain mode (0 High ... 7 Ext3). With AGC
 * tracking the target picks the gain that brings the signal to -40 dBm. */
Measure measure(quint16 uarfcn, quint32 mode, quint8 gain, bool agcTracking);

/* A register as the target holds it: what was written, else its reset value. */
quint16 registerValue(const TargetState &state, quint16 address);

/* The noise of the `n`-th measure of an instrument or sensor, within
 * [-1, 1]: a hash of its number, so each measure draws its own and every
 * run the same sequence. */
double noise(quint32 n);

} // namespace Radio

} // namespace TavoSim
