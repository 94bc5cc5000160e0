#pragma once

#include <QObject>

#include <cstdint>

#include "CapabilityQueryStatus.h"
#include "TavoTargetAccess.h"

// The NVRAM structure version of targets whose layer 1 serves the TPC data
// by dedicated commands.
constexpr uint32_t FTA_AST_TL1_NVRAM_VERSION_TWO = 2;

// What the target can do on TD-SCDMA. Holds no instance data: every query
// runs once and lands in static storage shared by all instances, until
// ResetTdscdmaCapability.
class CTdscdmaCapability : public QObject {
    Q_OBJECT
public:
    enum { BAND_COUNT = 8, BAND_GROUP_COUNT = 5, RF_CAPABILITY_SIZE = 48 };

    explicit CTdscdmaCapability(QObject *parent = nullptr);

    // Chip ids; 0 when the chip id query gave nothing.
    uint16_t GetRfChipId();
    uint16_t GetChipId();
    SCapabilityQueryStatus GetChipIdQueryStatus();
    SCapabilityQueryStatus GetCapabilityQueryStatus();

    // The eight bands of the test pages and the five band groups of the
    // calibration data.
    void GetSupportBand(bool bands[BAND_COUNT]);
    void GetSupportBandGroup(bool groups[BAND_GROUP_COUNT]);
    bool IsBandSupported(int index);
    bool IsBandGroupSupported(int index);

    bool IsTadcByCalCommand();
    bool IsDspPowerInQ3();
    bool IsRxExtendModeSupported();
    bool IsPathlossV3();
    bool IsUbinSupported();
    bool IsNvramVerValid();
    uint32_t GetNvramVerNum();

    // These read what the capability query left, without running it.
    bool IsAgcExSupported();
    bool IsApcExSupported();
    int GetTxClpcMode();

    static void ResetTdscdmaCapability();

private:
    bool QueryChipId();
    bool QueryCapability();
    bool IsTargetOptionEnabled();
    uint32_t CapabilityFlags();
    uint32_t RfCapabilityWord(int offset);

    CTavoTargetAccess m_targetAccess;
};
