#include "NvramStore.h"

#include <cstring>

#include "PersistentNvram.h"

namespace TavoSim::NvramStore {

namespace {

TAVO_RESULT check(const TargetState &state, const QString &lid, int number, uint32_t size)
{
    const auto records = state.nvram.constFind(lid);
    if (records == state.nvram.constEnd())
        return TAVO_ERR_LID_NOT_FOUND;
    if (number < 1 || number > records->size())
        return TAVO_ERR_INVALID_ARGUMENT;
    if (size < uint32_t(records->at(number - 1).size()))
        return TAVO_ERR_BUFFER_TOO_SMALL;
    return TAVO_OK;
}

} // namespace

TAVO_RESULT read(const TargetState &state, const QString &lid, int number, void *buffer, uint32_t size,
                 uint32_t *moved)
{
    const TAVO_RESULT result = check(state, lid, number, size);
    if (result != TAVO_OK)
        return result;
    const QByteArray &record = state.nvram.value(lid).at(number - 1);
    std::memcpy(buffer, record.constData(), size_t(record.size()));
    if (moved)
        *moved = uint32_t(record.size());
    return TAVO_OK;
}

TAVO_RESULT write(TargetState &state, const QString &lid, int number, const void *bytes, uint32_t size,
                  uint32_t *moved)
{
    const TAVO_RESULT result = check(state, lid, number, size);
    if (result != TAVO_OK)
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
