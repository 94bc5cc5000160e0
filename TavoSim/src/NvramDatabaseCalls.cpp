/* NVRAM database: what the records the host's database describes look like,
 * and the conversion of records between their raw and decoded forms. These
 * calls take neither handle nor time-out and fail while no database is
 * loaded. */

#include <QtEndian>

#include "NvramDatabase.h"
#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

template <typename Work>
TAVO_RESULT databaseCall(const char *name, QStringList inputs, bool argumentsValid, Work work)
{
    return TargetCall(name, TargetCall::kNoHandle, -1, std::move(inputs))
        .run(argumentsValid, [&](const TargetProfile &p, TargetState &state) {
            if (!state.databaseLoaded)
                return TAVO_RESULT(TAVO_ERR_NO_DATABASE);
            return TAVO_RESULT(work(p.database));
        });
}

/* A field or element of a record of `lid`, with the checks both field
 * calls share; calls `move` with the place of the field. */
template <typename Move>
TAVO_RESULT fieldCall(const char *name, const char *lid, const char *field, const void *raw, uint32_t rawSize,
                      const void *value, uint32_t valueSize, Move move)
{
    return databaseCall(name,
                        {Input("lid", lid), Input("field", field), Input("rawSize", rawSize),
                         Input("valueSize", valueSize)},
                        lid && field && raw && value, [&](const NvramDatabase &database) {
                            if (!database.lid(QString::fromLatin1(lid)))
                                return TAVO_RESULT(TAVO_ERR_LID_NOT_FOUND);
                            const std::optional<NvramDatabase::FieldRef> ref =
                                database.field(QString::fromLatin1(lid), QString::fromLatin1(field));
                            if (!ref)
                                return TAVO_RESULT(TAVO_ERR_FIELD_NOT_FOUND);
                            if (uint32_t(ref->offset + ref->size()) > rawSize || uint32_t(ref->size()) > valueSize)
                                return TAVO_RESULT(TAVO_ERR_BUFFER_TOO_SMALL);
                            const int step = NvramLayout::sizeOf(ref->type);
                            for (int i = 0; i < ref->count; ++i)
                                move(ref->type, ref->offset + i * step, i * step);
                            return TAVO_RESULT(TAVO_OK);
                        });
}

TAVO_RESULT composeCall(const char *name, const char *kind, const void *record, void *raw, uint32_t rawSize)
{
    return databaseCall(name, {Input("rawSize", rawSize)}, record && raw, [&](const NvramDatabase &) {
        return NvramLayout::compose(NvramLayout::kind(kind), record, static_cast<uchar *>(raw), rawSize);
    });
}

TAVO_RESULT decomposeCall(const char *name, const char *kind, void *record, const void *raw, uint32_t rawSize)
{
    return databaseCall(name, {Input("rawSize", rawSize)}, record && raw, [&](const NvramDatabase &) {
        return NvramLayout::decompose(NvramLayout::kind(kind), record, static_cast<const uchar *>(raw), rawSize);
    });
}

} // namespace

