/* Self calibration: the blocks that the radios' own calibration leaves in
 * the target, in three generations of commands (see TavoCore.h). The
 * blocks are the profile's (TargetProfile::tdscdmaSelfCal, mmrfSelfCal);
 * each lives in the NVRAM as a record of its own, so that what is written
 * outlives resets and the process. The first two generations serve the
 * TD-SCDMA blocks (a mask without TD-SCDMA finds none), the seventh the
 * multi-RAT radio's. A write takes whole blocks of their exact size; a
 * command that cannot be carried out entirely changes nothing. */

#include <algorithm>
#include <cstring>

#include "NvramStore.h"
#include "TavoCore.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

using Block = TargetProfile::SelfCalBlock;

constexpr quint16 kTdscdmaMask = 1u << 1;

const QVector<Block> &tdscdmaBlocks(const TargetProfile &p, quint16 ratMask)
{
    static const QVector<Block> none;
    return (ratMask & kTdscdmaMask) ? p.tdscdmaSelfCal : none;
}

const Block *findBlock(const QVector<Block> &blocks, quint16 index)
{
    const auto found = std::find_if(blocks.begin(), blocks.end(), [index](const Block &b) { return b.index == index; });
    return found == blocks.end() ? nullptr : &*found;
}

QByteArray blockBytes(const TargetState &state, bool mmrf, const Block &block)
{
    return state.nvram.value(TargetProfile::blockLid(mmrf, block.index)).value(0);
}

TAVO_RESULT writeBlock(TargetState &state, bool mmrf, const Block &block, const uint8_t *data)
{
    return NvramStore::write(state, TargetProfile::blockLid(mmrf, block.index), 1, data, block.size);
}

void putKey(char *target, const QString &key)
{
    const QByteArray bytes = key.toLatin1().left(TAVO_SELFCAL_KEY_SIZE - 1);
    std::memset(target, 0, TAVO_SELFCAL_KEY_SIZE);
    std::memcpy(target, bytes.constData(), size_t(bytes.size()));
}

QString indexList(const uint16_t *indices, int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list << QString::number(indices[i]);
    return list.join(QLatin1Char(','));
}

} // namespace

