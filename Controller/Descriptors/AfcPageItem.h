#pragma once

#include "Interface/PageItemDescriptor.h"
#include "TdscdmaCoreCmdBuilder.h"

class CTdscdmaAfc;

// "AFC Control": the AFC test at the DAC the request selects, until the
// common stop; the page also moves the AFC data (CAfcCalItem).
class CAfcPageItem : public CPageItemDescriptor {
public:
    // `afc` starts the test.
    explicit CAfcPageItem(CTdscdmaAfc &afc);

    void Test(STestRun &run) override;
    ETestKind TestKind() const override { return ETestKind::Held; }

private:
    CTdscdmaAfc &m_afcObj;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
};
