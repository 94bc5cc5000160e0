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
#include <stdbool.h>
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

/* Continuous transmission (on 1) or reception on a channel, and its end (on 0). */
TAVO_API TAVO_RESULT AST_RFTEST_TXOn_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint8_t on);
TAVO_API TAVO_RESULT AST_RFTEST_RXOn_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint8_t on);
/* DPCH transmission. Masks: bit i + 1 for time slot i (uplink; 16QAM). */
TAVO_API TAVO_RESULT AST_CAL_apc_start_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac,
                                         uint32_t paMode, uint16_t apcData, uint8_t directionMask,
                                         uint8_t modulationMask);
/* The same at a fixed wanted power (dBm). */
TAVO_API TAVO_RESULT AST_CAL_apc_start_ex_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac,
                                            uint32_t paMode, uint16_t apcData, uint8_t directionMask,
                                            uint8_t modulationMask, uint8_t fixPowerFlag, int8_t wantedPower);
/* RSSI measure: rssi in dBm; the extended command gives it in 1/8 dB. */
TAVO_API TAVO_RESULT AST_CAL_agc_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac, uint32_t mode,
                                   uint8_t gain, uint8_t agcTracking, int8_t *rssi, uint16_t *dspPower,
                                   uint8_t *usedGain);
TAVO_API TAVO_RESULT AST_CAL_agc_ex_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac,
                                      uint32_t mode, uint8_t gain, uint8_t agcTracking, int16_t *rssiEx,
                                      uint16_t *dspPower, uint8_t *usedGain);
/* AFC test at a DAC value. */
TAVO_API TAVO_RESULT AST_CAL_afc_start_r(int handle, uint32_t timeoutMs, uint16_t uarfcn, uint16_t afcDac,
                                         uint32_t paMode, uint16_t afcData, uint16_t capId);
/* Stops whatever test runs; harmless when none does. */
TAVO_API TAVO_RESULT AST_CAL_stop_r(int handle, uint32_t timeoutMs);
/* Baseband registers. */
TAVO_API TAVO_RESULT AST_CAL_read_abb_reg_r(int handle, uint32_t timeoutMs, uint16_t addr, uint16_t *value);
TAVO_API TAVO_RESULT AST_CAL_write_abb_reg_r(int handle, uint32_t timeoutMs, uint16_t addr, uint16_t value);

/* ---- Temperature ADC -------------------------------------------------------------
 *
 * The temperature sensor is read through an ADC channel, in raw ADC steps.
 * Two ways reach it: the ADC calls of the GSM side (the channel query, a
 * sum of measures on a channel, a single read), and the TD-SCDMA layer 1's
 * own RF temperature measure. The two answers carry status bytes of
 * opposite sense. */

/* Index of the ADC channel that measures the temperature. */
TAVO_API TAVO_RESULT TAVO_MISC_GetTADCChannelIndex_r(int handle, uint32_t timeoutMs, uint8_t *channel);

/* Answer of a sum measure: `count` measures of the channel added up.
 * status: TAVO_ADC_STATUS_OK (0) when the sum holds, else why not. */
typedef struct {
    uint32_t sum;
    uint8_t status;
} TavoAdcMeasureSum;

enum {
    TAVO_ADC_STATUS_OK = 0,
    TAVO_ADC_STATUS_NO_SENSOR = 1, /* nothing measurable on the channel */
    TAVO_ADC_STATUS_NOT_READY = 2  /* the sensor has not settled yet */
};

/* `count` measures of ADC `channel`, added up. */
TAVO_API TAVO_RESULT TAVO_MISC_GetADCMeasureSum_r(int handle, uint32_t timeoutMs, uint8_t channel, uint16_t count,
                                                 TavoAdcMeasureSum *answer);
/* One measure of the temperature ADC channel. Having no status byte, it
 * answers TAVO_ERR_BUSY while the sensor has not settled. */
TAVO_API TAVO_RESULT TAVO_MISC_GetADCValue_r(int handle, uint32_t timeoutMs, uint16_t *value);

/* Answer of the RF temperature measure. status: 1 when `sum` holds the sum of
 * the measures, 0 when the layer could not measure (`sum` 0 then). */
typedef struct {
    uint8_t status;
    uint32_t sum;
} TavoRfTemperature;

