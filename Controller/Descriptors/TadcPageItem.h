#pragma once

#include "Capability/MmrfCapability.h"
#include "Interface/PageItemDescriptor.h"

class CTdscdmaTadc;

// "Temperature ADC": the TADC page, on targets whose layer 1 does not serve
// the temperature ADC itself; its caption names the ADC channel.
class CTadcPageItem : public CPageItemDescriptor {
public:
    explicit CTadcPageItem(CTdscdmaTadc &tadc);

    QString PageClass() override;

private:
    CMmrfCapability m_mmrfCapability;
};
