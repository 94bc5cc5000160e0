/* NVRAM transport: whole records in and out of the target's NVRAM, and the
 * integrity record that brackets a series of calibration writes. */

#include "NvramLayout.h"
#include "NvramStore.h"
#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

/* A record transfer; `confirm` is null for the C2K commands, which have none.
 * Layer 1's stores are reached only by its data commands. */
template <typename Transfer>
TAVO_RESULT transfer(const char *call, int handle, uint32_t timeoutMs, bool requestGiven, const char *lid,
                     uint16_t record, const void *buffer, uint32_t size, SNvramAccessConfirm *confirm,
                     Transfer move)
{
    const QStringList inputs = requestGiven
                                   ? QStringList{Input("lid", lid), Input("record", record), Input("size", size)}
                                   : QStringList{QStringLiteral("request=null")};
    return TargetCall(call, handle, timeoutMs, inputs)
        .run(requestGiven && lid && record >= 1 && buffer && size > 0,
             [&](const TargetProfile &, TargetState &state) {
                 const QString name = QString::fromLatin1(lid);
                 if (NvramLayout::isStore(name))
                     return TAVO_RESULT(TAVO_ERR_LID_NOT_FOUND);
                 uint32_t moved = 0;
                 const TAVO_RESULT result = move(state, name, &moved);
                 if (result == TAVO_OK && confirm)
                     *confirm = SNvramAccessConfirm{moved, record};
                 return result;
             });
}

TAVO_RESULT readRecord(const char *call, int handle, uint32_t timeoutMs, bool requestGiven, const char *lid,
                       uint16_t record, void *buffer, uint32_t size, SNvramAccessConfirm *confirm)
{
    return transfer(call, handle, timeoutMs, requestGiven, lid, record, buffer, size, confirm,
                    [&](TargetState &state, const QString &name, uint32_t *moved) {
                        return NvramStore::read(state, name, record, buffer, size, moved);
                    });
}

TAVO_RESULT writeRecord(const char *call, int handle, uint32_t timeoutMs, bool requestGiven, const char *lid,
                        uint16_t record, const void *buffer, uint32_t size, SNvramAccessConfirm *confirm)
{
    return transfer(call, handle, timeoutMs, requestGiven, lid, record, buffer, size, confirm,
                    [&](TargetState &state, const QString &name, uint32_t *moved) {
                        const TAVO_RESULT result = NvramStore::write(state, name, record, buffer, size, moved);
                        if (result == TAVO_OK && state.integrityOpen)
                            ++state.integrityWrites;
                        return result;
                    });
}

/* Starting while a record is open would nest two records: the target refuses. */
TAVO_RESULT startRecord(const char *call, int handle, uint32_t timeoutMs)
{
    return TargetCall(call, handle, timeoutMs).run(true, [](const TargetProfile &, TargetState &state) {
        if (state.integrityOpen)
            return TAVO_RESULT(TAVO_ERR_BUSY);
        state.integrityOpen = true;
        state.integrityWrites = 0;
        ++state.integrityRecords;
        return TAVO_RESULT(TAVO_OK);
    });
}

TAVO_RESULT stopRecord(const char *call, int handle, uint32_t timeoutMs, uint32_t *status)
{
    return TargetCall(call, handle, timeoutMs).run(status, [&](const TargetProfile &, TargetState &state) {
        if (!state.integrityOpen)
            return TAVO_RESULT(TAVO_ERR_FAILED);
        state.integrityOpen = false;
        *status = state.integrityWrites;
        return TAVO_RESULT(TAVO_OK);
    });
}

} // namespace

extern "C" {

TAVO_RESULT TAVO_NVRAM_Read_r(int handle, uint32_t timeoutMs, const SNvramAccessRequest *request,
                              SNvramAccessConfirm *confirm)
{
    const SNvramAccessRequest r = request ? *request : SNvramAccessRequest{};
    return readRecord("TAVO_NVRAM_Read_r", handle, timeoutMs, request && confirm, r.lid, r.record, r.buffer, r.size,
                      confirm);
}

TAVO_RESULT TAVO_NVRAM_Write_r(int handle, uint32_t timeoutMs, const SNvramAccessRequest *request,
                               SNvramAccessConfirm *confirm)
{
    const SNvramAccessRequest r = request ? *request : SNvramAccessRequest{};
    return writeRecord("TAVO_NVRAM_Write_r", handle, timeoutMs, request && confirm, r.lid, r.record, r.buffer, r.size,
                       confirm);
}

TAVO_RESULT TAVO_C2K_NVRAM_Read_r(int handle, uint32_t timeoutMs, const char *lid, uint16_t record, void *buffer,
                                  uint32_t size)
{
    return readRecord("TAVO_C2K_NVRAM_Read_r", handle, timeoutMs, true, lid, record, buffer, size, nullptr);
}

TAVO_RESULT TAVO_C2K_NVRAM_Write_r(int handle, uint32_t timeoutMs, const char *lid, uint16_t record,
                                   const void *buffer, uint32_t size)
{
    return writeRecord("TAVO_C2K_NVRAM_Write_r", handle, timeoutMs, true, lid, record, buffer, size, nullptr);
}

TAVO_RESULT TAVO_MISC_GetIMEIRecNum_r(int handle, uint32_t timeoutMs, uint16_t *count)
{
    return TargetCall("TAVO_MISC_GetIMEIRecNum_r", handle, timeoutMs)
        .run(count != nullptr, [&](const TargetProfile &, TargetState &state) {
            *count = uint16_t(state.nvram.value(QStringLiteral("NVRAM_EF_IMEI_IMEISV_LID")).size());
            return TAVO_OK;
        });
}

TAVO_RESULT TAVO_MISC_CalDataIntegrity_StartRec_Ex_r(int handle, uint32_t timeoutMs)
{
    return startRecord("TAVO_MISC_CalDataIntegrity_StartRec_Ex_r", handle, timeoutMs);
}

TAVO_RESULT TAVO_MISC_CalDataIntegrity_StartRec_r(int handle, uint32_t timeoutMs)
{
    return startRecord("TAVO_MISC_CalDataIntegrity_StartRec_r", handle, timeoutMs);
}

TAVO_RESULT TAVO_MISC_CalDataIntegrity_StopRec_Ex_r(int handle, uint32_t timeoutMs, uint32_t *status)
{
    return stopRecord("TAVO_MISC_CalDataIntegrity_StopRec_Ex_r", handle, timeoutMs, status);
}

TAVO_RESULT TAVO_MISC_CalDataIntegrity_StopRec_r(int handle, uint32_t timeoutMs, uint32_t *status)
{
    return stopRecord("TAVO_MISC_CalDataIntegrity_StopRec_r", handle, timeoutMs, status);
}

} // extern "C"
