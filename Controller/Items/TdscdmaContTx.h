#pragma once

#include <cstdint>

#include "GeneralOperation.h"

// Continuous transmission on a channel.
// Each operation gives 0 when the target took the command, 3 otherwise.
class CTdscdmaContTx : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    int TxOn(uint16_t uarfcn);
    int TxOff(uint16_t uarfcn);
};
