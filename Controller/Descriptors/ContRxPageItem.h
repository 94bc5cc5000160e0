#pragma once

#include "Interface/PageItemDescriptor.h"
#include "Items/TdscdmaContRx.h"

// "Continuous RX": reception on the request's channel until its stop,
// which turns it off on that channel.
class CContRxPageItem : public CPageItemDescriptor {
public:
    CContRxPageItem();

    void Test(STestRun &run) override;
    bool Stop(STestRun &run) override;

private:
    CTdscdmaContRx m_contRxObj;
};
