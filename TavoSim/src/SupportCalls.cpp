/* Support queries: which commands the target offers. */

#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

/* 0 when the target offers `apiName` and the name has the prefix that the
 * query serves; each query knows only its own kind of command. */
TAVO_RESULT querySupport(const char *call, const char *prefix, int handle, uint32_t timeoutMs, const char *apiName)
{
    return TargetCall(call, handle, timeoutMs, {Input("apiName", apiName)})
        .run(apiName, [&](const TargetProfile &p, TargetState &) {
            const QString name = QString::fromUtf8(apiName);
            const bool offered = name.startsWith(QLatin1String(prefix)) && p.offers(name);
            return TAVO_RESULT(offered ? TAVO_OK : TAVO_ERR_NOT_SUPPORTED);
        });
}

} // namespace

extern "C" {

TAVO_RESULT TAVO_QueryAPISupported_r(int handle, uint32_t timeoutMs, const char *apiName)
{
    return querySupport("TAVO_QueryAPISupported_r", "TAVO_", handle, timeoutMs, apiName);
}

TAVO_RESULT AST_CAL_QueryAPISupported_r(int handle, uint32_t timeoutMs, const char *apiName)
{
    return querySupport("AST_CAL_QueryAPISupported_r", "AST_", handle, timeoutMs, apiName);
}

TAVO_RESULT TAVO_Util_QueryTargetOptionInfo(int handle, uint32_t timeoutMs, uint32_t *option)
{
    return TargetCall("TAVO_Util_QueryTargetOptionInfo", handle, timeoutMs)
        .run(option, [&](const TargetProfile &p, TargetState &) {
            *option = p.optionWord;
            return TAVO_OK;
        });
}

} // extern "C"
