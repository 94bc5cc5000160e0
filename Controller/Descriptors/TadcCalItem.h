#pragma once

#include "Capability/MmrfCapability.h"
#include "Interface/CalItemDescriptor.h"
#include "Items/TdscdmaTadc.h"

// "Temperature ADC": the ADC table of the temperature sensor, on targets
// whose layer 1 does not serve it itself.
class CTadcCalItem : public CCalItemDescriptor {
public:
    CTadcCalItem();

    bool IsSupported() override;

    CTdscdmaTadc &TadcObj() { return m_tadcObj; }

private:
    CTdscdmaTadc m_tadcObj;
    CMmrfCapability m_mmrfCapability;
};
