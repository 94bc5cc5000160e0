#include "TdscdmaTpcBand.h"

namespace TdscdmaTpcBand {

const char *TxDacLid(int band)
{
    static const char *const lids[kCount] = {
        "NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND34_LID",
        "NVRAM_EF_AST_TL1_TXDAC_BAND36_LID",          "NVRAM_EF_AST_TL1_TXDAC_BAND38_LID",
        "NVRAM_EF_AST_TL1_TXDAC_BAND40_LID",
    };
    return band >= 0 && band < kCount ? lids[band] : nullptr;
}

} // namespace TdscdmaTpcBand
