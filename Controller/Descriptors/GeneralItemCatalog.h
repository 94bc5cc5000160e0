#pragma once

#include <memory>
#include <vector>

#include "Interface/CalItemDescriptor.h"

// The items of the general controller, one descriptor each, in the order of
// their ids (the order of the item lists).
struct SGeneralItemCatalog {
    std::vector<std::unique_ptr<CCalItemDescriptor>> calItems;

    static SGeneralItemCatalog Create();
};
