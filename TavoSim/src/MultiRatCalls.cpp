/* Multi-RAT clock and temperature data: layer 1's AFC data, GPS co-clock
 * and RF chip temperature ADC tables, and the E-RF side's GPS co-clock.
 * Each lives in a store of the NVRAM (see NvramLayout) whose raw layout is
 * that of the newest command's record, so that it outlives resets and the
 * process like any record. A command of an older version reads the fields
 * it carries and writes only those, leaving the others as they were. */

#include <QtEndian>

#include <cstring>

#include "NvramStore.h"
#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

const QString kAfcStore = QStringLiteral("MMRF_AFC");
const QString kGpsStore = QStringLiteral("MMRF_GPS_CO_CLOCK");
const QString kErfGpsStore = QStringLiteral("ERF_GPS_CO_CLOCK");
const QString kTadcStore = QStringLiteral("MMRF_TADC");

/* A store as the records of the commands lay it out: little-endian fields
 * at fixed offsets. */
struct Store
{
    QByteArray bytes;

    template <typename T>
    T get(int offset) const
    {
        return qFromLittleEndian<T>(bytes.constData() + offset);
    }
    template <typename T>
    void put(int offset, T value)
    {
        qToLittleEndian<T>(value, bytes.data() + offset);
    }
    float getFloat(int offset) const
    {
        const quint32 raw = get<quint32>(offset);
        float value;
        std::memcpy(&value, &raw, sizeof value);
        return value;
    }
    void putFloat(int offset, float value)
    {
        quint32 raw;
        std::memcpy(&raw, &value, sizeof raw);
        put<quint32>(offset, raw);
    }
};

/* Reads a store whole, lets `change` change it, and writes it back whole:
 * all of the change or, when the NVRAM cannot keep it, none. */
template <typename Change>
TAVO_RESULT changeStore(TargetState &state, const QString &name, Change change)
{
    Store store{state.nvram.value(name).value(0)};
    if (store.bytes.isEmpty())
        return TAVO_ERR_FAILED;
    change(store);
    return NvramStore::write(state, name, 1, store.bytes.constData(), uint32_t(store.bytes.size()));
}

/* Reads a store whole for `take`. */
template <typename Take>
TAVO_RESULT readStore(const TargetState &state, const QString &name, Take take)
{
    const Store store{state.nvram.value(name).value(0)};
    if (store.bytes.isEmpty())
        return TAVO_ERR_FAILED;
    take(store);
    return TAVO_OK;
}

/* ---- AFC data: initAfcDac u16 @0, aac s16 @2, slope s32 @4, capId u32 @8,
 * cload u32 @12 ---- */

/* What an AFC command carries besides the fields all versions have. */
enum AfcExtras { kAfcBase = 0, kAfcCload = 1, kAfcAac = 2 };

template <typename Record>
TAVO_RESULT getAfc(const char *call, int handle, uint32_t timeoutMs, Record *data, int extras)
{
    return TargetCall(call, handle, timeoutMs).run(data != nullptr, [&](const TargetProfile &, TargetState &state) {
        return readStore(state, kAfcStore, [&](const Store &store) {
            Record record = {};
            record.initAfcDac = store.get<quint16>(0);
            record.slope = store.get<qint32>(4);
            record.capId = store.get<quint32>(8);
            if constexpr (sizeof(Record) > sizeof(TavoMMAfcData)) {
                if (extras & kAfcCload)
                    record.cload = store.get<quint32>(12);
            }
            if constexpr (std::is_same_v<Record, TavoMMAfcDataV3>)
                record.aac = store.get<qint16>(2);
            *data = record;
        });
    });
}

