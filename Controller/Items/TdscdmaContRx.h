#pragma once

#include <cstdint>

#include "GeneralOperation.h"

// Continuous reception on a channel.
// Each operation gives 0 when the target took the command, 3 otherwise.
class CTdscdmaContRx : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    int RxOn(uint16_t uarfcn);
    int RxOff(uint16_t uarfcn);
};