/* `count` measures of the RF temperature sensor, added up (layer 1). */
TAVO_API TAVO_RESULT AST_GetRfTemperature_r(int handle, uint32_t timeoutMs, uint16_t count,
                                           TavoRfTemperature *answer);

/* ---- NVRAM database ----------------------------------------------------------- */

/*
 * The database describes the records of the target's NVRAM, each kind known
 * by the LID (a name) of its records. A record travels in the raw form the
 * target stores; the compose and decompose calls turn it into the decoded
 * structures below and back. They touch only the fields that the raw record
 * holds and leave everything else of the other side as it was.
 *
 * A field is named alone ("capId") or, for one element of an array field,
 * with its index ("nvram_ef_barcode_num[5]"). Field values travel in host
 * byte order, element by element.
 */

/* TX DAC record of a band group, 228 bytes. The PA modes are high, middle, low. */
typedef struct {
    uint16_t paVgaDac[3][4];
    int16_t paPower[3][4];
    uint16_t subbandMaxUarfcn[15];
    int16_t subbandPowerComp[3][15];
    int16_t tempPowerComp[3][8];
    uint16_t hysteresisStart0;
    uint16_t hysteresisEnd0;
    uint16_t hysteresisStart1;
    uint16_t hysteresisEnd1;
    int16_t maxPower;   /* held only by records with the field "maxPaPower" */
    uint16_t maxVgaDac; /* the same */
} TavoTxDacRecord;

/* TX CLPC record of a band group, 36 bytes. */
typedef struct {
    int16_t pdPoint[3];
    int16_t pdSubbandComp[15];
} TavoTxClpcRecord;

/* RX path loss record of a band group, 168 bytes: three gain modes. */
typedef struct {
    uint16_t subbandMaxUarfcn[15];
    int16_t subbandLoss[3][15];
    int16_t tempLoss[3][8];
} TavoPathlossRecord;

/* AFC record. The raw AFC record holds the first two fields; capId lives in
 * the CAP record and is left alone by the AFC pair. */
typedef struct {
    uint16_t initAfcDac;
    uint16_t slopeInverse;
    uint32_t capId;
} TavoAfcRecord;

/* IMEI record, 18 bytes: the IMEI as text and the software version number. */
typedef struct {
    char imei[16];
    uint8_t svn[2];
} TavoImeiRecord;

/* 0 when the database knows `lid`, else TAVO_ERR_LID_NOT_FOUND. */
TAVO_API TAVO_RESULT TAVO_NVRAM_LidExists(const char *lid);
/* Number of records of `lid` (numbered from 1). */
TAVO_API TAVO_RESULT TAVO_NVRAM_GetRecordCount(const char *lid, int *count);
/* Size in bytes of one raw record of `lid`. */
TAVO_API TAVO_RESULT TAVO_NVRAM_GetRecordSize(const char *lid, uint32_t *size);
/* *exists tells whether the records of `lid` have a field `field`. */
TAVO_API TAVO_RESULT TAVO_NVRAM_FieldExists(const char *lid, const char *field, int *exists);
/* Copies a field out of a raw record of `lid` into `value` (at least the
 * field's size), and the reverse. */
