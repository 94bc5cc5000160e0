#pragma once

#include <cstdint>

#include "GeneralOperation.h"

// The TD-SCDMA temperature ADC item: the ADC table of the target and its
// live ADC measures.
class CTdscdmaTadc : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    // The ADC channel that measures the temperature; 0 on success, 3 when
    // the target could not tell.
    int GetTadcChannelIndex(uint8_t &channel);
};
