#include "CommandCatalog.h"

#include <QtEndian>

#include "TargetProfile.h"

namespace TavoSim::CommandCatalog {

namespace {

struct Entry
{
    const char *command;
    bool (*offered)(const TargetProfile &);
};

bool always(const TargetProfile &) { return true; }

bool nvramVersion2(const TargetProfile &p)
{
    return p.rfCapabilityValue(TargetProfile::kNvramVersionOffset) == 2u;
}

/* A valid NVRAM structure version makes layer 1 serve the RX path loss, in
 * the generation that capabilityFlags bit 9 (path loss V3) tells. */
bool pathlossCommands(const TargetProfile &p, bool v3)
{
    constexpr quint32 kPathlossV3 = 1u << 9;
    return p.hasTdscdma && p.rfCapabilityValue(TargetProfile::kNvramVersionOffset).has_value() &&
           ((p.capabilityFlags & kPathlossV3) != 0) == v3;
}

/* A bit of the GSM Ex2 word: 14 the TADC measure sum, 15 the single read. */
bool gsmEx2Bit(const TargetProfile &p, int bit)
{
    return p.hasGsmEx2 && (qFromLittleEndian<quint32>(p.gsmEx2Record.constData()) & (1u << bit)) != 0;
}

/* A word of the multi-RAT capability record: bit 0 tells whether layer 1
 * keeps the data, the value above bit 1 (a version, a count) what it keeps. */
quint32 multiRatWord(const TargetProfile &p, int offset)
{
    return p.hasMultiRat ? qFromLittleEndian<quint32>(p.multiRatRecord.constData() + offset) : 0u;
}

bool afcByL1(const TargetProfile &p, quint32 version)
{
    const quint32 word = multiRatWord(p, 68);
    return (word & 1u) != 0 && ((word >> 2) & 0xffu) >= version;
}

bool gpsByErf(const TargetProfile &p)
{
    return p.hasLte && (qFromLittleEndian<quint32>(p.lteRecord.constData() + 112) & 1u) != 0;
}

bool selfCalV2(const TargetProfile &p) { return (multiRatWord(p, 24) & 1u) != 0; }
bool selfCalV1(const TargetProfile &p) { return (multiRatWord(p, 20) & 1u) != 0 && !selfCalV2(p); }
bool selfCalV7(const TargetProfile &p) { return (multiRatWord(p, 124) & 1u) != 0; }

const Entry kCatalog[] = {
    /* Support queries */
    {"TAVO_Util_QueryTargetOptionInfo", [](const TargetProfile &p) { return p.hasOptionInfo; }},

    /* Capability and mode */
    {"AST_UBIN_MODE_SETUP_r", [](const TargetProfile &p) { return p.hasTdscdma && p.hasUbin; }},
    {"AST_CAL_tl1_reset_r", always},
    {"AST_CAL_get_chipid_r", [](const TargetProfile &p) { return p.hasChipId; }},
    {"AST_CAL_get_capability_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_GetRfCapability_r", [](const TargetProfile &p) { return p.hasTdscdma && p.hasRfCapability; }},
    {"TAVO_MMRf_GetRfCapability_r", [](const TargetProfile &p) { return p.hasMultiRat; }},
    {"TAVO_ERf_GetRfCapability_r", [](const TargetProfile &p) { return p.hasLte; }},
    {"TAVO_Rf_QueryMSCapabilityEx3_r", [](const TargetProfile &p) { return p.hasGsmEx3; }},
    {"TAVO_Rf_QueryMSCapabilityEx2_r", [](const TargetProfile &p) { return p.hasGsmEx2; }},
    {"TAVO_Rf_GetRFID_r", [](const TargetProfile &p) { return p.hasGsmRfId; }},
    {"TAVO_3Grf_GetRFID_r", [](const TargetProfile &p) { return p.hasFddRfId; }},

    /* TD-SCDMA measurement commands; their variant is what the capability
     * step asks for ("agcEx", "apcEx"). */
    {"AST_CAL_agc_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_CAL_apc_start_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_CAL_agc_ex_r", [](const TargetProfile &p) { return p.hasTdscdma && p.hasAgcEx; }},
    {"AST_CAL_apc_start_ex_r", [](const TargetProfile &p) { return p.hasTdscdma && p.hasApcEx; }},

    /* Radio tests */
    {"AST_RFTEST_TXOn_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_RFTEST_RXOn_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_CAL_afc_start_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_CAL_stop_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_CAL_read_abb_reg_r", [](const TargetProfile &p) { return p.hasTdscdma; }},
    {"AST_CAL_write_abb_reg_r", [](const TargetProfile &p) { return p.hasTdscdma; }},

    /* Temperature ADC */
    {"TAVO_MISC_GetTADCChannelIndex_r", [](const TargetProfile &p) { return p.hasTadcChannel; }},
    {"TAVO_MISC_GetADCMeasureSum_r", [](const TargetProfile &p) { return p.hasTadcChannel && gsmEx2Bit(p, 14); }},
    {"TAVO_MISC_GetADCValue_r", [](const TargetProfile &p) { return p.hasTadcChannel && gsmEx2Bit(p, 15); }},
    {"AST_GetRfTemperature_r", [](const TargetProfile &p) { return p.hasTdscdma; }},

    /* NVRAM transport: the plain commands reach a 3GPP modem's NVRAM, the
     * C2K ones a C2K modem's. */
    {"TAVO_NVRAM_Read_r", [](const TargetProfile &p) { return p.modemService != TAVO_MD_SRV_C2K; }},
    {"TAVO_NVRAM_Write_r", [](const TargetProfile &p) { return p.modemService != TAVO_MD_SRV_C2K; }},
    {"TAVO_C2K_NVRAM_Read_r", [](const TargetProfile &p) { return p.modemService == TAVO_MD_SRV_C2K; }},
    {"TAVO_C2K_NVRAM_Write_r", [](const TargetProfile &p) { return p.modemService == TAVO_MD_SRV_C2K; }},

    /* TX data commands: the TPC data of targets of NVRAM version 2. */
    {"AST_Tavo_NVRAM_TX_Read_r", [](const TargetProfile &p) { return p.hasTdscdma && nvramVersion2(p); }},
    {"AST_Tavo_NVRAM_TX_Write_r", [](const TargetProfile &p) { return p.hasTdscdma && nvramVersion2(p); }},

    /* RX path loss commands: four gain modes, or eight with path loss V3. */
    {"AST_Tavo_NVRAM_Pathloss_Read_r", [](const TargetProfile &p) { return pathlossCommands(p, false); }},
    {"AST_Tavo_NVRAM_Pathloss_Write_r", [](const TargetProfile &p) { return pathlossCommands(p, false); }},
    {"AST_Tavo_NVRAM_Pathloss_8level_Read_r", [](const TargetProfile &p) { return pathlossCommands(p, true); }},
    {"AST_Tavo_NVRAM_Pathloss_8level_Write_r", [](const TargetProfile &p) { return pathlossCommands(p, true); }},

    /* Multi-RAT data of layer 1, by the multi-RAT capability, and the E-RF
     * side's co-clock. The version 3 co-clock commands come with version 3,
     * whether or not layer 1 keeps the co-clock. */
    {"TAVO_MMAfc_GetData", [](const TargetProfile &p) { return afcByL1(p, 0); }},
    {"TAVO_MMAfc_SetData", [](const TargetProfile &p) { return afcByL1(p, 0); }},
    {"TAVO_MMAfc_GetDataV2", [](const TargetProfile &p) { return afcByL1(p, 2); }},
    {"TAVO_MMAfc_SetDataV2", [](const TargetProfile &p) { return afcByL1(p, 2); }},
    {"TAVO_MMAfc_GetDataV3", [](const TargetProfile &p) { return afcByL1(p, 3); }},
    {"TAVO_MMAfc_SetDataV3", [](const TargetProfile &p) { return afcByL1(p, 3); }},
    {"TAVO_MMGps_GetCoClock", [](const TargetProfile &p) { return (multiRatWord(p, 108) & 1u) != 0; }},
    {"TAVO_MMGps_SetCoClock", [](const TargetProfile &p) { return (multiRatWord(p, 108) & 1u) != 0; }},
    {"TAVO_MMGps_GetCoClockV3", [](const TargetProfile &p) { return multiRatWord(p, 112) == (3u << 2 | 1u); }},
    {"TAVO_MMGps_SetCoClockV3", [](const TargetProfile &p) { return multiRatWord(p, 112) == (3u << 2 | 1u); }},
    {"TAVO_ERf_GetCoClock", gpsByErf},
    {"TAVO_ERf_SetCoClock", gpsByErf},
    {"TAVO_MMTadc_GetData", [](const TargetProfile &p) { return (multiRatWord(p, 52) & 1u) != 0; }},
    {"TAVO_MMTadc_SetData", [](const TargetProfile &p) { return (multiRatWord(p, 52) & 1u) != 0; }},

    /* Self calibration: the first generation where the multi-RAT record
     * has the V1 self-cal word and not the V2 one, the second with V2, the
     * seventh with the MMRF self-cal bit. */
    {"TAVO_MMRf_GetSelfCalLidCount", selfCalV1},
    {"TAVO_MMRf_GetSelfCalKeyStrings", selfCalV1},
    {"TAVO_MMRf_GetSelfCalLidSize", selfCalV1},
    {"TAVO_MMRf_GetSelfCalData", selfCalV1},
    {"TAVO_MMRf_SetSelfCalData", selfCalV1},
    {"TAVO_MMRf_GetSelfCalLidInfoV2", selfCalV2},
    {"TAVO_MMRf_GetSelfCalKeyStringsV2", selfCalV2},
    {"TAVO_MMRf_GetSelfCalDataV2", selfCalV2},
    {"TAVO_MMRf_SetSelfCalDataV2", selfCalV2},
    {"TAVO_MMRf_GetSelfCalLidInfoV7", selfCalV7},
    {"TAVO_MMRf_GetSelfCalDataV7", selfCalV7},
    {"TAVO_MMRf_SetSelfCalDataV7", selfCalV7},

    {"TAVO_MISC_GetIMEIRecNum_r", [](const TargetProfile &p) { return p.hasImeiRecordCount; }},

    /* Integrity record ("nvram.integrity") */
    {"TAVO_MISC_CalDataIntegrity_StartRec_Ex_r", [](const TargetProfile &p) { return p.hasIntegrityEx; }},
    {"TAVO_MISC_CalDataIntegrity_StopRec_Ex_r", [](const TargetProfile &p) { return p.hasIntegrityEx; }},
    {"TAVO_MISC_CalDataIntegrity_StartRec_r", [](const TargetProfile &p) { return p.hasIntegrity; }},
    {"TAVO_MISC_CalDataIntegrity_StopRec_r", [](const TargetProfile &p) { return p.hasIntegrity; }},
};

} // namespace

bool contains(const QString &command)
{
    static const QSet<QString> names = [] {
        QSet<QString> set;
        for (const Entry &entry : kCatalog)
            set.insert(QString::fromLatin1(entry.command));
        return set;
    }();
    return names.contains(command);
}

QSet<QString> offeredBy(const TargetProfile &profile)
{
    QSet<QString> offered;
    for (const Entry &entry : kCatalog) {
        if (entry.offered(profile))
            offered.insert(QString::fromLatin1(entry.command));
    }
    return offered;
}

} // namespace TavoSim::CommandCatalog
