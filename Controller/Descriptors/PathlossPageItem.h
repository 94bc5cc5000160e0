#pragma once

#include "Capability/TdscdmaCapability.h"
#include "Interface/PageItemDescriptor.h"

// "Rx Pathloss": the path loss page, with the model of eight loss levels on
// targets with path loss V3. It has no test.
class CPathlossPageItem : public CPageItemDescriptor {
public:
    CPathlossPageItem();

    SPageModel Model() override;

private:
    CTdscdmaCapability m_capability;
};
