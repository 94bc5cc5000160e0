#include "NvramDatabase.h"

namespace TavoSim::NvramDatabase {

namespace {

/* The TX DAC record of each band group, in group order. */
const char *const kTxDacLids[] = {
    "NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND34_LID",
    "NVRAM_EF_AST_TL1_TXDAC_BAND36_LID",          "NVRAM_EF_AST_TL1_TXDAC_BAND38_LID",
    "NVRAM_EF_AST_TL1_TXDAC_BAND40_LID",
};

const char *const kTxDacFields[] = {
    "paVgaDac",         "paPower",        "subbandMaxUarfcn", "subbandPowerComp", "tempPowerComp",
    "hysteresisStart0", "hysteresisEnd0", "hysteresisStart1", "hysteresisEnd1",   "maxPower",
    "maxVgaDac",
};

int txDacGroup(const QString &lid)
{
    for (int group = 0; group < 5; ++group) {
        if (lid == QLatin1String(kTxDacLids[group]))
            return group;
    }
    return -1;
}

} // namespace

bool knowsLid(const TargetProfile &, const QString &lid) { return txDacGroup(lid) >= 0; }

bool hasField(const TargetProfile &profile, const QString &lid, const QString &field)
{
    const int group = txDacGroup(lid);
    if (group < 0)
        return false;
    if (field == QLatin1String("maxPaPower"))
        return profile.maxPaPowerGroups.contains(group);
    for (const char *known : kTxDacFields) {
        if (field == QLatin1String(known))
            return true;
    }
    return false;
}

} // namespace TavoSim::NvramDatabase
