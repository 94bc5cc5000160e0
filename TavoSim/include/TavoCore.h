#pragma once
/*
 * TavoCore: the target library. Every call that reaches the target or the
 * NVRAM database the host has loaded goes through these functions.
 *
 * A target command takes the handle of the connected target first and a
 * time-out in milliseconds second, and gives a TAVO_RESULT: 0 is success,
 * anything else a failure that TAVO_GetResultText turns into text.
 * Database and text calls take neither handle nor time-out.
 *
 * All multi-byte fields of the records below are little-endian.
 */
#include <stdint.h>

#include "TavoExport.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef int32_t TAVO_RESULT;

/* Result codes. */
enum {
    TAVO_OK = 0,
    TAVO_ERR_FAILED = 1,           /* the target answered with a failure */
    TAVO_ERR_TIMEOUT = 2,          /* no answer within the time-out */
    TAVO_ERR_NOT_SUPPORTED = 3,    /* the target does not offer the command */
    TAVO_ERR_INVALID_ARGUMENT = 4, /* a null pointer, a wrong size, a value out of range */
    TAVO_ERR_NOT_CONNECTED = 5,    /* no target behind the handle */
    TAVO_ERR_BUSY = 6,             /* the target is in a state that refuses the command */
    TAVO_ERR_NO_DATABASE = 7,      /* no NVRAM database is loaded */
    TAVO_ERR_LID_NOT_FOUND = 8,    /* the database does not know the LID */
    TAVO_ERR_FIELD_NOT_FOUND = 9,  /* the record kind has no such field */
    TAVO_ERR_BUFFER_TOO_SMALL = 10 /* the caller's buffer cannot hold the answer */
};

/* Modem service kinds given by TavoConn_GetMdSrv (TavoApp.h). */
enum {
    TAVO_MD_SRV_NONE = 0,
    TAVO_MD_SRV_3GPP = 1, /* GSM, TD-SCDMA, WCDMA, LTE */
    TAVO_MD_SRV_IRAT = 2,
    TAVO_MD_SRV_C2K = 3   /* CDMA2000 modem */
};

/* Bit of the option word of TAVO_Util_QueryTargetOptionInfo: the TD-SCDMA
 * chip id and capability commands may be asked. */
#define TAVO_OPTION_TDSCDMA_CAPABILITY (1u << 2)

/* Sizes of the capability records. */
#define AST_RF_CAPABILITY_SIZE 48u
#define TAVO_MMRF_CAPABILITY_SIZE 144u
#define TAVO_ERF_CAPABILITY_SIZE 248u
#define TAVO_MS_CAPABILITY_EX3_SIZE 124u
#define TAVO_MS_CAPABILITY_EX2_SIZE 8u

/* ---- Support queries ------------------------------------------------------ */

/* 0 when the target offers the TAVO_ command apiName. */
TAVO_API TAVO_RESULT TAVO_QueryAPISupported_r(int handle, uint32_t timeoutMs, const char *apiName);
/* 0 when the target offers the AST_ command apiName. */
TAVO_API TAVO_RESULT AST_CAL_QueryAPISupported_r(int handle, uint32_t timeoutMs, const char *apiName);
/* The target's option word (see TAVO_OPTION_...). */
TAVO_API TAVO_RESULT TAVO_Util_QueryTargetOptionInfo(int handle, uint32_t timeoutMs, uint32_t *option);

/* ---- Capability and mode --------------------------------------------------- */

/* *mode 1 enters the Ubin test mode, 0 leaves it. */
TAVO_API TAVO_RESULT AST_UBIN_MODE_SETUP_r(int handle, uint32_t timeoutMs, uint16_t *mode);
/* Resets TD-SCDMA layer 1. */
TAVO_API TAVO_RESULT AST_CAL_tl1_reset_r(int handle, uint32_t timeoutMs);
TAVO_API TAVO_RESULT AST_CAL_get_chipid_r(int handle, uint32_t timeoutMs, uint16_t *chipId, uint16_t *rfChipId);
TAVO_API TAVO_RESULT AST_CAL_get_capability_r(int handle, uint32_t timeoutMs, uint32_t *capabilityFlags,
                                              uint32_t *bandFlags);
/* Fills the TD-SCDMA RF capability record (AST_RF_CAPABILITY_SIZE bytes). */
TAVO_API TAVO_RESULT AST_GetRfCapability_r(int handle, uint32_t timeoutMs, void *record, uint32_t recordSize);
/* Multi-RAT capability: request {u32 4, u32 132}, record TAVO_MMRF_CAPABILITY_SIZE bytes. */
TAVO_API TAVO_RESULT TAVO_MMRf_GetRfCapability_r(int handle, uint32_t timeoutMs, const void *request,
                                                 uint32_t requestSize, void *record, uint32_t recordSize);
/* LTE capability: request {u32 56, u32 180}, record TAVO_ERF_CAPABILITY_SIZE bytes. */
TAVO_API TAVO_RESULT TAVO_ERf_GetRfCapability_r(int handle, uint32_t timeoutMs, const void *request,
                                                uint32_t requestSize, void *record, uint32_t recordSize);
/* GSM capability: request {u32 2, u32 112}, record TAVO_MS_CAPABILITY_EX3_SIZE bytes. */
TAVO_API TAVO_RESULT TAVO_Rf_QueryMSCapabilityEx3_r(int handle, uint32_t timeoutMs, const void *request,
                                                    uint32_t requestSize, void *record, uint32_t recordSize);
/* GSM measurement capability, TAVO_MS_CAPABILITY_EX2_SIZE bytes. */
TAVO_API TAVO_RESULT TAVO_Rf_QueryMSCapabilityEx2_r(int handle, uint32_t timeoutMs, void *record,
                                                    uint32_t recordSize);
/* RF chip ids of the GSM and the 3G FDD side. */
TAVO_API TAVO_RESULT TAVO_Rf_GetRFID_r(int handle, uint32_t timeoutMs, uint32_t *rfId);
TAVO_API TAVO_RESULT TAVO_3Grf_GetRFID_r(int handle, uint32_t timeoutMs, uint32_t *rfId);

/* ---- Test commands ------------------------------------------------------------ */

/* Index of the ADC channel that measures the temperature. */
TAVO_API TAVO_RESULT TAVO_MISC_GetTADCChannelIndex_r(int handle, uint32_t timeoutMs, uint8_t *channel);

/* ---- NVRAM database ----------------------------------------------------------- */

/* *exists tells whether the records of `lid` have a field `field`. */
TAVO_API TAVO_RESULT TAVO_NVRAM_FieldExists(const char *lid, const char *field, int *exists);

/* ---- Text ------------------------------------------------------------------ */

/* Readable text of a result; never null, may be empty. */
TAVO_API const char *TAVO_GetResultText(TAVO_RESULT result);
/* Names of RF chip ids; never null. */
TAVO_API const char *TAVO_Rf_GetRfIdText(uint32_t rfId);
TAVO_API const char *TAVO_3Grf_GetRfIdText(uint32_t rfId);
TAVO_API const char *TAVO_ERf_GetRfIdText(uint32_t rfId);

#ifdef __cplusplus
}
#endif
