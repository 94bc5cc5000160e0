#include "NvramStore.h"

#include <cstring>

#include "PersistentNvram.h"

namespace TavoSim::NvramStore {

namespace {

/* The record `number` of `lid` if a transfer of `size` bytes may use it;
 * else null, with the reason in *result. */
const QByteArray *find(const TargetState &state, const QString &lid, int number, uint32_t size, TAVO_RESULT *result)
{
    const auto records = state.nvram.constFind(lid);
    if (records == state.nvram.constEnd()) {
        *result = TAVO_ERR_LID_NOT_FOUND;
        return nullptr;
    }
    if (number < 1 || number > records->size()) {
        *result = TAVO_ERR_INVALID_ARGUMENT;
        return nullptr;
    }
    const QByteArray &record = records->at(number - 1);
    if (size < uint32_t(record.size())) {
        *result = TAVO_ERR_BUFFER_TOO_SMALL;
        return nullptr;
    }
    *result = TAVO_OK;
    return &record;
}

} // namespace

TAVO_RESULT read(const TargetState &state, const QString &lid, int number, void *buffer, uint32_t size,
                 uint32_t *moved)
{
    TAVO_RESULT result = TAVO_OK;
    const QByteArray *record = find(state, lid, number, size, &result);
    if (!record)
        return result;
    std::memcpy(buffer, record->constData(), size_t(record->size()));
    if (moved)
        *moved = uint32_t(record->size());
    return TAVO_OK;
}

TAVO_RESULT write(TargetState &state, const QString &lid, int number, const void *bytes, uint32_t size,
                  uint32_t *moved)
{
    TAVO_RESULT result = TAVO_OK;
    if (!find(state, lid, number, size, &result))
        return result;
    QByteArray &record = state.nvram[lid][number - 1];
    const QByteArray written(static_cast<const char *>(bytes), record.size());
    if (state.nvramFile && !state.nvramFile->keep(lid, number, written))
        return TAVO_ERR_FAILED;
    record = written;
    if (moved)
        *moved = uint32_t(record.size());
    return TAVO_OK;
}

} // namespace TavoSim::NvramStore
