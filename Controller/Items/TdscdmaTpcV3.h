#pragma once

#include "TdscdmaTpc.h"

// The TPC item of targets with structure version 2, whose layer 1 serves the
// records by two dedicated commands, band group by band group, and keeps
// two offsets per band group besides: the wanted power offset and the PA
// middle mode power offset, in 1/32 dB. No NVRAM service is involved.
class CTdscdmaTpcV3 : public CTdscdmaTpc {
    Q_OBJECT
public:
    using CTdscdmaTpc::CTdscdmaTpc;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFileSingleBand(TIniFile *file, int band) override;
    uint32_t WriteToFileSingleBand(TIniFile *file, int band) override;
    // The version 2 records always carry the max PA power.
    bool IsMaxPaPowerFieldPresent(int band) override;

    STdscdmaUITpcDataByBandV3 GetBandDataV3(int band) const;
    void SetBandDataV3(int band, const STdscdmaUITpcDataByBandV3 &data);

private:
    // One command of the layer 1: a request of `lidCode` for `band`, with
    // `payload` behind its head, whose confirm's payload lands in `answer`.
    // A code of the error table.
    uint32_t Exchange(bool write, int band, uint16_t lidCode, const void *payload, void *answer, int payloadSize);

    std::array<int16_t, TdscdmaTpcBand::kCount> m_wantedPowerOffset{};
    std::array<int16_t, TdscdmaTpcBand::kCount> m_paMidPowerOffset{};
};
