#pragma once

#include "Interface/CalItemDescriptor.h"
#include "Items/TdscdmaTpc.h"

// "TPC": the TX power control data of the band groups.
class CTpcCalItem : public CCalItemDescriptor {
public:
    CTpcCalItem();

    // The item of the record generation without structure version.
    CTdscdmaTpc &TpcObj() { return m_tpcObj; }

private:
    CTdscdmaTpc m_tpcObj;
};
