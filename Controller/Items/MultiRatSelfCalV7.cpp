#include "MultiRatSelfCalV7.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>

#include "ErrorCodeInfo.h"

namespace {

constexpr uint32_t kReadTimeoutMs = 5000;
constexpr uint32_t kWriteTimeoutMs = 20000;

} // namespace

bool CMultiRatSelfCalV7::CollectLidInfo()
{
    if (!m_blocks.empty())
        return true;
    auto info = std::make_unique<TavoSelfCalLidInfoV7Cnf>();
    if (TAVO_MMRf_GetSelfCalLidInfoV7(Handle(), kReadTimeoutMs, info.get()) != TAVO_OK ||
        info->count > kMaxBlocks)
        return false;
    // Walked in ascending index; a later entry of an index replaces an earlier one.
    std::map<uint32_t, SSelfCalLidInfo> byIndex;
    for (int i = 0; i < info->count; ++i) {
        const TavoSelfCalLidEntryV7 &entry = info->entries[i];
        SSelfCalLidInfo block;
        block.index = entry.index;
        block.size = entry.size;
        block.buffer.assign(entry.size, 0);
        std::memcpy(block.key, entry.key, sizeof block.key - 1);
        byIndex.insert_or_assign(block.index, std::move(block));
    }
    for (auto &[index, block] : byIndex)
        m_blocks.push_back(std::move(block));
    return true;
}

uint32_t CMultiRatSelfCalV7::ReadBlocks()
{
    auto cnf = std::make_unique<TavoSelfCalDataV7Cnf>();
    for (SSelfCalLidInfo &block : m_blocks) {
        const TavoSelfCalDataV7Req req = {uint16_t(block.index)};
        const TAVO_RESULT result = TAVO_MMRf_GetSelfCalDataV7(Handle(), kReadTimeoutMs, &req, cnf.get());
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
        if (cnf->length != block.size) {
            m_errorMessage = QString::asprintf(
                "Execution Warning : The data length (%d) of Key value [%s] reported from get key string command "
                "\nis inconsistent with the data length (%d) which reported from get cal data command. Please Check "
                "the SW load.\n",
                int(block.size), block.key, int(cnf->length));
            return ERROR_CODE_GENERAL;
        }
        std::memcpy(block.buffer.data(), cnf->data, std::min<size_t>(block.buffer.size(), sizeof cnf->data));
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CMultiRatSelfCalV7::WriteBlocks()
{
    auto req = std::make_unique<TavoSelfCalSetDataV7Req>();
    for (const SSelfCalLidInfo &block : m_blocks) {
        *req = {};
        req->index = uint16_t(block.index);
        req->length = uint16_t(block.size);
        std::memcpy(req->data, block.buffer.data(), std::min<size_t>(block.buffer.size(), sizeof req->data));
        const TAVO_RESULT result = TAVO_MMRf_SetSelfCalDataV7(Handle(), kWriteTimeoutMs, req.get());
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    }
    return ERROR_CODE_SUCCESS;
}
