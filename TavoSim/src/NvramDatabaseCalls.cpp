/* NVRAM database: what the records the host's database describes look like.
 * These calls take neither handle nor time-out and fail while no database
 * is loaded. */

#include "NvramDatabase.h"
#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

extern "C" {

TAVO_RESULT TAVO_NVRAM_FieldExists(const char *lid, const char *field, int *exists)
{
    return TargetCall("TAVO_NVRAM_FieldExists", TargetCall::kNoHandle, -1, {Input("lid", lid), Input("field", field)})
        .run(lid && field && exists, [&](const TargetProfile &p, TargetState &state) {
            if (!state.databaseLoaded)
                return TAVO_RESULT(TAVO_ERR_NO_DATABASE);
            if (!NvramDatabase::knowsLid(p, QString::fromLatin1(lid)))
                return TAVO_RESULT(TAVO_ERR_LID_NOT_FOUND);
            *exists = NvramDatabase::hasField(p, QString::fromLatin1(lid), QString::fromLatin1(field)) ? 1 : 0;
            return TAVO_RESULT(TAVO_OK);
        });
}

} // extern "C"
