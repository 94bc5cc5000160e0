#pragma once

#include <cstdint>

#include "GeneralOperation.h"

// Stops whatever test the target runs; harmless when none does.
// Each operation gives 0 when the target took the command, 3 otherwise.
class CTdscdmaTestStop : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    int Stop();
};
