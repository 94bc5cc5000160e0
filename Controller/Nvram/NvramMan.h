#pragma once

#include <QObject>

#include <cstdint>

#include "TavoCore.h"
#include "TavoTargetAccess.h"

// Reads and writes whole NVRAM records of the target in batches. A batch is
// four arrays of `count` entries: LID names, record numbers (from 1), sizes
// and buffers; they stay the caller's. The records are handled one at a
// time, in order, on the calling thread; the first failure ends the batch,
// so the records before it are done and those after it are not tried.
//
// Each record goes to the modem the connection serves now: a C2K modem
// through the C2K commands, any other through the plain ones. A write batch
// lies within one integrity record (CCalDataIntegrity).
class CNvramMan : public QObject {
    Q_OBJECT
public:
    explicit CNvramMan(QObject *parent = nullptr);

    // 0 when every record was moved, else the result of the failed call. An
    // entry with a null LID or buffer, record number 0 or size 0 gives 1
    // without a call. Both emit their done signal, with the same result,
    // before they return.
    TAVO_RESULT ReadNvram(int count, const char *const lids[], const uint16_t records[], const uint32_t sizes[],
                          uint8_t *const buffers[]);
    TAVO_RESULT WriteNvram(int count, const char *const lids[], const uint16_t records[], const uint32_t sizes[],
                           uint8_t *const buffers[]);

signals:
    // Emitted on the thread of the read or write.
    void Signal_ReadNvramDone(TAVO_RESULT tavoResult);
    void Signal_WriteNvramDone(TAVO_RESULT tavoResult);

private:
    enum class EDirection { Read, Write };

    TAVO_RESULT TransferBatch(EDirection direction, int count, const char *const lids[], const uint16_t records[],
                              const uint32_t sizes[], uint8_t *const buffers[]);
    TAVO_RESULT TransferRecord(EDirection direction, const char *lid, uint16_t record, uint32_t size,
                               uint8_t *buffer);

    CTavoTargetAccess m_targetAccess;
};
