#include "TdscdmaTpcBand.h"

namespace TdscdmaTpcBand {

namespace {

struct SBand {
    const char *txDacLid;
    const char *txClpcLid;
    const char *section;
};

const SBand kBands[kCount] = {
    {"NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_TXCLPC_BAND33_35_37_39_LID",
     "TDSCDMA 1850-1930MHz TPC"},
    {"NVRAM_EF_AST_TL1_TXDAC_BAND34_LID", "NVRAM_EF_AST_TL1_TXCLPC_BAND34_LID", "TDSCDMA 2010-2025MHz TPC"},
    {"NVRAM_EF_AST_TL1_TXDAC_BAND36_LID", "NVRAM_EF_AST_TL1_TXCLPC_BAND36_LID", "TDSCDMA 1930-1990MHz TPC"},
    {"NVRAM_EF_AST_TL1_TXDAC_BAND38_LID", "NVRAM_EF_AST_TL1_TXCLPC_BAND38_LID", "TDSCDMA 2570-2620MHz TPC"},
    {"NVRAM_EF_AST_TL1_TXDAC_BAND40_LID", "NVRAM_EF_AST_TL1_TXCLPC_BAND40_LID", "TDSCDMA 2300-2400MHz TPC"},
};

const SBand *Band(int band) { return band >= 0 && band < kCount ? &kBands[band] : nullptr; }

} // namespace

const char *TxDacLid(int band) { return Band(band) ? Band(band)->txDacLid : nullptr; }
const char *TxClpcLid(int band) { return Band(band) ? Band(band)->txClpcLid : nullptr; }
const char *Section(int band) { return Band(band) ? Band(band)->section : nullptr; }

} // namespace TdscdmaTpcBand
