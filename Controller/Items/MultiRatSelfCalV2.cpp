#include "MultiRatSelfCalV2.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "ErrorCodeInfo.h"

namespace {

constexpr uint32_t kReadTimeoutMs = 10000;
constexpr uint32_t kWriteTimeoutMs = 20000;

} // namespace

std::vector<std::pair<int, int>> CMultiRatSelfCalV2::Batches(const std::vector<SSelfCalLidInfo> &blocks)
{
    std::vector<std::pair<int, int>> batches;
    const int count = int(blocks.size());
    for (int start = 0; start < count;) {
        uint32_t total = blocks[size_t(start)].size;
        int taken = 1;
        while (taken < TAVO_SELFCAL_V2_BATCH_LIDS && start + taken < count &&
               total + blocks[size_t(start + taken)].size < TAVO_SELFCAL_V2_BATCH_DATA) {
            total += blocks[size_t(start + taken)].size;
            ++taken;
        }
        batches.emplace_back(start, taken);
        start += taken;
    }
    return batches;
}

bool CMultiRatSelfCalV2::CollectLidInfo()
{
    if (m_isCollected)
        return true;
    const TavoSelfCalLidInfoV2Req infoReq = {RatMask(), {0, 0}};
    auto info = std::make_unique<TavoSelfCalLidInfoV2Cnf>();
    const TavoSelfCalKeyStringsV2Req keysReq = {RatMask(), 0};
    auto keys = std::make_unique<TavoSelfCalKeyStringsV2Cnf>();
    if (TAVO_MMRf_GetSelfCalLidInfoV2(Handle(), kReadTimeoutMs, &infoReq, info.get()) != TAVO_OK ||
        TAVO_MMRf_GetSelfCalKeyStringsV2(Handle(), kReadTimeoutMs, &keysReq, keys.get()) != TAVO_OK ||
        info->count != keys->count || info->count > kMaxBlocks)
        return false;

    m_blocks.assign(info->count, SSelfCalLidInfo());
    for (int position = 0; position < info->count; ++position) {
        SSelfCalLidInfo &block = m_blocks[size_t(position)];
        block.size = info->size[position];
        block.buffer.assign(block.size, 0);
        block.index = info->index[position];
        // The names stand at the blocks' indices.
        if (block.index < TAVO_SELFCAL_V2_MAX_LIDS)
            std::memcpy(block.key, keys->keys[block.index], sizeof block.key - 1);
    }
    m_isCollected = true;
    return true;
}

uint32_t CMultiRatSelfCalV2::ReadBlocks()
{
    auto cnf = std::make_unique<TavoSelfCalDataV2Cnf>();
    for (const auto &[start, count] : Batches(m_blocks)) {
        TavoSelfCalDataV2Req req = {};
        req.ratMask = RatMask();
        req.count = uint16_t(count);
        for (int i = 0; i < count; ++i)
            req.index[i] = uint16_t(start + i);
        const TAVO_RESULT result = TAVO_MMRf_GetSelfCalDataV2(Handle(), kReadTimeoutMs, &req, cnf.get());
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
        for (int i = 0; i < count && i < int(cnf->count); ++i) {
            if (cnf->index[i] >= m_blocks.size() || cnf->offset[i] >= sizeof cnf->data)
                continue;
            SSelfCalLidInfo &block = m_blocks[cnf->index[i]];
            // Never more than the block holds, nor than the answer carries.
            const size_t length =
                std::min<size_t>({cnf->length[i], block.buffer.size(), sizeof cnf->data - cnf->offset[i]});
            std::memcpy(block.buffer.data(), cnf->data + cnf->offset[i], length);
        }
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CMultiRatSelfCalV2::WriteBlocks()
{
    auto req = std::make_unique<TavoSelfCalSetDataV2Req>();
    for (const auto &[start, count] : Batches(m_blocks)) {
        *req = {};
        req->ratMask = RatMask();
        req->count = uint16_t(count);
        uint32_t offset = 0;
        for (int i = 0; i < count; ++i) {
            const SSelfCalLidInfo &block = m_blocks[size_t(start + i)];
            const size_t length = std::min<size_t>(block.buffer.size(), sizeof req->data - offset);
            req->index[i] = uint16_t(start + i);
            req->length[i] = uint16_t(block.size);
            req->offset[i] = uint16_t(offset);
            std::memcpy(req->data + offset, block.buffer.data(), length);
            offset += uint32_t(length);
        }
        const TAVO_RESULT result = TAVO_MMRf_SetSelfCalDataV2(Handle(), kWriteTimeoutMs, req.get());
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    }
    return ERROR_CODE_SUCCESS;
}
