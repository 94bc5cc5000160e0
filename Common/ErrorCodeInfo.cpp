#include "ErrorCodeInfo.h"

#include <array>

namespace {

const std::array<SErrorCodeInfo, 21> &ErrorTable()
{
    static const std::array<SErrorCodeInfo, 21> table{{
        {0, 0, "Operation is successful.", ""},
        {1, 2, "General error.", "Please contact the tool owner to handle it."},
        {2, 0, "Operation does not execute yet.", ""},
        {3, 2, "Tavo command execute failed.", "Please check the SW load stability or connection status."},
        {4, 0, "Terminated by user.", ""},
        {5, 2, "Please correct the input data for parameter.", ""},
        {50, 2, "File can not be operated", "Please check your file path"},
        {51, 1, "Data does not exist in this file.",
         "Please select the file that includes the data you want to operate."},
        {52, 1, "Data is not complete in this file.",
         "Please select the file that includes the data you want to operate."},
        {53, 2, "File operations has the problem.", "Please check the file that you select."},
        {100, 2, "Failed to get data from NVRAM DB.",
         "Getting the buffer size by its LID data has problem.\nPlease check your DB version."},
        {101, 2, "Failed to decompose data by NVRAM DB.", "Please check your DB version."},
        {102, 2, "Failed to compose data by NVRAM DB.", "Please check your DB version."},
        {103, 1, "Only partial data is updated.", "Please check the DB version or the file that you select."},
        {200, 1, "Rf chip ID is mismatch.",
         "The Rf chip ID in the file does not match that in the target.\nPlease recheck the file or SW load."},
        {201, 2, "Ubin init failed.", "Please recheck SW load stability or connection status."},
        {202, 2, "Ubin deinit failed.", "Please recheck SW load stability or connection status."},
        {203, 2, "L1 Status code != SUCCESS ",
         "Please recheck SW load stability and parameter setting of the command."},
        {204, 2, "Afc evaluation encounter problem.", "Please the input value of Frequence error and AFC DAC"},
        {205, 2, "RF capability has the problem.", "Please the L1 capability or SW load stability."},
        {206, 2, "Run calibration library flow failed.", ""},
    }};
    return table;
}

} // namespace

const SErrorCodeInfo &GetErrorCodeInfo(qint32 code)
{
    const auto &table = ErrorTable();
    for (const SErrorCodeInfo &row : table) {
        if (row.code == code)
            return row;
    }
    return table.back();
}
