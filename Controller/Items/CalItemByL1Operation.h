#pragma once

#include "GeneralOperation.h"
#include "RfChipIdRecorder.h"

class TIniFile;

// Base of a calibration item whose data the target's layer 1 hands over by
// dedicated commands rather than through NVRAM records. The four movements
// give a code of the error table (0 on success) and leave their failure text
// in the error text, as for an NVRAM item.
class ICalItemByL1Operation : public IGeneralOperation {
    Q_OBJECT
public:
    using IGeneralOperation::IGeneralOperation;

    // Target to item, item to target, file to item, item to file.
    virtual uint32_t UploadFromFlash() = 0;
    virtual uint32_t DownloadToFlash() = 0;
    virtual uint32_t ReadFromFile(TIniFile *file) = 0;
    virtual uint32_t WriteToFile(TIniFile *file) = 0;

protected:
    CRfChipIdRecorder m_rfChipIdRecorder;
};
