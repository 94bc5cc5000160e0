#pragma once

#include <cstdint>

#include "GeneralOperation.h"
#include "TestCommandRecords.h"

// Reads and writes the baseband registers of the target.
// Each operation gives 0 when the target took the command, 3 otherwise.
class CTdscdmaBBReg : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    int Read(uint16_t addr, uint16_t &value);
    int Write(const SRegWriteCmd &cmd);
};
