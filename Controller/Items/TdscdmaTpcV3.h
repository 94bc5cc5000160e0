#pragma once

#include "TdscdmaTpc.h"

// The TPC item of targets with structure version 2, whose layer 1 serves the
// records by dedicated commands.
class CTdscdmaTpcV3 : public CTdscdmaTpc {
    Q_OBJECT
public:
    using CTdscdmaTpc::CTdscdmaTpc;

    // The version 2 records always carry the max PA power.
    bool IsMaxPaPowerFieldPresent(int band) override;
};
