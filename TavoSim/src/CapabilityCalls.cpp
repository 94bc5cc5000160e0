/* Capability and mode: what the target can do, and its Ubin test mode. The
 * records come ready-made from the profile; these calls check the caller's
 * request and buffers and copy them out. */

#include <cstring>

#include <QtEndian>

#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

/* The multi-record commands take a request of two 32-bit words. */
constexpr uint32_t kRequestSize = 8;

bool isRequest(const void *request, uint32_t size, quint32 first, quint32 second)
{
    if (!request || size != kRequestSize)
        return false;
    const auto *bytes = static_cast<const uchar *>(request);
    return qFromLittleEndian<quint32>(bytes) == first && qFromLittleEndian<quint32>(bytes + 4) == second;
}

TAVO_RESULT copyRecord(const QByteArray &record, void *out)
{
    std::memcpy(out, record.constData(), size_t(record.size()));
    return TAVO_OK;
}

/* A request-and-record capability command: the request must be exactly
 * {first, second} and the buffer must hold the whole record. */
TAVO_RESULT recordCommand(const char *call, int handle, uint32_t timeoutMs, const void *request, uint32_t requestSize,
                          void *record, uint32_t recordSize, quint32 first, quint32 second, uint32_t size,
                          QByteArray TargetProfile::*answer)
{
    const bool valid = isRequest(request, requestSize, first, second) && record && recordSize >= size;
    return TargetCall(call, handle, timeoutMs,
                      {RequestInput("request", request, requestSize, kRequestSize), Input("requestSize", requestSize),
                       Input("recordSize", recordSize)})
        .run(valid, [&](const TargetProfile &p, TargetState &) { return copyRecord(p.*answer, record); });
}

} // namespace

extern "C" {

TAVO_RESULT AST_UBIN_MODE_SETUP_r(int handle, uint32_t timeoutMs, uint16_t *mode)
{
    return TargetCall("AST_UBIN_MODE_SETUP_r", handle, timeoutMs, {Input("mode", mode)})
        .run(mode && *mode <= 1, [&](const TargetProfile &, TargetState &state) {
            state.ubinEnabled = *mode == 1;
            return TAVO_OK;
        });
}

TAVO_RESULT AST_CAL_tl1_reset_r(int handle, uint32_t timeoutMs)
{
    return TargetCall("AST_CAL_tl1_reset_r", handle, timeoutMs).run(true, [](const TargetProfile &, TargetState &) {
        return TAVO_OK;
    });
}

TAVO_RESULT AST_CAL_get_chipid_r(int handle, uint32_t timeoutMs, uint16_t *chipId, uint16_t *rfChipId)
{
    return TargetCall("AST_CAL_get_chipid_r", handle, timeoutMs)
        .run(chipId && rfChipId, [&](const TargetProfile &p, TargetState &) {
            *chipId = p.chipId;
            *rfChipId = p.rfChipId;
            return TAVO_OK;
        });
}

TAVO_RESULT AST_CAL_get_capability_r(int handle, uint32_t timeoutMs, uint32_t *capabilityFlags, uint32_t *bandFlags)
{
    return TargetCall("AST_CAL_get_capability_r", handle, timeoutMs)
        .run(capabilityFlags && bandFlags, [&](const TargetProfile &p, TargetState &) {
            *capabilityFlags = p.capabilityFlags;
            *bandFlags = p.bandFlags;
            return TAVO_OK;
        });
}

TAVO_RESULT AST_GetRfCapability_r(int handle, uint32_t timeoutMs, void *record, uint32_t recordSize)
{
    return TargetCall("AST_GetRfCapability_r", handle, timeoutMs, {Input("recordSize", recordSize)})
        .run(record && recordSize >= AST_RF_CAPABILITY_SIZE, [&](const TargetProfile &p, TargetState &) {
            return copyRecord(p.rfCapabilityRecord, record);
        });
}

TAVO_RESULT TAVO_MMRf_GetRfCapability_r(int handle, uint32_t timeoutMs, const void *request, uint32_t requestSize,
                                        void *record, uint32_t recordSize)
{
    return recordCommand("TAVO_MMRf_GetRfCapability_r", handle, timeoutMs, request, requestSize, record, recordSize,
                         4, 132, TAVO_MMRF_CAPABILITY_SIZE, &TargetProfile::multiRatRecord);
}

TAVO_RESULT TAVO_ERf_GetRfCapability_r(int handle, uint32_t timeoutMs, const void *request, uint32_t requestSize,
                                       void *record, uint32_t recordSize)
{
    return recordCommand("TAVO_ERf_GetRfCapability_r", handle, timeoutMs, request, requestSize, record, recordSize,
                         56, 180, TAVO_ERF_CAPABILITY_SIZE, &TargetProfile::lteRecord);
}

TAVO_RESULT TAVO_Rf_QueryMSCapabilityEx3_r(int handle, uint32_t timeoutMs, const void *request, uint32_t requestSize,
                                           void *record, uint32_t recordSize)
{
    return recordCommand("TAVO_Rf_QueryMSCapabilityEx3_r", handle, timeoutMs, request, requestSize, record,
                         recordSize, 2, 112, TAVO_MS_CAPABILITY_EX3_SIZE, &TargetProfile::gsmEx3Record);
}

TAVO_RESULT TAVO_Rf_QueryMSCapabilityEx2_r(int handle, uint32_t timeoutMs, void *record, uint32_t recordSize)
{
    return TargetCall("TAVO_Rf_QueryMSCapabilityEx2_r", handle, timeoutMs, {Input("recordSize", recordSize)})
        .run(record && recordSize >= TAVO_MS_CAPABILITY_EX2_SIZE, [&](const TargetProfile &p, TargetState &) {
            return copyRecord(p.gsmEx2Record, record);
        });
}

TAVO_RESULT TAVO_Rf_GetRFID_r(int handle, uint32_t timeoutMs, uint32_t *rfId)
{
    return TargetCall("TAVO_Rf_GetRFID_r", handle, timeoutMs).run(rfId, [&](const TargetProfile &p, TargetState &) {
        *rfId = p.gsmRfId;
        return TAVO_OK;
    });
}

TAVO_RESULT TAVO_3Grf_GetRFID_r(int handle, uint32_t timeoutMs, uint32_t *rfId)
{
    return TargetCall("TAVO_3Grf_GetRFID_r", handle, timeoutMs).run(rfId, [&](const TargetProfile &p, TargetState &) {
        *rfId = p.fddRfId;
        return TAVO_OK;
    });
}

} // extern "C"
