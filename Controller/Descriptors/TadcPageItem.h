#pragma once

#include "Capability/MmrfCapability.h"
#include "Interface/PageItemDescriptor.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"

class CTdscdmaTadc;

// "Temperature ADC": the TADC page, on targets whose layer 1 does not serve
// the temperature ADC itself; its caption names the ADC channel. Its test
// measures the temperature ADC the request's count of times and shows the
// mean, or "Error".
class CTadcPageItem : public CPageItemDescriptor {
public:
    // `tadc` measures.
    explicit CTadcPageItem(CTdscdmaTadc &tadc);

    QString PageClass() override;
    void Test(STestRun &run) override;
    ETestKind TestKind() const override { return ETestKind::Single; }

private:
    CTdscdmaTadc &m_tadcObj;
    CMmrfCapability m_mmrfCapability;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
};
