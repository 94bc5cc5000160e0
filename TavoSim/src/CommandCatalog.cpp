#include "CommandCatalog.h"

#include "TargetProfile.h"

namespace TavoSim::CommandCatalog {

namespace {

struct Entry
{
    const char *command;
    bool (*offered)(const TargetProfile &);
};

bool always(const TargetProfile &) { return true; }

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

    /* Temperature ADC */
    {"TAVO_MISC_GetTADCChannelIndex_r", [](const TargetProfile &p) { return p.hasTadcChannel; }},
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
