#include "TdscdmaPathLossV2.h"

#include "PathlossCommand.h"
#include "TavoApp.h"

namespace {

const CPathlossCommand kCommand(AST_Tavo_NVRAM_Pathloss_Read_r, AST_Tavo_NVRAM_Pathloss_Write_r,
                                AST_TAVO_NVRAM_PATHLOSS_VERSION, AST_TAVO_NVRAM_PATHLOSS_RECORD_SIZE);

} // namespace

uint32_t CTdscdmaPathLossV2::UploadFromFlash() { return UploadByCommand(kCommand, false); }

uint32_t CTdscdmaPathLossV2::DownloadToFlash() { return DownloadByCommand(kCommand); }
