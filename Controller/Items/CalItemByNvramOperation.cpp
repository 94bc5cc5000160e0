#include "CalItemByNvramOperation.h"

#include "ErrorCodeInfo.h"

void ICalItemByNvramOperation::CNvramBatch::Add(const char *lid, uint32_t size, uint8_t *buffer, uint16_t record)
{
    m_lids.push_back(lid);
    m_records.push_back(record);
    m_sizes.push_back(size);
    m_buffers.push_back(buffer);
}

TAVO_RESULT ICalItemByNvramOperation::PrepareRecordBuffer(const char *lid, std::vector<uint8_t> &buffer, uint32_t *size)
{
    if (!buffer.empty())
        return TAVO_OK;
    uint32_t recordSize = 0;
    const TAVO_RESULT result = TAVO_NVRAM_GetRecordSize(lid, &recordSize);
    if (result != TAVO_OK)
        return result;
    buffer.assign(recordSize, 0);
    if (size)
        *size = recordSize;
    return TAVO_OK;
}

TAVO_RESULT ICalItemByNvramOperation::ReadBatch(CNvramBatch &batch)
{
    return m_nvramMan.ReadNvram(batch.Count(), batch.m_lids.data(), batch.m_records.data(), batch.m_sizes.data(),
                                batch.m_buffers.data());
}

TAVO_RESULT ICalItemByNvramOperation::WriteBatch(CNvramBatch &batch)
{
    return m_nvramMan.WriteNvram(batch.Count(), batch.m_lids.data(), batch.m_records.data(), batch.m_sizes.data(),
                                 batch.m_buffers.data());
}

uint32_t ICalItemByNvramOperation::UploadNvramRecords(const BatchBuilder &collect)
{
    TAVO_RESULT result = PrepareNvramBuffers();
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_NVRAM_DB_BUFFER, result);

    CNvramBatch batch;
    collect(batch);
    result = ReadBatch(batch);
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);

    result = DecomposeNvramData();
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_NVRAM_DECOMPOSE, result);
    return ERROR_CODE_SUCCESS;
}

uint32_t ICalItemByNvramOperation::DownloadNvramRecords(bool isDataValid, const BatchBuilder &collect)
{
    if (!isDataValid)
        return FailDataNotValid();

    TAVO_RESULT result = PrepareNvramBuffers();
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_NVRAM_DB_BUFFER, result);

    // The records as the target holds them now: what the tool does not
    // know of a record (fields it has no value for, another target's bytes
    // from an earlier upload) stays the target's own.
    CNvramBatch batch;
    collect(batch);
    result = ReadBatch(batch);
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);

    result = ComposeNvramData();
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_NVRAM_COMPOSE, result);
    result = WriteBatch(batch);
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    return ERROR_CODE_SUCCESS;
}