extern "C" {

/* ---- Generation 1 ---- */

TAVO_RESULT TAVO_MMRf_GetSelfCalLidCount(int handle, uint32_t timeoutMs, const TavoSelfCalLidCountReq *req,
                                         TavoSelfCalLidCountCnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalLidCount", handle, timeoutMs, {Input("ratMask", req ? req->ratMask : 0)})
        .run(req && cnf, [&](const TargetProfile &p, TargetState &) {
            *cnf = {};
            cnf->count = quint16(tdscdmaBlocks(p, req->ratMask).size());
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_GetSelfCalKeyStrings(int handle, uint32_t timeoutMs, const TavoSelfCalKeyStringsReq *req,
                                           TavoSelfCalKeyStringsCnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalKeyStrings", handle, timeoutMs, {Input("ratMask", req ? req->ratMask : 0)})
        .run(req && cnf, [&](const TargetProfile &p, TargetState &) {
            std::memset(cnf, 0, sizeof *cnf);
            const QVector<Block> &blocks = tdscdmaBlocks(p, req->ratMask);
            cnf->count = quint16(blocks.size());
            for (int i = 0; i < blocks.size() && i < TAVO_SELFCAL_V1_MAX_LIDS; ++i)
                putKey(cnf->keys[i], blocks[i].key);
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_GetSelfCalLidSize(int handle, uint32_t timeoutMs, const TavoSelfCalLidReq *req,
                                        TavoSelfCalLidSizeCnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalLidSize", handle, timeoutMs,
                      {Input("ratMask", req ? req->ratMask : 0), Input("index", req ? req->index : 0)})
        .run(req && cnf, [&](const TargetProfile &p, TargetState &) {
            const Block *block = findBlock(tdscdmaBlocks(p, req->ratMask), req->index);
            if (!block)
                return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            *cnf = {0, block->index, block->size};
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_GetSelfCalData(int handle, uint32_t timeoutMs, const TavoSelfCalLidReq *req,
                                     TavoSelfCalDataCnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalData", handle, timeoutMs,
                      {Input("ratMask", req ? req->ratMask : 0), Input("index", req ? req->index : 0)})
        .run(req && cnf, [&](const TargetProfile &p, TargetState &state) {
            const Block *block = findBlock(tdscdmaBlocks(p, req->ratMask), req->index);
            if (!block)
                return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            const QByteArray bytes = blockBytes(state, false, *block);
            std::memset(cnf, 0, sizeof *cnf);
            cnf->index = block->index;
            cnf->length = quint16(bytes.size());
            std::memcpy(cnf->data, bytes.constData(), std::min<size_t>(size_t(bytes.size()), sizeof cnf->data));
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_SetSelfCalData(int handle, uint32_t timeoutMs, const TavoSelfCalDataReq *req)
{
    return TargetCall("TAVO_MMRf_SetSelfCalData", handle, timeoutMs,
                      {Input("ratMask", req ? req->ratMask : 0), Input("index", req ? req->index : 0),
                       Input("length", req ? req->length : 0)})
        .run(req != nullptr, [&](const TargetProfile &p, TargetState &state) {
            const Block *block = findBlock(tdscdmaBlocks(p, req->ratMask), req->index);
            if (!block || req->length != block->size)
                return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            return writeBlock(state, false, *block, req->data);
        });
}

/* ---- Generation 2 ---- */

TAVO_RESULT TAVO_MMRf_GetSelfCalLidInfoV2(int handle, uint32_t timeoutMs, const TavoSelfCalLidInfoV2Req *req,
                                          TavoSelfCalLidInfoV2Cnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalLidInfoV2", handle, timeoutMs, {Input("ratMask", req ? req->ratMask : 0)})
        .run(req && cnf, [&](const TargetProfile &p, TargetState &) {
            std::memset(cnf, 0, sizeof *cnf);
            const QVector<Block> &blocks = tdscdmaBlocks(p, req->ratMask);
            cnf->ratMask = req->ratMask;
            cnf->count = quint16(blocks.size());
            for (int i = 0; i < blocks.size() && i < TAVO_SELFCAL_V2_MAX_LIDS; ++i) {
                cnf->index[i] = blocks[i].index;
                cnf->size[i] = blocks[i].size;
            }
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_GetSelfCalKeyStringsV2(int handle, uint32_t timeoutMs, const TavoSelfCalKeyStringsV2Req *req,
                                             TavoSelfCalKeyStringsV2Cnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalKeyStringsV2", handle, timeoutMs,
                      {Input("ratMask", req ? req->ratMask : 0)})
        .run(req && cnf, [&](const TargetProfile &p, TargetState &) {
            std::memset(cnf, 0, sizeof *cnf);
            const QVector<Block> &blocks = tdscdmaBlocks(p, req->ratMask);
            cnf->ratMask = req->ratMask;
            cnf->count = quint16(blocks.size());
            /* The names stand at the blocks' indices. */
            for (const Block &block : blocks) {
                if (block.index < TAVO_SELFCAL_V2_MAX_LIDS)
                    putKey(cnf->keys[block.index], block.key);
            }
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_GetSelfCalDataV2(int handle, uint32_t timeoutMs, const TavoSelfCalDataV2Req *req,
                                       TavoSelfCalDataV2Cnf *cnf)
{
    const int count = req ? std::min<int>(req->count, TAVO_SELFCAL_V2_BATCH_LIDS) : 0;
    return TargetCall("TAVO_MMRf_GetSelfCalDataV2", handle, timeoutMs,
                      {Input("ratMask", req ? req->ratMask : 0),
                       QStringLiteral("positions=") + (req ? indexList(req->index, count) : QString())})
        .run(req && cnf && req->count <= TAVO_SELFCAL_V2_BATCH_LIDS, [&](const TargetProfile &p, TargetState &state) {
            const QVector<Block> &blocks = tdscdmaBlocks(p, req->ratMask);
            std::memset(cnf, 0, sizeof *cnf);
            uint32_t offset = 0;
            for (int i = 0; i < count; ++i) {
                if (req->index[i] >= blocks.size() || offset + blocks[req->index[i]].size > TAVO_SELFCAL_V2_BATCH_DATA)
                    return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
                const QByteArray bytes = blockBytes(state, false, blocks[req->index[i]]);
                cnf->index[i] = req->index[i];
                cnf->length[i] = quint16(bytes.size());
                cnf->offset[i] = quint16(offset);
                std::memcpy(cnf->data + offset, bytes.constData(), size_t(bytes.size()));
                offset += uint32_t(bytes.size());
            }
            cnf->ratMask = req->ratMask;
            cnf->count = quint16(count);
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_SetSelfCalDataV2(int handle, uint32_t timeoutMs, const TavoSelfCalSetDataV2Req *req)
{
    const int count = req ? std::min<int>(req->count, TAVO_SELFCAL_V2_BATCH_LIDS) : 0;
    return TargetCall("TAVO_MMRf_SetSelfCalDataV2", handle, timeoutMs,
                      {Input("ratMask", req ? req->ratMask : 0),
                       QStringLiteral("positions=") + (req ? indexList(req->index, count) : QString())})
        .run(req && req->count <= TAVO_SELFCAL_V2_BATCH_LIDS, [&](const TargetProfile &p, TargetState &state) {
            const QVector<Block> &blocks = tdscdmaBlocks(p, req->ratMask);
            /* All blocks of the command are checked before any is written. */
            for (int i = 0; i < count; ++i) {
                if (req->index[i] >= blocks.size() || req->length[i] != blocks[req->index[i]].size ||
                    uint32_t(req->offset[i]) + req->length[i] > TAVO_SELFCAL_V2_BATCH_DATA)
                    return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            }
            for (int i = 0; i < count; ++i) {
                const TAVO_RESULT result = writeBlock(state, false, blocks[req->index[i]], req->data + req->offset[i]);
                if (result != TAVO_OK)
                    return result;
            }
            return TAVO_RESULT(TAVO_OK);
        });
}

/* ---- Generation 7 ---- */

TAVO_RESULT TAVO_MMRf_GetSelfCalLidInfoV7(int handle, uint32_t timeoutMs, TavoSelfCalLidInfoV7Cnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalLidInfoV7", handle, timeoutMs)
        .run(cnf != nullptr, [&](const TargetProfile &p, TargetState &) {
            std::memset(cnf, 0, sizeof *cnf);
            cnf->count = quint16(p.mmrfSelfCal.size());
            for (int i = 0; i < p.mmrfSelfCal.size() && i < TAVO_SELFCAL_V7_MAX_LIDS; ++i) {
                cnf->entries[i].index = p.mmrfSelfCal[i].index;
                cnf->entries[i].size = p.mmrfSelfCal[i].size;
                putKey(cnf->entries[i].key, p.mmrfSelfCal[i].key);
            }
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_GetSelfCalDataV7(int handle, uint32_t timeoutMs, const TavoSelfCalDataV7Req *req,
                                       TavoSelfCalDataV7Cnf *cnf)
{
    return TargetCall("TAVO_MMRf_GetSelfCalDataV7", handle, timeoutMs, {Input("index", req ? req->index : 0)})
        .run(req && cnf, [&](const TargetProfile &p, TargetState &state) {
            const Block *block = findBlock(p.mmrfSelfCal, req->index);
            if (!block)
                return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            const QByteArray bytes = blockBytes(state, true, *block);
            std::memset(cnf, 0, sizeof *cnf);
            cnf->length = block->reportedLength.value_or(quint16(bytes.size()));
            std::memcpy(cnf->data, bytes.constData(), std::min<size_t>(size_t(bytes.size()), sizeof cnf->data));
            return TAVO_RESULT(TAVO_OK);
        });
}

TAVO_RESULT TAVO_MMRf_SetSelfCalDataV7(int handle, uint32_t timeoutMs, const TavoSelfCalSetDataV7Req *req)
{
    return TargetCall("TAVO_MMRf_SetSelfCalDataV7", handle, timeoutMs,
                      {Input("index", req ? req->index : 0), Input("length", req ? req->length : 0)})
        .run(req != nullptr, [&](const TargetProfile &p, TargetState &state) {
            const Block *block = findBlock(p.mmrfSelfCal, req->index);
            if (!block || req->length != block->size)
                return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            return writeBlock(state, true, *block, req->data);
        });
}

} // extern "C"
