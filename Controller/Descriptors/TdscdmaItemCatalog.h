#pragma once

#include <memory>
#include <vector>

#include "Interface/CalItemDescriptor.h"
#include "Interface/PageItemDescriptor.h"

// The items of the TD-SCDMA controller, one descriptor each: the calibration
// items in the order of their ids (the order of the item lists), the page
// items in the order of the window's page list. A calibration descriptor
// comes before the page descriptors that refer to its objects, and outlives
// them in the controller.
struct STdscdmaItemCatalog {
    std::vector<std::unique_ptr<CCalItemDescriptor>> calItems;
    std::vector<std::unique_ptr<CPageItemDescriptor>> pageItems;

    static STdscdmaItemCatalog Create();
};
