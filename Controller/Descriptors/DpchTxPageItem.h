#pragma once

#include "Interface/PageItemDescriptor.h"
#include "Items/TdscdmaDpchTx.h"
#include "TdscdmaCoreCmdBuilder.h"

// "Dpch TX": DPCH transmission with the carrier and time slots of the
// request, until the common stop.
class CDpchTxPageItem : public CPageItemDescriptor {
public:
    CDpchTxPageItem();

    void Test(STestRun &run) override;
    ETestKind TestKind() const override { return ETestKind::Held; }

private:
    CTdscdmaDpchTx m_dpchTxObj;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
};