template <typename Record>
TAVO_RESULT setAfc(const char *call, int handle, uint32_t timeoutMs, const Record *data, int extras)
{
    QStringList inputs;
    if (data) {
        inputs << Input("initAfcDac", data->initAfcDac) << Input("slope", data->slope) << Input("capId", data->capId);
        if constexpr (sizeof(Record) > sizeof(TavoMMAfcData))
            inputs << Input("cload", data->cload);
        if constexpr (std::is_same_v<Record, TavoMMAfcDataV3>)
            inputs << Input("aac", data->aac);
    }
    return TargetCall(call, handle, timeoutMs, inputs)
        .run(data != nullptr, [&](const TargetProfile &, TargetState &state) {
            return changeStore(state, kAfcStore, [&](Store &store) {
                store.put<quint16>(0, data->initAfcDac);
                store.put<qint32>(4, data->slope);
                store.put<quint32>(8, data->capId);
                if constexpr (sizeof(Record) > sizeof(TavoMMAfcData)) {
                    if (extras & kAfcCload)
                        store.put<quint32>(12, data->cload);
                }
                if constexpr (std::is_same_v<Record, TavoMMAfcDataV3>)
                    store.put<qint16>(2, data->aac);
            });
        });
}

/* ---- GPS co-clock of layer 1: c0, c1, coefficient2, coefficient3, s32 fixed point ---- */

QStringList gpsInputs(const qint32 *fixed, int count)
{
    const char *names[] = {"c0", "c1", "coefficient2", "coefficient3"};
    QStringList inputs;
    for (int i = 0; i < count; ++i)
        inputs << Input(names[i], fixed[i]);
    return inputs;
}

TAVO_RESULT getGps(const char *call, int handle, uint32_t timeoutMs, qint32 *fixed, int count)
{
    return TargetCall(call, handle, timeoutMs).run(fixed != nullptr, [&](const TargetProfile &, TargetState &state) {
        return readStore(state, kGpsStore, [&](const Store &store) {
            for (int i = 0; i < count; ++i)
                fixed[i] = store.get<qint32>(4 * i);
        });
    });
}

TAVO_RESULT setGps(const char *call, int handle, uint32_t timeoutMs, const qint32 *fixed, int count)
{
    return TargetCall(call, handle, timeoutMs, fixed ? gpsInputs(fixed, count) : QStringList{"request=null"})
        .run(fixed != nullptr, [&](const TargetProfile &, TargetState &state) {
            return changeStore(state, kGpsStore, [&](Store &store) {
                for (int i = 0; i < count; ++i)
                    store.put<qint32>(4 * i, fixed[i]);
            });
        });
}

} // namespace

