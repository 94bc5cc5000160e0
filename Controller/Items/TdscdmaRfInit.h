#pragma once

#include "GeneralOperation.h"

// Resets TD-SCDMA layer 1 after the target has been armed.
class CTdscdmaRfInit : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    // 0 on success, 3 when the target refused.
    int ResetTl1();
};
