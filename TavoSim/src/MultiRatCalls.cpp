/* Multi-RAT clock and temperature data: layer 1's AFC data, GPS co-clock
 * and RF chip temperature ADC tables, and the E-RF side's GPS co-clock. */

#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

TAVO_RESULT notYet(const char *name, int handle, uint32_t timeoutMs, const void *record)
{
    return TargetCall(name, handle, timeoutMs).run(record != nullptr, [](const TargetProfile &, TargetState &) {
        return TAVO_RESULT(TAVO_ERR_NOT_SUPPORTED);
    });
}

} // namespace

extern "C" {

TAVO_RESULT TAVO_MMAfc_GetData(int handle, uint32_t timeoutMs, TavoMMAfcData *data)
{
    return notYet("TAVO_MMAfc_GetData", handle, timeoutMs, data);
}
TAVO_RESULT TAVO_MMAfc_SetData(int handle, uint32_t timeoutMs, const TavoMMAfcData *data)
{
    return notYet("TAVO_MMAfc_SetData", handle, timeoutMs, data);
}
TAVO_RESULT TAVO_MMAfc_GetDataV2(int handle, uint32_t timeoutMs, TavoMMAfcDataV2 *data)
{
    return notYet("TAVO_MMAfc_GetDataV2", handle, timeoutMs, data);
}
TAVO_RESULT TAVO_MMAfc_SetDataV2(int handle, uint32_t timeoutMs, const TavoMMAfcDataV2 *data)
{
    return notYet("TAVO_MMAfc_SetDataV2", handle, timeoutMs, data);
}
TAVO_RESULT TAVO_MMAfc_GetDataV3(int handle, uint32_t timeoutMs, TavoMMAfcDataV3 *data)
{
    return notYet("TAVO_MMAfc_GetDataV3", handle, timeoutMs, data);
}
TAVO_RESULT TAVO_MMAfc_SetDataV3(int handle, uint32_t timeoutMs, const TavoMMAfcDataV3 *data)
{
    return notYet("TAVO_MMAfc_SetDataV3", handle, timeoutMs, data);
}
TAVO_RESULT TAVO_MMGps_GetCoClock(int handle, uint32_t timeoutMs, TavoMMGpsCoClockCnf *cnf)
{
    return notYet("TAVO_MMGps_GetCoClock", handle, timeoutMs, cnf);
}
TAVO_RESULT TAVO_MMGps_SetCoClock(int handle, uint32_t timeoutMs, const TavoMMGpsCoClockReq *req)
{
    return notYet("TAVO_MMGps_SetCoClock", handle, timeoutMs, req);
}
TAVO_RESULT TAVO_MMGps_GetCoClockV3(int handle, uint32_t timeoutMs, TavoMMGpsCoClockV3Cnf *cnf)
{
    return notYet("TAVO_MMGps_GetCoClockV3", handle, timeoutMs, cnf);
}
TAVO_RESULT TAVO_MMGps_SetCoClockV3(int handle, uint32_t timeoutMs, const TavoMMGpsCoClockV3Req *req)
{
    return notYet("TAVO_MMGps_SetCoClockV3", handle, timeoutMs, req);
}
TAVO_RESULT TAVO_ERf_GetCoClock(int handle, uint32_t timeoutMs, TavoERfCoClock *cnf)
{
    return notYet("TAVO_ERf_GetCoClock", handle, timeoutMs, cnf);
}
TAVO_RESULT TAVO_ERf_SetCoClock(int handle, const TavoERfCoClock *req, uint32_t timeoutMs)
{
    return notYet("TAVO_ERf_SetCoClock", handle, timeoutMs, req);
}
TAVO_RESULT TAVO_MMTadc_GetData(int handle, uint32_t timeoutMs, TavoMMTadcCnf *cnf)
{
    return notYet("TAVO_MMTadc_GetData", handle, timeoutMs, cnf);
}
TAVO_RESULT TAVO_MMTadc_SetData(int handle, uint32_t timeoutMs, const TavoMMTadcData *data)
{
    return notYet("TAVO_MMTadc_SetData", handle, timeoutMs, data);
}

} // extern "C"
