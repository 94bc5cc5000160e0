#include "TdscdmaCapability.h"

#include "TavoCore.h"

namespace {

constexpr uint32_t kTimeout = 10000;

struct SChipIdAnswer {
    SCapabilityQueryStatus status;
    uint16_t rfChipId = 0;
    uint16_t chipId = 0;
};

struct SCapabilityAnswer {
    SCapabilityQueryStatus status;
    bool isAgcExSupported = false;
    bool isApcExSupported = false;
    uint32_t capabilityFlags = 0;
    uint32_t bandFlags = 0;
    uint8_t rfCapability[CTdscdmaCapability::RF_CAPABILITY_SIZE] = {};
};

SChipIdAnswer s_chipId;
SCapabilityAnswer s_capability;

enum ECapabilityFlagBit {
    FLAG_TADC_BY_CAL_COMMAND = 3,
    FLAG_RF_CAPABILITY = 4,
    FLAG_DSP_POWER_IN_Q3 = 6,
    FLAG_RX_EXTEND_MODE = 8,
    FLAG_PATHLOSS_V3 = 9,
};

enum ERfCapabilityOffset { RF_CAP_TX_CLPC = 24, RF_CAP_UBIN = 36, RF_CAP_NVRAM_VERSION = 40 };

// Band bits of bandFlags: a, b, c, d, f, e. The band of each of the eight
// test bands and of each of the five band groups (a band may serve several
// groups, so a group is supported when any of its bands is).
constexpr int kBandBitOfTestBand[CTdscdmaCapability::BAND_COUNT] = {0, 0, 1, 1, 2, 3, 4, 5};
constexpr uint32_t kBandMaskOfGroup[CTdscdmaCapability::BAND_GROUP_COUNT] = {
    (1u << 0) | (1u << 1) | (1u << 2) | (1u << 4), // 1850-1930MHz: a, b, c, f
    1u << 0,                                       // 2010-2025MHz: a
    1u << 1,                                       // 1930-1990MHz: b
    1u << 3,                                       // 2570-2620MHz: d
    1u << 5,                                       // 2300-2400MHz: e
};

} // namespace

using namespace CapabilityRecord;

CTdscdmaCapability::CTdscdmaCapability(QObject *parent) : QObject(parent) {}

bool CTdscdmaCapability::IsTargetOptionEnabled()
{
    const int handle = m_targetAccess.GetHandle();
    if (TAVO_QueryAPISupported_r(handle, kTimeout, "TAVO_Util_QueryTargetOptionInfo") != TAVO_OK)
        return false;
    uint32_t option = 0;
    if (TAVO_Util_QueryTargetOptionInfo(handle, kTimeout, &option) != TAVO_OK)
        return false;
    return option & TAVO_OPTION_TDSCDMA_CAPABILITY;
}

bool CTdscdmaCapability::QueryChipId()
{
    SCapabilityQueryStatus &status = s_chipId.status;
    if (status.isQueried)
        return true;
    status.isQueried = true;

    if (!IsTargetOptionEnabled())
        return true;

    const int handle = m_targetAccess.GetHandle();
    if (AST_CAL_QueryAPISupported_r(handle, kTimeout, "AST_CAL_get_chipid_r") != TAVO_OK)
        return false;
    status.isApiSupported = true;

    uint16_t chipId = 0;
    uint16_t rfChipId = 0;
    if (AST_CAL_get_chipid_r(handle, kTimeout, &chipId, &rfChipId) != TAVO_OK)
        return false;
    s_chipId.chipId = chipId;
    s_chipId.rfChipId = rfChipId;
    status.isSuccess = true;
    return true;
}

bool CTdscdmaCapability::QueryCapability()
{
    SCapabilityQueryStatus &status = s_capability.status;
    if (status.isQueried)
        return true;
    status = SCapabilityQueryStatus();
    status.isQueried = true;

    if (!IsTargetOptionEnabled())
        return true;

    const int handle = m_targetAccess.GetHandle();
    s_capability.isAgcExSupported = AST_CAL_QueryAPISupported_r(handle, kTimeout, "AST_CAL_agc_ex_r") == TAVO_OK;
    s_capability.isApcExSupported =
        AST_CAL_QueryAPISupported_r(handle, kTimeout, "AST_CAL_apc_start_ex_r") == TAVO_OK;

    if (AST_CAL_QueryAPISupported_r(handle, kTimeout, "AST_CAL_get_capability_r") != TAVO_OK)
        return true;
    status.isApiSupported = true;

    if (AST_CAL_get_capability_r(handle, kTimeout, &s_capability.capabilityFlags, &s_capability.bandFlags) !=
        TAVO_OK)
        return false;

    if (IsBitSet(s_capability.capabilityFlags, FLAG_RF_CAPABILITY) &&
        AST_GetRfCapability_r(handle, kTimeout, s_capability.rfCapability, RF_CAPABILITY_SIZE) != TAVO_OK)
        return false;

    status.isSuccess = true;
    return true;
}

