#pragma once

#include "Capability/TdscdmaCapability.h"
#include "Interface/PageItemDescriptor.h"

class CTdscdmaTpc;

// "Tpc": the TPC page of the target's record generation, the V3 page on
// structure version 2. It has no test.
class CTpcPageItem : public CPageItemDescriptor {
public:
    // `tpc` tells which fields the generation without structure version has.
    explicit CTpcPageItem(CTdscdmaTpc &tpc);

    QString PageClass() override;
    SPageModel Model() override;

private:
    bool IsVersion2() { return m_capability.GetNvramVerNum() == FTA_AST_TL1_NVRAM_VERSION_TWO; }

    CTdscdmaTpc &m_tpcObj;
    CTdscdmaCapability m_capability;
};
