#pragma once

#include "Capability/TdscdmaCapability.h"
#include "Interface/PageItemDescriptor.h"
#include "Items/TdscdmaRssi.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"

// "Rssi": one AGC measure with the request's settings, by the extended
// command where the target has it; the measure comes back in the model.
class CRssiPageItem : public CPageItemDescriptor {
public:
    CRssiPageItem();

    void Test(STestRun &run) override;
    ETestKind TestKind() const override { return ETestKind::Single; }

private:
    CTdscdmaRssi m_rssiObj;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
    CTdscdmaCapability m_capability;
};
