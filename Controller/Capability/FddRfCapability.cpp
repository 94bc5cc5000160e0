#include "FddRfCapability.h"

#include "TavoCore.h"

uint32_t CFddRfCapability::GetFddRfId()
{
    uint32_t rfId = 0;
    return TAVO_3Grf_GetRFID_r(m_targetAccess.GetHandle(), 10000, &rfId) == TAVO_OK ? rfId : 0;
}
