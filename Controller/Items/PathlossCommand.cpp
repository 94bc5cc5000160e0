#include "PathlossCommand.h"

#include <QtEndian>

#include <cstring>
#include <vector>

#include "TavoApp.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;
constexpr uint32_t kHeadSize = AST_TAVO_NVRAM_PATHLOSS_HEAD_SIZE;

std::vector<uint8_t> Head(int band, uint16_t version, uint32_t recordSize)
{
    std::vector<uint8_t> record(kHeadSize + recordSize, 0);
    qToLittleEndian<uint16_t>(uint16_t(band), record.data());
    qToLittleEndian<uint16_t>(version, record.data() + 2);
    return record;
}

} // namespace

CPathlossCommand::CPathlossCommand(Call read, Call write, uint16_t version, uint32_t recordSize)
    : m_read(read), m_write(write), m_version(version), m_recordSize(recordSize)
{
}

TAVO_RESULT CPathlossCommand::Read(int handle, int band, void *record) const
{
    const std::vector<uint8_t> request = Head(band, m_version, 0);
    std::vector<uint8_t> confirm = Head(band, m_version, m_recordSize);
    const TAVO_RESULT result = m_read(handle, kTimeoutMs, request.data(), confirm.data());
    if (result == TAVO_OK)
        std::memcpy(record, confirm.data() + kHeadSize, m_recordSize);
    return result;
}

TAVO_RESULT CPathlossCommand::Write(int handle, int band, const void *record) const
{
    std::vector<uint8_t> request = Head(band, m_version, m_recordSize);
    std::memcpy(request.data() + kHeadSize, record, m_recordSize);
    std::vector<uint8_t> confirm = Head(band, m_version, 0);
    return m_write(handle, kTimeoutMs, request.data(), confirm.data());
}