extern "C" {

TAVO_RESULT TAVO_NVRAM_LidExists(const char *lid)
{
    return databaseCall("TAVO_NVRAM_LidExists", {Input("lid", lid)}, lid, [&](const NvramDatabase &database) {
        return database.lid(QString::fromLatin1(lid)) ? TAVO_OK : TAVO_ERR_LID_NOT_FOUND;
    });
}

TAVO_RESULT TAVO_NVRAM_GetRecordCount(const char *lid, int *count)
{
    return databaseCall("TAVO_NVRAM_GetRecordCount", {Input("lid", lid)}, lid && count,
                        [&](const NvramDatabase &database) {
                            const NvramDatabase::Lid *known = database.lid(QString::fromLatin1(lid));
                            if (!known)
                                return TAVO_RESULT(TAVO_ERR_LID_NOT_FOUND);
                            *count = known->count;
                            return TAVO_RESULT(TAVO_OK);
                        });
}

TAVO_RESULT TAVO_NVRAM_GetRecordSize(const char *lid, uint32_t *size)
{
    return databaseCall("TAVO_NVRAM_GetRecordSize", {Input("lid", lid)}, lid && size,
                        [&](const NvramDatabase &database) {
                            const NvramDatabase::Lid *known = database.lid(QString::fromLatin1(lid));
                            if (!known)
                                return TAVO_RESULT(TAVO_ERR_LID_NOT_FOUND);
                            *size = known->size;
                            return TAVO_RESULT(TAVO_OK);
                        });
}

TAVO_RESULT TAVO_NVRAM_FieldExists(const char *lid, const char *field, int *exists)
{
    return databaseCall("TAVO_NVRAM_FieldExists", {Input("lid", lid), Input("field", field)}, lid && field && exists,
                        [&](const NvramDatabase &database) {
                            if (!database.lid(QString::fromLatin1(lid)))
                                return TAVO_RESULT(TAVO_ERR_LID_NOT_FOUND);
                            *exists = database.field(QString::fromLatin1(lid), QString::fromLatin1(field)) ? 1 : 0;
                            return TAVO_RESULT(TAVO_OK);
                        });
}

TAVO_RESULT TAVO_NVRAM_GetField(const char *lid, const char *field, const void *raw, uint32_t rawSize, void *value,
                                uint32_t valueSize)
{
    return fieldCall("TAVO_NVRAM_GetField", lid, field, raw, rawSize, value, valueSize,
                     [&](NvramLayout::Type type, int rawAt, int valueAt) {
                         NvramLayout::elementFromRaw(type, static_cast<const uchar *>(raw) + rawAt,
                                                     static_cast<uchar *>(value) + valueAt);
                     });
}

TAVO_RESULT TAVO_NVRAM_SetField(const char *lid, const char *field, void *raw, uint32_t rawSize, const void *value,
                                uint32_t valueSize)
{
    return fieldCall("TAVO_NVRAM_SetField", lid, field, raw, rawSize, value, valueSize,
                     [&](NvramLayout::Type type, int rawAt, int valueAt) {
                         NvramLayout::elementToRaw(type, static_cast<const uchar *>(value) + valueAt,
                                                   static_cast<uchar *>(raw) + rawAt);
                     });
}

TAVO_RESULT TAVO_NVRAM_DecomposeTxDac(TavoTxDacRecord *record, const void *raw, uint32_t rawSize)
{
    return decomposeCall("TAVO_NVRAM_DecomposeTxDac", "TxDac", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_ComposeTxDac(const TavoTxDacRecord *record, void *raw, uint32_t rawSize)
{
    return composeCall("TAVO_NVRAM_ComposeTxDac", "TxDac", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_DecomposeTxClpc(TavoTxClpcRecord *record, const void *raw, uint32_t rawSize)
{
    return decomposeCall("TAVO_NVRAM_DecomposeTxClpc", "TxClpc", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_ComposeTxClpc(const TavoTxClpcRecord *record, void *raw, uint32_t rawSize)
{
    return composeCall("TAVO_NVRAM_ComposeTxClpc", "TxClpc", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_DecomposePathloss(TavoPathlossRecord *record, const void *raw, uint32_t rawSize)
{
    return decomposeCall("TAVO_NVRAM_DecomposePathloss", "Pathloss", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_ComposePathloss(const TavoPathlossRecord *record, void *raw, uint32_t rawSize)
{
    return composeCall("TAVO_NVRAM_ComposePathloss", "Pathloss", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_DecomposeAfc(TavoAfcRecord *record, const void *raw, uint32_t rawSize)
{
    return decomposeCall("TAVO_NVRAM_DecomposeAfc", "Afc", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_ComposeAfc(const TavoAfcRecord *record, void *raw, uint32_t rawSize)
{
    return composeCall("TAVO_NVRAM_ComposeAfc", "Afc", record, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_DecomposeTadc(uint16_t *adc, const void *raw, uint32_t rawSize)
{
    return decomposeCall("TAVO_NVRAM_DecomposeTadc", "Tadc", adc, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_ComposeTadc(const uint16_t *adc, void *raw, uint32_t rawSize)
{
    return composeCall("TAVO_NVRAM_ComposeTadc", "Tadc", adc, raw, rawSize);
}

TAVO_RESULT TAVO_NVRAM_DecomposeImei(TavoImeiRecord *record, const void *raw, uint32_t rawSize)
{
    return decomposeCall("TAVO_NVRAM_DecomposeImei", "Imei", record, raw, rawSize);
}

/* The checksum is the sum of the bytes before it, modulo 2^16. */
TAVO_RESULT TAVO_NVRAM_ComposeImei(const TavoImeiRecord *record, void *raw, uint32_t rawSize, bool sealRecord)
{
    return databaseCall("TAVO_NVRAM_ComposeImei", {Input("rawSize", rawSize), Input("sealRecord", int(sealRecord))},
                        record && raw, [&](const NvramDatabase &) {
                            const NvramLayout::Kind &imei = NvramLayout::kind("Imei");
                            auto *bytes = static_cast<uchar *>(raw);
                            const TAVO_RESULT result = NvramLayout::compose(imei, record, bytes, rawSize);
                            int at = 0;
                            imei.field(QStringLiteral("checksum"), &at);
                            if (result != TAVO_OK || !sealRecord || rawSize < uint32_t(at + 2))
                                return result;
                            quint16 sum = 0;
                            for (int i = 0; i < at; ++i)
                                sum = quint16(sum + bytes[i]);
                            qToLittleEndian(sum, bytes + at);
                            return TAVO_RESULT(TAVO_OK);
                        });
}

} // extern "C"
