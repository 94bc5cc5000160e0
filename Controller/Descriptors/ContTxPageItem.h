#pragma once

#include "Interface/PageItemDescriptor.h"
#include "Items/TdscdmaContTx.h"

// "Continuous TX": transmission on the request's channel until its stop,
// which turns it off on that channel.
class CContTxPageItem : public CPageItemDescriptor {
public:
    CContTxPageItem();

    void Test(STestRun &run) override;
    bool Stop(STestRun &run) override;

private:
    CTdscdmaContTx m_contTxObj;
};
