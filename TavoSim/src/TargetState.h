#pragma once

namespace TavoSim {

/*
 * What the simulated target remembers between calls. A default-constructed
 * state is the target just after power-on: Reset() and every profile load
 * start from one. A call family that needs state of its own adds members
 * here, with their power-on values as initialisers.
 */
struct TargetState
{
    bool ubinEnabled = false;
    bool databaseLoaded = false;
};

} // namespace TavoSim