extern "C" {

TAVO_RESULT TAVO_MMAfc_GetData(int handle, uint32_t timeoutMs, TavoMMAfcData *data)
{
    return getAfc("TAVO_MMAfc_GetData", handle, timeoutMs, data, kAfcBase);
}
TAVO_RESULT TAVO_MMAfc_SetData(int handle, uint32_t timeoutMs, const TavoMMAfcData *data)
{
    return setAfc("TAVO_MMAfc_SetData", handle, timeoutMs, data, kAfcBase);
}
TAVO_RESULT TAVO_MMAfc_GetDataV2(int handle, uint32_t timeoutMs, TavoMMAfcDataV2 *data)
{
    return getAfc("TAVO_MMAfc_GetDataV2", handle, timeoutMs, data, kAfcCload);
}
TAVO_RESULT TAVO_MMAfc_SetDataV2(int handle, uint32_t timeoutMs, const TavoMMAfcDataV2 *data)
{
    return setAfc("TAVO_MMAfc_SetDataV2", handle, timeoutMs, data, kAfcCload);
}
TAVO_RESULT TAVO_MMAfc_GetDataV3(int handle, uint32_t timeoutMs, TavoMMAfcDataV3 *data)
{
    return getAfc("TAVO_MMAfc_GetDataV3", handle, timeoutMs, data, kAfcCload | kAfcAac);
}
TAVO_RESULT TAVO_MMAfc_SetDataV3(int handle, uint32_t timeoutMs, const TavoMMAfcDataV3 *data)
{
    return setAfc("TAVO_MMAfc_SetDataV3", handle, timeoutMs, data, kAfcCload | kAfcAac);
}

TAVO_RESULT TAVO_MMGps_GetCoClock(int handle, uint32_t timeoutMs, TavoMMGpsCoClockCnf *cnf)
{
    return getGps("TAVO_MMGps_GetCoClock", handle, timeoutMs, cnf ? &cnf->c0 : nullptr, 2);
}
TAVO_RESULT TAVO_MMGps_SetCoClock(int handle, uint32_t timeoutMs, const TavoMMGpsCoClockReq *req)
{
    return setGps("TAVO_MMGps_SetCoClock", handle, timeoutMs, req ? &req->c0Fixed : nullptr, 2);
}
TAVO_RESULT TAVO_MMGps_GetCoClockV3(int handle, uint32_t timeoutMs, TavoMMGpsCoClockV3Cnf *cnf)
{
    return getGps("TAVO_MMGps_GetCoClockV3", handle, timeoutMs, cnf ? &cnf->c0 : nullptr, 4);
}
TAVO_RESULT TAVO_MMGps_SetCoClockV3(int handle, uint32_t timeoutMs, const TavoMMGpsCoClockV3Req *req)
{
    return setGps("TAVO_MMGps_SetCoClockV3", handle, timeoutMs, req ? &req->c0Fixed : nullptr, 4);
}

TAVO_RESULT TAVO_ERf_GetCoClock(int handle, uint32_t timeoutMs, TavoERfCoClock *cnf)
{
    return TargetCall("TAVO_ERf_GetCoClock", handle, timeoutMs)
        .run(cnf != nullptr, [&](const TargetProfile &, TargetState &state) {
            return readStore(state, kErfGpsStore, [&](const Store &store) {
                cnf->c0 = store.getFloat(0);
                cnf->c1 = store.getFloat(4);
            });
        });
}
TAVO_RESULT TAVO_ERf_SetCoClock(int handle, const TavoERfCoClock *req, uint32_t timeoutMs)
{
    const QStringList inputs = req ? QStringList{QStringLiteral("c0=%1").arg(double(req->c0)),
                                                 QStringLiteral("c1=%1").arg(double(req->c1))}
                                   : QStringList{QStringLiteral("request=null")};
    return TargetCall("TAVO_ERf_SetCoClock", handle, timeoutMs, inputs)
        .run(req != nullptr, [&](const TargetProfile &, TargetState &state) {
            return changeStore(state, kErfGpsStore, [&](Store &store) {
                store.putFloat(0, req->c0);
                store.putFloat(4, req->c1);
            });
        });
}

TAVO_RESULT TAVO_MMTadc_GetData(int handle, uint32_t timeoutMs, TavoMMTadcCnf *cnf)
{
    return TargetCall("TAVO_MMTadc_GetData", handle, timeoutMs)
        .run(cnf != nullptr, [&](const TargetProfile &, TargetState &state) {
            return readStore(state, kTadcStore, [&](const Store &store) {
                std::memset(cnf, 0, sizeof *cnf);
                for (int i = 0; i < TAVO_MMTADC_RFIC_MAX * TAVO_MMTADC_POINTS; ++i)
                    cnf->data.table[i / TAVO_MMTADC_POINTS][i % TAVO_MMTADC_POINTS] = store.get<quint16>(2 * i);
            });
        });
}
TAVO_RESULT TAVO_MMTadc_SetData(int handle, uint32_t timeoutMs, const TavoMMTadcData *data)
{
    /* Logged by rows, "3117,2842,...;3137,...", rows of zeros behind the
     * last row in use left out. */
    QStringList rows;
    if (data) {
        for (const auto &row : data->table) {
            QStringList values;
            for (uint16_t value : row)
                values << QString::number(value);
            rows << values.join(QLatin1Char(','));
        }
        while (!rows.isEmpty() && rows.last() == QLatin1String("0,0,0,0,0,0,0,0"))
            rows.removeLast();
    }
    return TargetCall("TAVO_MMTadc_SetData", handle, timeoutMs,
                      {data ? QStringLiteral("rows=") + rows.join(QLatin1Char(';')) : QStringLiteral("request=null")})
        .run(data != nullptr, [&](const TargetProfile &, TargetState &state) {
            return changeStore(state, kTadcStore, [&](Store &store) {
                for (int i = 0; i < TAVO_MMTADC_RFIC_MAX * TAVO_MMTADC_POINTS; ++i)
                    store.put<quint16>(2 * i, data->table[i / TAVO_MMTADC_POINTS][i % TAVO_MMTADC_POINTS]);
            });
        });
}

} // extern "C"
