/* Connection: which modem the host's connection serves. */

#include "TavoApp.h"
#include "TargetCall.h"

using namespace TavoSim;

extern "C" {

TAVO_RESULT TavoConn_GetMdActiveIdx(int handle, int *index)
{
    return TargetCall("TavoConn_GetMdActiveIdx", handle, -1).run(index, [&](const TargetProfile &p, TargetState &) {
        *index = p.activeModemIndex;
        return TAVO_OK;
    });
}

/* Only the active modem is known; another index is not a modem. */
TAVO_RESULT TavoConn_GetMdSrv(int handle, int index, int *service)
{
    return TargetCall("TavoConn_GetMdSrv", handle, -1, {Input("index", index)})
        .run(service, [&](const TargetProfile &p, TargetState &) {
            if (index != p.activeModemIndex)
                return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            *service = p.modemService;
            return TAVO_RESULT(TAVO_OK);
        });
}

} // extern "C"
