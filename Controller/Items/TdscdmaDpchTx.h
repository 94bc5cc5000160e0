#pragma once

#include <cstdint>

#include "GeneralOperation.h"
#include "TestCommandRecords.h"

// DPCH transmission; the request chooses the command with a fixed power.
// Each operation gives 0 when the target took the command, 3 otherwise.
class CTdscdmaDpchTx : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    int Start(const SDpchTxCmd &cmd);
};
