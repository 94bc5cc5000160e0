#pragma once

#include "TdscdmaPathLoss.h"

// The RX path loss item of targets with path loss V3: eight gain modes,
// each band group's record read and written whole by layer 1's 8-level
// commands, the writes inside the target's integrity record. A file section
// holds all eight modes.
class CTdscdmaPathLossV3 : public CTdscdmaPathLoss {
    Q_OBJECT
public:
    using CTdscdmaPathLoss::CTdscdmaPathLoss;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFileSingleBand(TIniFile *file, int band) override;
    uint32_t WriteToFileSingleBand(TIniFile *file, int band) override;

    _FTA_tl1cal_pathlossData_8level_T GetBandDataV3(int band) const;
    void SetBandDataV3(int band, const _FTA_tl1cal_pathlossData_8level_T &data);

protected:
    void *CommandRecord(int band) override { return &m_bandDataV3[size_t(band)]; }

private:
    std::array<_FTA_tl1cal_pathlossData_8level_T, kBandCount> m_bandDataV3{};
};
