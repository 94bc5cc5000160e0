#include "MultiRatSelfCal.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "ErrorCodeInfo.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;

} // namespace

CMultiRatSelfCal::CMultiRatSelfCal(uint32_t ratIndex, QObject *parent) : IMultiRatSelfCal(parent), m_ratIndex(ratIndex)
{
}

QString CMultiRatSelfCal::SectionOf(uint32_t ratIndex)
{
    // As files spell them.
    static const char *const kSections[] = {"GSM RF SELF CAIBRATION",   "TDSCDMA RF SELF CAIBRATION",
                                            "C2K RF SELF CAIBRATION",   "WCDMA RF SELF CAIBRATION",
                                            "LTE RF SELF CAIBRATION",   "LTE RF SELF CAIBRATION"};
    return ratIndex < 6 ? kSections[ratIndex] : QString();
}

void CMultiRatSelfCal::Reset()
{
    IMultiRatSelfCal::Reset();
    m_isCollected = false;
}

void CMultiRatSelfCal::WriteRfChipId(TIniFile *file) { WriteRatRfChipId(file); }

void CMultiRatSelfCal::WriteRatRfChipId(TIniFile *file)
{
    const std::string section = Section().toStdString();
    switch (m_ratIndex) {
    case 0:
        m_rfChipIdRecorder.WriteGsmRfChipId(file, section);
        break;
    case 1:
        m_rfChipIdRecorder.WriteTdscdmaRfChipId(file, section);
        break;
    case 3:
        m_rfChipIdRecorder.WriteFddRfChipId(file, section);
        break;
    case 4:
    case 5:
        m_rfChipIdRecorder.WriteLteRfChipId(file, section);
        break;
    default:
        break;
    }
}

bool CMultiRatSelfCal::CollectLidInfo()
{
    if (m_isCollected)
        return true;
    const TavoSelfCalLidCountReq countReq = {RatMask(), 0};
    TavoSelfCalLidCountCnf countCnf = {};
    const TavoSelfCalKeyStringsReq keysReq = {RatMask()};
    auto keys = std::make_unique<TavoSelfCalKeyStringsCnf>();
    if (TAVO_MMRf_GetSelfCalLidCount(Handle(), kTimeoutMs, &countReq, &countCnf) != TAVO_OK ||
        TAVO_MMRf_GetSelfCalKeyStrings(Handle(), kTimeoutMs, &keysReq, keys.get()) != TAVO_OK ||
        countCnf.count != keys->count || countCnf.count > kMaxBlocks)
        return false;

    // A block whose size the target does not tell keeps no buffer.
    m_blocks.assign(countCnf.count, SSelfCalLidInfo());
    for (uint16_t index = 0; index < countCnf.count; ++index) {
        const TavoSelfCalLidReq req = {RatMask(), index};
        TavoSelfCalLidSizeCnf cnf = {};
        if (TAVO_MMRf_GetSelfCalLidSize(Handle(), kTimeoutMs, &req, &cnf) != TAVO_OK)
            break;
        SSelfCalLidInfo &block = m_blocks[index];
        block.buffer.assign(cnf.size, 0);
        block.size = cnf.size;
        block.index = index;
        std::memcpy(block.key, keys->keys[index], sizeof block.key - 1);
    }
    m_isCollected = true;
    return true;
}

uint32_t CMultiRatSelfCal::ReadBlocks()
{
    auto cnf = std::make_unique<TavoSelfCalDataCnf>();
    for (SSelfCalLidInfo &block : m_blocks) {
        const TavoSelfCalLidReq req = {RatMask(), uint16_t(block.index)};
        const TAVO_RESULT result = TAVO_MMRf_GetSelfCalData(Handle(), kTimeoutMs, &req, cnf.get());
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
        // Never more than the block holds, nor than the answer carries.
        const size_t length = std::min<size_t>({cnf->length, block.buffer.size(), sizeof cnf->data});
        std::memcpy(block.buffer.data(), cnf->data, length);
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t CMultiRatSelfCal::WriteBlocks()
{
    auto req = std::make_unique<TavoSelfCalDataReq>();
    for (const SSelfCalLidInfo &block : m_blocks) {
        const size_t length = std::min<size_t>(block.buffer.size(), sizeof req->data);
        *req = {};
        req->ratMask = RatMask();
        req->index = uint16_t(block.index);
        req->length = uint16_t(block.size);
        std::memcpy(req->data, block.buffer.data(), length);
        const TAVO_RESULT result = TAVO_MMRf_SetSelfCalData(Handle(), kTimeoutMs, req.get());
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    }
    return ERROR_CODE_SUCCESS;
}
