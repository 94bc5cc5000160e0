#include "TdscdmaTpc.h"

#include "TdscdmaTpcBand.h"

bool CTdscdmaTpc::IsMaxPaPowerFieldPresent(int band)
{
    const char *lid = TdscdmaTpcBand::TxDacLid(band);
    int exists = 0;
    return lid && TAVO_NVRAM_FieldExists(lid, "maxPaPower", &exists) == TAVO_OK && exists != 0;
}
