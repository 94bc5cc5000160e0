#pragma once

#include <cstdint>

#include "GeneralOperation.h"
#include "TestCommandRecords.h"

// RSSI measure, by the plain or the extended AGC command.
// Each operation gives 0 when the target took the command, 3 otherwise.
class CTdscdmaRssi : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    int Measure(const SRssiCmd &cmd, SRssiResult &result);
    int MeasureEx(const SRssiCmd &cmd, SRssiResult &result);
};
