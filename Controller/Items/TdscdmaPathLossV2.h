#pragma once

#include "TdscdmaPathLoss.h"

// The RX path loss item of targets whose records carry structure version
// 1: each band group's four-mode record read and written whole by layer 1's
// path loss commands, the writes inside the target's integrity record.
class CTdscdmaPathLossV2 : public CTdscdmaPathLoss {
    Q_OBJECT
public:
    using CTdscdmaPathLoss::CTdscdmaPathLoss;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
};