uint16_t CTdscdmaCapability::GetRfChipId()
{
    QueryChipId();
    return s_chipId.status.isSuccess ? s_chipId.rfChipId : 0;
}

uint16_t CTdscdmaCapability::GetChipId()
{
    QueryChipId();
    return s_chipId.status.isSuccess ? s_chipId.chipId : 0;
}

SCapabilityQueryStatus CTdscdmaCapability::GetChipIdQueryStatus()
{
    QueryChipId();
    return s_chipId.status;
}

SCapabilityQueryStatus CTdscdmaCapability::GetCapabilityQueryStatus()
{
    QueryCapability();
    return s_capability.status;
}

uint32_t CTdscdmaCapability::CapabilityFlags()
{
    QueryCapability();
    return s_capability.status.isSuccess ? s_capability.capabilityFlags : 0;
}

uint32_t CTdscdmaCapability::RfCapabilityWord(int offset)
{
    QueryCapability();
    return s_capability.status.isSuccess ? Word32(s_capability.rfCapability, offset) : 0;
}

void CTdscdmaCapability::GetSupportBand(bool bands[BAND_COUNT])
{
    for (int i = 0; i < BAND_COUNT; ++i)
        bands[i] = IsBandSupported(i);
}

void CTdscdmaCapability::GetSupportBandGroup(bool groups[BAND_GROUP_COUNT])
{
    for (int i = 0; i < BAND_GROUP_COUNT; ++i)
        groups[i] = IsBandGroupSupported(i);
}

bool CTdscdmaCapability::IsBandSupported(int index)
{
    if (index < 0 || index >= BAND_COUNT)
        return false;
    QueryCapability();
    return s_capability.status.isSuccess && IsBitSet(s_capability.bandFlags, kBandBitOfTestBand[index]);
}

bool CTdscdmaCapability::IsBandGroupSupported(int index)
{
    if (index < 0 || index >= BAND_GROUP_COUNT)
        return false;
    QueryCapability();
    return s_capability.status.isSuccess && (s_capability.bandFlags & kBandMaskOfGroup[index]);
}

bool CTdscdmaCapability::IsTadcByCalCommand() { return IsBitSet(CapabilityFlags(), FLAG_TADC_BY_CAL_COMMAND); }
bool CTdscdmaCapability::IsDspPowerInQ3() { return IsBitSet(CapabilityFlags(), FLAG_DSP_POWER_IN_Q3); }
bool CTdscdmaCapability::IsRxExtendModeSupported() { return IsBitSet(CapabilityFlags(), FLAG_RX_EXTEND_MODE); }
bool CTdscdmaCapability::IsPathlossV3() { return IsBitSet(CapabilityFlags(), FLAG_PATHLOSS_V3); }
bool CTdscdmaCapability::IsUbinSupported() { return IsBitSet(RfCapabilityWord(RF_CAP_UBIN), 0); }
bool CTdscdmaCapability::IsNvramVerValid() { return IsValid(RfCapabilityWord(RF_CAP_NVRAM_VERSION)); }

uint32_t CTdscdmaCapability::GetNvramVerNum()
{
    const uint32_t word = RfCapabilityWord(RF_CAP_NVRAM_VERSION);
    return IsValid(word) ? Value(word) : 0;
}

bool CTdscdmaCapability::IsAgcExSupported() { return s_capability.isAgcExSupported; }
bool CTdscdmaCapability::IsApcExSupported() { return s_capability.isApcExSupported; }

int CTdscdmaCapability::GetTxClpcMode()
{
    if (!s_capability.status.isSuccess)
        return 0;
    const uint32_t word = Word32(s_capability.rfCapability, RF_CAP_TX_CLPC);
    if (!IsValid(word) || Value(word) == 0)
        return 0;
    return Value(word) == 1 ? 1 : 2;
}

void CTdscdmaCapability::ResetTdscdmaCapability()
{
    s_chipId = SChipIdAnswer();
    s_capability = SCapabilityAnswer();
}
