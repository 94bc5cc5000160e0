#pragma once

#include <QString>

// One row of the error table.
struct SErrorCodeInfo {
    qint32 code;
    qint32 level; // 0 no failure, 1 warning, 2 error
    QString message;
    QString advice;
};

// Codes with a name of their own in the code; the table holds more.
enum EErrorCode : qint32 {
    ERROR_CODE_SUCCESS = 0,
    ERROR_CODE_GENERAL = 1,
    ERROR_CODE_NOT_EXECUTED = 2,
    ERROR_CODE_TAVO_COMMAND_FAILED = 3,
    ERROR_CODE_TERMINATED = 4,
    ERROR_CODE_BAD_PARAMETER = 5,
    ERROR_CODE_FILE_NOT_OPERABLE = 50,
    ERROR_CODE_FILE_NO_DATA = 51,
    ERROR_CODE_FILE_INCOMPLETE = 52,
    ERROR_CODE_FILE_PROBLEM = 53,
    ERROR_CODE_NVRAM_DB_BUFFER = 100,
    ERROR_CODE_NVRAM_DECOMPOSE = 101,
    ERROR_CODE_NVRAM_COMPOSE = 102,
    ERROR_CODE_PARTIAL_UPDATE = 103,
    ERROR_CODE_RF_CHIP_MISMATCH = 200,
    ERROR_CODE_UBIN_INIT = 201,
    ERROR_CODE_UBIN_DEINIT = 202,
    ERROR_CODE_L1_STATUS = 203,
    ERROR_CODE_AFC_EVALUATION = 204,
    ERROR_CODE_RF_CAPABILITY = 205,
    ERROR_CODE_CAL_LIBRARY = 206,
};

// The row of `code`; an unknown code gives the last row (206). Never fails.
const SErrorCodeInfo &GetErrorCodeInfo(qint32 code);
