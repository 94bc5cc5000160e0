#pragma once

#include "Capability/TdscdmaCapability.h"
#include "Interface/CalItemDescriptor.h"
#include "Items/TdscdmaTpc.h"
#include "Items/TdscdmaTpcV3.h"

// "TPC": the TX power control data of the band groups, served by the item
// of the target's record generation: the V3 item on structure version 2.
class CTpcCalItem : public CCalItemDescriptor {
public:
    CTpcCalItem();

    bool IsInFile(TIniFile *file) override;
    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override;

    // The item of the record generation without structure version.
    CTdscdmaTpc &TpcObj() { return m_tpcObj; }
    CTdscdmaTpcV3 &TpcV3Obj() { return m_tpcV3Obj; }
    // The item that serves the connected target.
    CTdscdmaTpc &Tpc();

private:
    CTdscdmaTpc m_tpcObj;
    CTdscdmaTpcV3 m_tpcV3Obj;
    CTdscdmaCapability m_capability;
};
