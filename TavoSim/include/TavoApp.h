#pragma once
/*
 * TavoApp: what the host's connection serves. Calls take the target handle
 * and no time-out.
 */
#include "TavoCore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Index of the modem that the connection serves now. */
TAVO_API TAVO_RESULT TavoConn_GetMdActiveIdx(int handle, int *index);
/* Service kind (TAVO_MD_SRV_...) of the modem at index. */
TAVO_API TAVO_RESULT TavoConn_GetMdSrv(int handle, int index, int *service);

#ifdef __cplusplus
}
#endif
