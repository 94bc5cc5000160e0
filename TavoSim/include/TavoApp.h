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

/* ---- RX path loss commands ------------------------------------------------
 *
 * Layer 1's RX path loss of one band group, read and written whole. Two
 * generations: the path loss commands carry four gain modes (high, middle,
 * low, ext), the 8-level commands eight (then ext0 to ext3). A target whose
 * NVRAM structure version is valid offers one of them: the 8-level commands
 * when it has path loss V3, the others when not; the generation it does not
 * offer answers TAVO_ERR_NOT_SUPPORTED.
 *
 * Every request and confirm starts with a head of 8 bytes, little-endian:
 *   @0 band group index (0 to 4)
 *   @2 version: AST_TAVO_NVRAM_PATHLOSS_VERSION or _8LEVEL_VERSION
 *   @4 0 (4 bytes)
 *
 *   command                                request             confirm
 *   AST_Tavo_NVRAM_Pathloss_Read_r         head only           head + record (222 bytes)
 *   AST_Tavo_NVRAM_Pathloss_Write_r        head + record       head only
 *   AST_Tavo_NVRAM_Pathloss_8level_Read_r  head only           head + 8-level record (406 bytes)
 *   AST_Tavo_NVRAM_Pathloss_8level_Write_r head + 8-level rec. head only
 *
 * A record (AST_TAVO_NVRAM_PATHLOSS_RECORD_SIZE bytes) holds u16
 * subbandMaxUarfcn[15], s16 subbandLoss[4][15] at 30, s16 tempLoss[4][8] at
 * 150; an 8-level record (..._8LEVEL_RECORD_SIZE) the same with [8][15] at
 * 30 and [8][8] at 270. Losses are in 1/8 dB on a target with extended AGC,
 * else in dB.
 *
 * Unlike the TX commands, the call's result says it all: TAVO_OK when the
 * target carried the request out; TAVO_ERR_INVALID_ARGUMENT for a wrong
 * version or a band group beyond 4; TAVO_ERR_FAILED for a band group none of
 * the target's bands lies in. A call that fails writes nothing into the
 * confirm.
 */

#define AST_TAVO_NVRAM_PATHLOSS_HEAD_SIZE 8u
#define AST_TAVO_NVRAM_PATHLOSS_RECORD_SIZE 214u
#define AST_TAVO_NVRAM_PATHLOSS_8LEVEL_RECORD_SIZE 398u
#define AST_TAVO_NVRAM_PATHLOSS_VERSION 1u
#define AST_TAVO_NVRAM_PATHLOSS_8LEVEL_VERSION 2u

TAVO_API TAVO_RESULT AST_Tavo_NVRAM_Pathloss_Read_r(int handle, uint32_t timeoutMs, const void *request, void *confirm);
TAVO_API TAVO_RESULT AST_Tavo_NVRAM_Pathloss_Write_r(int handle, uint32_t timeoutMs, const void *request, void *confirm);
TAVO_API TAVO_RESULT AST_Tavo_NVRAM_Pathloss_8level_Read_r(int handle, uint32_t timeoutMs, const void *request,
                                                            void *confirm);
TAVO_API TAVO_RESULT AST_Tavo_NVRAM_Pathloss_8level_Write_r(int handle, uint32_t timeoutMs, const void *request,
                                                             void *confirm);

#ifdef __cplusplus
}
#endif