TAVO_API TAVO_RESULT TAVO_NVRAM_GetField(const char *lid, const char *field, const void *raw, uint32_t rawSize,
                                        void *value, uint32_t valueSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_SetField(const char *lid, const char *field, void *raw, uint32_t rawSize,
                                        const void *value, uint32_t valueSize);

/* Compose (decoded to raw) and decompose (raw to decoded) of each record kind. */
TAVO_API TAVO_RESULT TAVO_NVRAM_DecomposeTxDac(TavoTxDacRecord *record, const void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_ComposeTxDac(const TavoTxDacRecord *record, void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_DecomposeTxClpc(TavoTxClpcRecord *record, const void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_ComposeTxClpc(const TavoTxClpcRecord *record, void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_DecomposePathloss(TavoPathlossRecord *record, const void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_ComposePathloss(const TavoPathlossRecord *record, void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_DecomposeAfc(TavoAfcRecord *record, const void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_ComposeAfc(const TavoAfcRecord *record, void *raw, uint32_t rawSize);
/* The temperature ADC table: eight values. */
TAVO_API TAVO_RESULT TAVO_NVRAM_DecomposeTadc(uint16_t *adc, const void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_ComposeTadc(const uint16_t *adc, void *raw, uint32_t rawSize);
TAVO_API TAVO_RESULT TAVO_NVRAM_DecomposeImei(TavoImeiRecord *record, const void *raw, uint32_t rawSize);
/* With `sealRecord` the raw record's checksum is made anew; without it the
 * checksum stays as the raw buffer had it. */
TAVO_API TAVO_RESULT TAVO_NVRAM_ComposeImei(const TavoImeiRecord *record, void *raw, uint32_t rawSize,
                                           bool sealRecord);

/* ---- NVRAM transport and integrity record ------------------------------------ */

/* One record of the target's NVRAM, for a read or a write. */
typedef struct {
    const char *lid;
    uint16_t record;        /* record number, from 1 */
    uint32_t size;          /* size of buffer in bytes */
    unsigned char *buffer;  /* filled by a read, taken by a write */
} SNvramAccessRequest;

/* What the target confirms of a transfer. */
typedef struct {
    uint32_t size;   /* bytes of the record moved */
    uint16_t record; /* the record number */
} SNvramAccessConfirm;

/* Whole records of the NVRAM of a 3GPP modem. A read fills exactly the
 * record's size; a write takes the record's size from the buffer. A write
 * replaces the record entirely or, when it fails, not at all. */
TAVO_API TAVO_RESULT TAVO_NVRAM_Read_r(int handle, uint32_t timeoutMs, const SNvramAccessRequest *request,
                                      SNvramAccessConfirm *confirm);
TAVO_API TAVO_RESULT TAVO_NVRAM_Write_r(int handle, uint32_t timeoutMs, const SNvramAccessRequest *request,
                                       SNvramAccessConfirm *confirm);
/* The same on a C2K modem. */
TAVO_API TAVO_RESULT TAVO_C2K_NVRAM_Read_r(int handle, uint32_t timeoutMs, const char *lid, uint16_t record,
                                          void *buffer, uint32_t size);
TAVO_API TAVO_RESULT TAVO_C2K_NVRAM_Write_r(int handle, uint32_t timeoutMs, const char *lid, uint16_t record,
                                           const void *buffer, uint32_t size);

/* How many IMEI records the target holds (NVRAM_EF_IMEI_IMEISV_LID), which
 * need not be the number the database describes. */
TAVO_API TAVO_RESULT TAVO_MISC_GetIMEIRecNum_r(int handle, uint32_t timeoutMs, uint16_t *count);

/* A series of calibration writes begins (StartRec) and ends (StopRec), so the
 * target can keep a record of its calibration data's integrity. *status is
 * the number of records written in the series. The Ex pair is the newer one;
 * a target may have either, both or none (ask TAVO_QueryAPISupported_r). */
TAVO_API TAVO_RESULT TAVO_MISC_CalDataIntegrity_StartRec_Ex_r(int handle, uint32_t timeoutMs);
TAVO_API TAVO_RESULT TAVO_MISC_CalDataIntegrity_StartRec_r(int handle, uint32_t timeoutMs);
TAVO_API TAVO_RESULT TAVO_MISC_CalDataIntegrity_StopRec_Ex_r(int handle, uint32_t timeoutMs, uint32_t *status);
TAVO_API TAVO_RESULT TAVO_MISC_CalDataIntegrity_StopRec_r(int handle, uint32_t timeoutMs, uint32_t *status);

/* ---- Multi-RAT clock and temperature data ----------------------------------------
 *
 * Layer 1 of a multi-RAT radio keeps its AFC data, the GPS co-clock
 * coefficients and the temperature ADC tables of its RF chips itself, and
 * hands them over whole by these commands. Which of them a target offers,
 * and in which version, its multi-RAT capability record tells (and
 * TAVO_QueryAPISupported_r). The LTE side (E-RF) keeps a GPS co-clock of
 * its own. A command reads or replaces the whole record; a failed command
 * changes nothing. */

/* AFC data, version 1: 12 bytes. `slope` is 4096 divided by the Hz per DAC
 * step. Bytes 2 and 3 are not used (0). */
typedef struct {
    uint16_t initAfcDac;
    int16_t reserved;
    int32_t slope;
    uint32_t capId;
} TavoMMAfcData;

/* Version 2: 16 bytes, the crystal's load value for its low power mode added. */
typedef struct {
    uint16_t initAfcDac;
    int16_t reserved;
    int32_t slope;
    uint32_t capId;
    uint32_t cload;
} TavoMMAfcDataV2;

/* Version 3: 16 bytes, the AAC value in bytes 2 and 3. */
typedef struct {
    uint16_t initAfcDac;
    int16_t aac;
    int32_t slope;
    uint32_t capId;
    uint32_t cload;
} TavoMMAfcDataV3;

TAVO_API TAVO_RESULT TAVO_MMAfc_GetData(int handle, uint32_t timeoutMs, TavoMMAfcData *data);
TAVO_API TAVO_RESULT TAVO_MMAfc_SetData(int handle, uint32_t timeoutMs, const TavoMMAfcData *data);
TAVO_API TAVO_RESULT TAVO_MMAfc_GetDataV2(int handle, uint32_t timeoutMs, TavoMMAfcDataV2 *data);
TAVO_API TAVO_RESULT TAVO_MMAfc_SetDataV2(int handle, uint32_t timeoutMs, const TavoMMAfcDataV2 *data);
TAVO_API TAVO_RESULT TAVO_MMAfc_GetDataV3(int handle, uint32_t timeoutMs, TavoMMAfcDataV3 *data);
TAVO_API TAVO_RESULT TAVO_MMAfc_SetDataV3(int handle, uint32_t timeoutMs, const TavoMMAfcDataV3 *data);

/* GPS co-clock coefficients of layer 1 in fixed point: C0 times 2^28, C1
 * times 2^30, the second and third order coefficients times 2^31. A request
 * carries them as floats first and in fixed point after; the target keeps
 * the fixed point values. */
#define TAVO_GPS_C0_SCALE 268435456.0       /* 2^28 */
#define TAVO_GPS_C1_SCALE 1073741824.0      /* 2^30 */
#define TAVO_GPS_COEFFICIENT_SCALE 2147483648.0 /* 2^31, second and third order */

typedef struct {
    int32_t c0;
    int32_t c1;
} TavoMMGpsCoClockCnf;

typedef struct {
    float c0;
    float c1;
    int32_t c0Fixed;
    int32_t c1Fixed;
} TavoMMGpsCoClockReq;

typedef struct {
    int32_t c0;
    int32_t c1;
    int32_t coefficient2;
    int32_t coefficient3;
} TavoMMGpsCoClockV3Cnf;

typedef struct {
    float c0;
    float c1;
    float coefficient2;
    float coefficient3;
    int32_t c0Fixed;
    int32_t c1Fixed;
    int32_t coefficient2Fixed;
    int32_t coefficient3Fixed;
} TavoMMGpsCoClockV3Req;

/* Version 1 carries C0 and C1 alone; its write leaves the other two as they were. */
TAVO_API TAVO_RESULT TAVO_MMGps_GetCoClock(int handle, uint32_t timeoutMs, TavoMMGpsCoClockCnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMGps_SetCoClock(int handle, uint32_t timeoutMs, const TavoMMGpsCoClockReq *req);
TAVO_API TAVO_RESULT TAVO_MMGps_GetCoClockV3(int handle, uint32_t timeoutMs, TavoMMGpsCoClockV3Cnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMGps_SetCoClockV3(int handle, uint32_t timeoutMs, const TavoMMGpsCoClockV3Req *req);

/* The E-RF side's GPS co-clock, C0 and C1 as floats. Its write takes the
 * record before the time-out. */
typedef struct {
    float c0;
    float c1;
} TavoERfCoClock;

TAVO_API TAVO_RESULT TAVO_ERf_GetCoClock(int handle, uint32_t timeoutMs, TavoERfCoClock *cnf);
TAVO_API TAVO_RESULT TAVO_ERf_SetCoClock(int handle, const TavoERfCoClock *req, uint32_t timeoutMs);

/* Temperature ADC tables of the RF chips: one row of 8 ADC values for each
 * chip, 8 rows; the target's multi-RAT capability tells how many it uses.
 * The read's confirm is 144 bytes: a status word, the 128 bytes of the
 * table from byte 4, and 12 bytes the target keeps for itself. */
#define TAVO_MMTADC_RFIC_MAX 8
#define TAVO_MMTADC_POINTS 8

typedef struct {
    uint16_t table[TAVO_MMTADC_RFIC_MAX][TAVO_MMTADC_POINTS];
} TavoMMTadcData;

typedef struct {
    uint32_t status;
    TavoMMTadcData data;
    uint8_t reserved[12];
} TavoMMTadcCnf;

TAVO_API TAVO_RESULT TAVO_MMTadc_GetData(int handle, uint32_t timeoutMs, TavoMMTadcCnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMTadc_SetData(int handle, uint32_t timeoutMs, const TavoMMTadcData *data);

/* ---- Self calibration -----------------------------------------------------------
 *
 * The radios calibrate themselves and keep the results in data blocks that
 * only the target understands; a tool moves their bytes whole. Three
 * generations of commands reach them. The first two serve one radio access
 * technology at a time, named by a mask (1 << RAT index: 0 GSM, 1 TD-SCDMA,
 * 3 WCDMA, 4 and 5 LTE); the seventh serves all blocks of the multi-RAT
 * radio. Which ones a target has, its multi-RAT capability record tells
 * (self-cal word V1 or V2, MMRF self-cal bit for the seventh). All fields
 * are 16 bits. A block's key name is zero-ended in 64 bytes. */

#define TAVO_SELFCAL_KEY_SIZE 64

/* Generation 1: the count, the key names, each block's size, and the data
 * of one block by its position (at most 64 blocks of at most 16,384 bytes). */
#define TAVO_SELFCAL_V1_MAX_LIDS 64
#define TAVO_SELFCAL_V1_MAX_DATA 16384

typedef struct { uint16_t ratMask; uint16_t reserved; } TavoSelfCalLidCountReq;
typedef struct { uint16_t status; uint16_t count; uint16_t reserved; } TavoSelfCalLidCountCnf;
typedef struct { uint16_t ratMask; } TavoSelfCalKeyStringsReq;
typedef struct {
    uint16_t status;
    uint16_t count;
    char keys[TAVO_SELFCAL_V1_MAX_LIDS][TAVO_SELFCAL_KEY_SIZE];
} TavoSelfCalKeyStringsCnf;
typedef struct { uint16_t ratMask; uint16_t index; } TavoSelfCalLidReq;
typedef struct { uint16_t status; uint16_t index; uint16_t size; } TavoSelfCalLidSizeCnf;
typedef struct {
    uint16_t status;
    uint16_t index;
    uint16_t length;
    uint8_t data[TAVO_SELFCAL_V1_MAX_DATA];
} TavoSelfCalDataCnf;
typedef struct {
    uint16_t ratMask;
    uint16_t index;
    uint16_t length;
    uint8_t data[TAVO_SELFCAL_V1_MAX_DATA];
} TavoSelfCalDataReq;

TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalLidCount(int handle, uint32_t timeoutMs, const TavoSelfCalLidCountReq *req,
                                                  TavoSelfCalLidCountCnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalKeyStrings(int handle, uint32_t timeoutMs, const TavoSelfCalKeyStringsReq *req,
                                                    TavoSelfCalKeyStringsCnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalLidSize(int handle, uint32_t timeoutMs, const TavoSelfCalLidReq *req,
                                                 TavoSelfCalLidSizeCnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalData(int handle, uint32_t timeoutMs, const TavoSelfCalLidReq *req,
                                              TavoSelfCalDataCnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_SetSelfCalData(int handle, uint32_t timeoutMs, const TavoSelfCalDataReq *req);

/* Generation 2: the blocks' indices and sizes by position, the key names by
 * index, and the data of up to 16 blocks by position in one command, laid
 * one after the other in at most 61,440 bytes (at most 256 blocks). */
#define TAVO_SELFCAL_V2_MAX_LIDS 256
#define TAVO_SELFCAL_V2_BATCH_LIDS 16
#define TAVO_SELFCAL_V2_BATCH_DATA 61440

typedef struct { uint16_t ratMask; uint16_t reserved[2]; } TavoSelfCalLidInfoV2Req;
typedef struct {
    uint16_t status;
    uint16_t ratMask;
    uint16_t reserved;
    uint16_t count;
    uint16_t index[TAVO_SELFCAL_V2_MAX_LIDS];
    uint16_t size[TAVO_SELFCAL_V2_MAX_LIDS];
} TavoSelfCalLidInfoV2Cnf;
typedef struct { uint16_t ratMask; uint16_t reserved; } TavoSelfCalKeyStringsV2Req;
typedef struct {
    uint16_t status;
    uint16_t ratMask;
    uint16_t reserved;
    uint16_t count;
    char keys[TAVO_SELFCAL_V2_MAX_LIDS][TAVO_SELFCAL_KEY_SIZE];
} TavoSelfCalKeyStringsV2Cnf;
typedef struct {
    uint16_t ratMask;
    uint16_t reserved;
    uint16_t count;
    uint16_t index[TAVO_SELFCAL_V2_BATCH_LIDS];
} TavoSelfCalDataV2Req;
typedef struct {
    uint16_t status;
    uint16_t ratMask;
    uint16_t reserved;
    uint16_t count;
    uint16_t index[TAVO_SELFCAL_V2_BATCH_LIDS];
    uint16_t length[TAVO_SELFCAL_V2_BATCH_LIDS];
    uint16_t offset[TAVO_SELFCAL_V2_BATCH_LIDS];
    uint8_t data[TAVO_SELFCAL_V2_BATCH_DATA];
} TavoSelfCalDataV2Cnf;
typedef struct {
    uint16_t ratMask;
    uint16_t reserved;
    uint16_t count;
    uint16_t index[TAVO_SELFCAL_V2_BATCH_LIDS];
    uint16_t length[TAVO_SELFCAL_V2_BATCH_LIDS];
    uint16_t offset[TAVO_SELFCAL_V2_BATCH_LIDS];
    uint8_t data[TAVO_SELFCAL_V2_BATCH_DATA];
} TavoSelfCalSetDataV2Req;

TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalLidInfoV2(int handle, uint32_t timeoutMs, const TavoSelfCalLidInfoV2Req *req,
                                                   TavoSelfCalLidInfoV2Cnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalKeyStringsV2(int handle, uint32_t timeoutMs,
                                                      const TavoSelfCalKeyStringsV2Req *req,
                                                      TavoSelfCalKeyStringsV2Cnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalDataV2(int handle, uint32_t timeoutMs, const TavoSelfCalDataV2Req *req,
                                                TavoSelfCalDataV2Cnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_SetSelfCalDataV2(int handle, uint32_t timeoutMs, const TavoSelfCalSetDataV2Req *req);

/* Generation 7: every block of the multi-RAT radio with its index, size
 * and key name, and the data of one block by its index (at most 960 blocks
 * of at most 61,440 bytes). */
#define TAVO_SELFCAL_V7_MAX_LIDS 960
#define TAVO_SELFCAL_V7_MAX_DATA 61440

typedef struct {
    uint16_t index;
    uint16_t size;
    char key[TAVO_SELFCAL_KEY_SIZE];
} TavoSelfCalLidEntryV7;
typedef struct {
    uint16_t count;
    TavoSelfCalLidEntryV7 entries[TAVO_SELFCAL_V7_MAX_LIDS];
} TavoSelfCalLidInfoV7Cnf;
typedef struct { uint16_t index; } TavoSelfCalDataV7Req;
typedef struct {
    uint16_t status;
    uint16_t length;
    uint8_t data[TAVO_SELFCAL_V7_MAX_DATA];
} TavoSelfCalDataV7Cnf;
typedef struct {
    uint16_t index;
    uint16_t length;
    uint8_t data[TAVO_SELFCAL_V7_MAX_DATA];
} TavoSelfCalSetDataV7Req;

TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalLidInfoV7(int handle, uint32_t timeoutMs, TavoSelfCalLidInfoV7Cnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_GetSelfCalDataV7(int handle, uint32_t timeoutMs, const TavoSelfCalDataV7Req *req,
                                                TavoSelfCalDataV7Cnf *cnf);
TAVO_API TAVO_RESULT TAVO_MMRf_SetSelfCalDataV7(int handle, uint32_t timeoutMs, const TavoSelfCalSetDataV7Req *req);

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
