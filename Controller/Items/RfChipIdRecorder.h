#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

#include "Capability/FddRfCapability.h"
#include "Capability/GsmRfCapability.h"
#include "Capability/LteRfCapability.h"
#include "Capability/TdscdmaCapability.h"

class TIniFile;

// Writes the target's RF chip, by name, under the key "RF Chip ID" of a
// Cal/INI section, so that a file tells which chip its data were calibrated
// on. Each write saves the file. Without a file nothing happens.
class CRfChipIdRecorder {
public:
    static constexpr const char *kRfChipIdKey = "RF Chip ID";

    void WriteTdscdmaRfChipId(TIniFile *file, const std::string &section);
    void WriteGsmRfChipId(TIniFile *file, const std::string &section);
    void WriteFddRfChipId(TIniFile *file, const std::string &section);
    void WriteLteRfChipId(TIniFile *file, const std::string &section);

    // Whether the data of `section` may be taken onto this target; false
    // only without a file. The recorded chip is not compared: a section does
    // not tell which radio it belongs to, and data calibrated on another
    // revision of a chip must stay importable. `errorText` is emptied.
    bool CheckRfChipId(TIniFile *file, const std::string &section, QString &errorText);

    // The checks with which every item's file read begins: 50 without a
    // file, 51 when none of `sections` stands in it, 200 when CheckRfChipId
    // refuses one of them (its text in `errorText`), else 0.
    uint32_t CheckFileSections(TIniFile *file, const std::vector<std::string> &sections, QString &errorText);

    // The name of a TD-SCDMA RF chip id: "Unknown" above 32, empty for an id
    // that names no chip.
    static std::string TdscdmaRfChipName(uint32_t rfChipId);

private:
    static void Write(TIniFile *file, const std::string &section, const std::string &name);

    CTdscdmaCapability m_tdscdmaCapability;
    CGsmRfCapability m_gsmCapability;
    CFddRfCapability m_fddCapability;
    CLteRfCapability m_lteCapability;
};
