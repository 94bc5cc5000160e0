/* Test commands: the radio tests and measurements of the target. */

#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

extern "C" {

TAVO_RESULT TAVO_MISC_GetTADCChannelIndex_r(int handle, uint32_t timeoutMs, uint8_t *channel)
{
    return TargetCall("TAVO_MISC_GetTADCChannelIndex_r", handle, timeoutMs)
        .run(channel != nullptr, [&](const TargetProfile &p, TargetState &) {
            *channel = p.tadcChannel;
            return TAVO_OK;
        });
}

} // extern "C"
