#pragma once
/*
 * TavoApp: what the host's connection serves (calls that take the target
 * handle and no time-out), and the TX data commands through which layer 1
 * of a TD-SCDMA target hands out and takes back its TPC data.
 */
#include "TavoCore.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Index of the modem that the connection serves now. */
TAVO_API TAVO_RESULT TavoConn_GetMdActiveIdx(int handle, int *index);
/* Service kind (TAVO_MD_SRV_...) of the modem at index. */
TAVO_API TAVO_RESULT TavoConn_GetMdSrv(int handle, int index, int *service);

/* ---- TX data commands ---------------------------------------------------------- */

/*
 * Layer 1 keeps, for each band group (index 0 to 4), the TX DAC record with
 * two offsets and the TX CLPC record; these commands read and write them
 * whole. Targets of NVRAM version 2 have them.
 *
 * Request and confirm are records of little-endian 16-bit fields that begin
 * with an 8-byte head:
 *
 *   @0 band     band group index 0..4 (a confirm repeats it)
 *   @2 version  2
 *   @4 lidCode (AST_TAVO_NVRAM_TX_...) in a request, resultCode in a confirm
 *   @6 0
 *
 *   lidCode                        request                  confirm
 *   AST_TAVO_NVRAM_TX_DAC_READ     head only                TX DAC record
 *   AST_TAVO_NVRAM_TX_DAC_WRITE    TX DAC record            head only
 *   AST_TAVO_NVRAM_TX_CLPC_READ    head only                TX CLPC record
 *   AST_TAVO_NVRAM_TX_CLPC_WRITE   TX CLPC record           head only
 *
 * A TX DAC record (AST_TAVO_NVRAM_TX_DAC_SIZE bytes) holds, behind the head,
 * a TavoTxDacRecord at 8, then s16 wantedPowerOffset at 236 and s16
 * paMidPowerOffset at 238 (both in 1/32 dB). A TX CLPC record
 * (AST_TAVO_NVRAM_TX_CLPC_SIZE bytes) holds a TavoTxClpcRecord at 8.
 *
 * The call gives TAVO_OK when the target answered; whether it carried the
 * request out is the confirm's resultCode: AST_TAVO_NVRAM_OPER_SUCCESS, or
 * why not, and then only the head of the confirm is written. A call that
 * fails writes nothing into the confirm.
 */

#define AST_TAVO_NVRAM_TX_HEAD_SIZE 8u
#define AST_TAVO_NVRAM_TX_DAC_SIZE 240u
#define AST_TAVO_NVRAM_TX_CLPC_SIZE 44u

/* lidCode of a request. */
enum {
    AST_TAVO_NVRAM_TX_CLPC_READ = 0xABC6,
    AST_TAVO_NVRAM_TX_CLPC_WRITE = 0xABC7,
    AST_TAVO_NVRAM_TX_DAC_READ = 0xABC8,
    AST_TAVO_NVRAM_TX_DAC_WRITE = 0xABC9
};

/* resultCode of a confirm. */
enum {
    AST_TAVO_NVRAM_OPER_SUCCESS = 30,           /* carried out (NVRAM_OPER_SUCCESS) */
    AST_TAVO_NVRAM_OPER_UNKNOWN_LID = 31,       /* a lidCode the command does not take, or data the
                                                   target does not keep (TX CLPC on a target
                                                   without closed-loop power control) */
    AST_TAVO_NVRAM_OPER_BAD_VERSION = 32,       /* a version other than 2 */
    AST_TAVO_NVRAM_OPER_BAD_BAND = 33,          /* a band group index beyond 4 */
    AST_TAVO_NVRAM_OPER_BAND_NOT_SUPPORTED = 34 /* none of the target's bands lies in the group */
};

TAVO_API TAVO_RESULT AST_Tavo_NVRAM_TX_Read_r(int handle, uint32_t timeoutMs, const void *request, void *confirm);
TAVO_API TAVO_RESULT AST_Tavo_NVRAM_TX_Write_r(int handle, uint32_t timeoutMs, const void *request, void *confirm);

#ifdef __cplusplus
}
#endif
