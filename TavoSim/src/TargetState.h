#pragma once

#include <QHash>
#include <QtGlobal>

#include <chrono>

#include "TargetNvram.h"

namespace TavoSim {

class PersistentNvram;

/* What the radio of the target is doing. One test runs at a time: a
 * continuous transmission or reception, a DPCH transmission or an AFC test. */
struct RadioState
{
    enum Activity { Idle, ContinuousTx, ContinuousRx, DpchTx, Afc };

    Activity activity = Idle;
    quint16 uarfcn = 0;
    quint16 afcDac = 0; /* of the AFC test */
};

/*
 * What the simulated target remembers between calls. A default-constructed
 * state is the target just after power-on: Reset() and every profile load
 * start from one. A call family that needs state of its own adds members
 * here, with their power-on values as initialisers.
 *
 * The NVRAM is the exception: it outlives a power cycle, so the target fills
 * it on every reset, from the profile and the NVRAM file.
 */
struct TargetState
{
    bool ubinEnabled = false;
    bool databaseLoaded = false;

    /* The target's NVRAM, and the file that keeps what is written to it
     * (owned by the target; null: writes live in memory only). */
    NvramRecords nvram;
    PersistentNvram *nvramFile = nullptr;

    /* The integrity record of calibration writes: open between a start and
     * a stop, counting the records written meanwhile; and how many records
     * were opened since power-on (the open one is the last). */
    bool integrityOpen = false;
    quint32 integrityWrites = 0;
    int integrityRecords = 0;

    RadioState radio;
    /* Frequency errors measured so far: each draws its own noise. */
    quint32 frequencyMeasures = 0;
    /* How far the transmitter has warmed the target above its ambient
     * temperature, as of `heatUpdated` (see Thermal). */
    double temperatureRise = 0;
    std::chrono::steady_clock::time_point heatUpdated = std::chrono::steady_clock::now();
    /* Temperature ADC measures so far: each draws its own noise. */
    quint32 adcMeasures = 0;
    /* Baseband registers written since power-on; others read their reset value. */
    QHash<quint16, quint16> registers;
};

} // namespace TavoSim
