#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "GeneralOperation.h"
#include "Nvram/NvramMan.h"
#include "RfChipIdRecorder.h"

class TIniFile;

// Base of a calibration item whose data lie in NVRAM records that the tool
// reaches by LID through the host's NVRAM database.
//
// Each of the four movements begins by emptying the error text, gives a code
// of the error table (0 on success) and leaves the text of a failure in the
// error text: "TAVO_RESULT = " and the library's text for a failed library
// call. An upload makes the data invalid first and valid once it succeeds;
// a download of invalid data gives 2 without touching the target; a file
// read checks its sections (CRfChipIdRecorder::CheckFileSections) and makes
// the data valid before it reads them; a file write writes what the item
// holds, valid or not, each section beginning with its "RF Chip ID".
//
// Raw buffers are allocated once, by PrepareNvramBuffers, and released with
// the item.
class ICalItemByNvramOperation : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    // Raw buffers to decoded data after a read, decoded data (only what is
    // valid) to raw buffers before a write, each by the library's call for
    // the record kind; and the buffers themselves, sized by the database.
    virtual TAVO_RESULT DecomposeNvramData() = 0;
    virtual TAVO_RESULT ComposeNvramData() = 0;
    virtual TAVO_RESULT PrepareNvramBuffers() = 0;

    // Target to item, item to target, file to item, item to file.
    virtual uint32_t UploadFromFlash() = 0;
    virtual uint32_t DownloadToFlash() = 0;
    virtual uint32_t ReadFromFile(TIniFile *file) = 0;
    virtual uint32_t WriteToFile(TIniFile *file) = 0;

protected:
    // The records of one transfer, in order, as CNvramMan takes them.
    class CNvramBatch {
    public:
        void Add(const char *lid, uint32_t size, uint8_t *buffer, uint16_t record = 1);
        int Count() const { return int(m_lids.size()); }

    private:
        friend class ICalItemByNvramOperation;
        std::vector<const char *> m_lids;
        std::vector<uint16_t> m_records;
        std::vector<uint32_t> m_sizes;
        std::vector<uint8_t *> m_buffers;
    };
    using BatchBuilder = std::function<void(CNvramBatch &)>;

    // Allocates `buffer` once, zeroed, with the record size of `lid` (also
    // given in *size); an allocated buffer stays as it is.
    static TAVO_RESULT PrepareRecordBuffer(const char *lid, std::vector<uint8_t> &buffer, uint32_t *size = nullptr);
    // One transfer of the batch's records (CNvramMan).
    TAVO_RESULT ReadBatch(CNvramBatch &batch);
    TAVO_RESULT WriteBatch(CNvramBatch &batch);

    // The middle of an upload: PrepareNvramBuffers (else 100), the records
    // that `collect` names once the buffers stand, ReadNvram (else 3),
    // DecomposeNvramData (else 101). 0 when all went well.
    uint32_t UploadNvramRecords(const BatchBuilder &collect);
    // The steps of a download: 2 unless `isDataValid`, then
    // PrepareNvramBuffers (else 100), the records `collect` names read
    // afresh from the target (ReadNvram, else 3), ComposeNvramData over
    // them (else 102), WriteNvram (else 3). Fields the item does not
    // decode keep the target's values.
    uint32_t DownloadNvramRecords(bool isDataValid, const BatchBuilder &collect);

    CRfChipIdRecorder m_rfChipIdRecorder;
    CNvramMan m_nvramMan;
};
