#pragma once

#include <string>

#include "CalItemByL1Operation.h"
#include "Capability/MmrfCapability.h"
#include "SMmrfAfcData.h"

// The AFC data of a multi-RAT radio whose layer 1 keeps them itself. The
// target's AFC version picks the commands: version 3 carries the AAC value
// and the low power mode load value, version 2 the load value, any other
// neither. The load value also needs a target that has the low power mode.
//
// Cal/INI: "MMRF AFC control" with "Initial value", "Slope" (Hz per DAC
// step), "cap_id" and, on version 3, "aac"; "DCXO low power mode data" with
// "cload" where the target has the low power mode on version 2 or 3. Older
// files with "AFC control" and "Crystal AFC control" are read, never written.
class CMmrfAfc : public ICalItemByL1Operation {
    Q_OBJECT
public:
    static const char *const kSection;
    static const char *const kOldSection;
    static const char *const kOldCrystalSection;
    static const char *const kDcxoSection;

    using ICalItemByL1Operation::ICalItemByL1Operation;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    SMmrfAfcData GetAfcData() const { return m_afcData; }
    void SetAfcData(const SMmrfAfcData &data) { m_afcData = data; }
    bool IsDataValid() const { return m_isDataValid; }

    // Whether `file` holds the item's data for this target.
    bool IsSectionInFile(TIniFile *file);

    // A slope in Hz per DAC step as the target stores it: 4096 over it in
    // single precision, rounded half away from zero. A slope of 0, or one
    // so small that the quotient leaves 32 bits, gives -2147483648.
    static int32_t SlopeToTargetValue(float slope);
    // The reverse, with 1 in place of a stored 0.
    static float TargetValueToSlope(int32_t value);

private:
    // Whether the target's commands carry the low power mode's load value
    // and the file its section.
    bool HasDcxoLpm();

    bool m_isDataValid = false;
    CMmrfCapability m_capability;
    SMmrfAfcData m_afcData;
};
