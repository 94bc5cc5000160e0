#pragma once

#include <cstdint>
#include <vector>

#include "CalItemByNvramOperation.h"
#include "Capability/LteRfCapability.h"
#include "Capability/MmrfCapability.h"

// The coefficients of the GPS co-clock: the polynomial with which the GPS
// receiver follows the frequency of the crystal it shares with the radio.
//
// Where they live is asked anew at each target movement. A target whose
// multi-RAT layer 1 keeps them hands them over by its own commands (version
// 3 with the second and third order coefficients). Otherwise the NVRAM
// record (when the database knows its LID) and the E-RF side (when the
// target says the co-clock goes through it) hold them: with both, a
// download writes the record first and then the E-RF side.
//
// Cal/INI: "GPS COClock Coefficients" with "C0", "C1" and, unless the
// co-clock lives on the E-RF side alone, "initU" and "lastU". Failures carry
// the library's text alone.
class CGpsCoClock : public ICalItemByNvramOperation {
    Q_OBJECT
public:
    static const char *const kSection;
    static const char *const kLid;

    // Where the coefficients go when layer 1 does not keep them (m_gpsMethod).
    enum EGpsMethod : uint32_t {
        GPS_METHOD_NVRAM_ONLY_NO_LID = 0, // neither: the NVRAM way, which fails
        GPS_METHOD_NVRAM = 1,
        GPS_METHOD_ERF = 2,
        GPS_METHOD_NVRAM_AND_ERF = 3,
    };

    using ICalItemByNvramOperation::ICalItemByNvramOperation;

    TAVO_RESULT DecomposeNvramData() override;
    TAVO_RESULT ComposeNvramData() override;
    TAVO_RESULT PrepareNvramBuffers() override;

    uint32_t UploadFromFlash() override;
    uint32_t DownloadToFlash() override;
    uint32_t ReadFromFile(TIniFile *file) override;
    uint32_t WriteToFile(TIniFile *file) override;

    bool IsSectionInFile(TIniFile *file) const;
    bool IsDataValid() const { return m_isDataValid; }
    // The way the last target movement took when layer 1 did not keep the data.
    uint32_t GetGpsMethod() const { return m_gpsMethod; }

protected:
    QString DescribeTavoResult(TAVO_RESULT result) const override { return LibraryResultText(result); }

private:
    bool IsByL1();
    bool IsV3();
    bool HasLid() const;
    // Decides m_gpsMethod for a target whose layer 1 does not keep the data.
    void ChooseMethod();
    // Whether "initU" and "lastU" belong to the data: not when the E-RF side alone holds them.
    bool HasUValues();
    // The four fields between the raw record and the coefficients, stopping
    // at the first failure; a record of another size than 24 bytes gives 1.
    TAVO_RESULT MoveFields(bool toRecord);
    TAVO_RESULT ReadL1();
    TAVO_RESULT WriteL1();
    TAVO_RESULT ReadErf();
    TAVO_RESULT WriteErf();

    bool m_isDataValid = false;
    // The coefficients: the first two and the last two the NVRAM record
    // holds, the middle two only layer 1 of version 3 targets.
    float C0 = 0;
    float C1 = 0;
    float coefficient2 = 0;
    float coefficient3 = 0;
    float initU = 0;
    float lastU = 0;
    uint32_t m_rawSize = 0;
    std::vector<uint8_t> m_rawBuffer;
    uint32_t m_gpsMethod = GPS_METHOD_NVRAM_ONLY_NO_LID;
    CMmrfCapability m_mmrfCapability;
    CLteRfCapability m_lteCapability;
};
