#include "TdscdmaTpcV3.h"

bool CTdscdmaTpcV3::IsMaxPaPowerFieldPresent(int band)
{
    Q_UNUSED(band);
    return true;
}
