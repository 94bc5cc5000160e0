#pragma once

#include "GeneralOperation.h"

// The TD-SCDMA TPC calibration item of targets whose records carry no
// structure version: TX DAC and TX CLPC records per band group in NVRAM.
class CTdscdmaTpc : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    // Whether the TX DAC record of the band group has the max PA power field
    // in the host's NVRAM database; a failed query counts as no.
    virtual bool IsMaxPaPowerFieldPresent(int band);
};
