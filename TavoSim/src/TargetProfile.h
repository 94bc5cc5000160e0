#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QPointF>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

#include "FaultTable.h"
#include "NvramDatabase.h"
#include "TargetNvram.h"
#include "TavoCore.h"

namespace TavoSim {

/*
 * A target as a profile describes it, turned into what the target answers:
 * the raw words and records of its capability commands, and the set of
 * commands it offers. Records are built whole even for sections the profile
 * leaves out (all fields invalid then), so a command that an explicit
 * "commands.offered" turns on still answers a well-formed record.
 */
class TargetProfile
{
public:
    /* Reads a profile object. `fallbackName` names it when it has no "name".
     * On a problem gives nullopt and says why in *error, naming the key. */
    static std::optional<TargetProfile> fromJson(const QJsonObject &json, const QString &fallbackName,
                                                 QString *error);

    /* Names of the profiles built into the library, sorted. */
    static QStringList builtInNames();
    /* Reads a built-in profile by its name, else the JSON file at the path. */
    static std::optional<TargetProfile> load(const QString &nameOrPath, QString *error);

    /* Whether the target offers the command named. */
    bool offers(const QString &command) const { return offered.contains(command); }

    /* Capability words of the RF capability record, by offset. */
    static constexpr int kTxClpcModeOffset = 24;
    static constexpr int kNvramVersionOffset = 40;
    /* The value of the capability word at `offset` of the RF capability
     * record, when it is valid. */
    std::optional<quint32> rfCapabilityValue(int offset) const;
    /* Whether one of the target's bands lies in band group `group`. Groups:
     * 0 (bands a, b, c, f), 1 (a), 2 (b), 3 (d), 4 (e). */
    bool supportsBandGroup(int group) const;

    QString name;
    QString description;
    QJsonObject json; /* as loaded */

    /* Connection */
    int activeModemIndex = 0;
    int modemService = TAVO_MD_SRV_3GPP;

    /* Which sections the profile has; the catalog derives the offered commands from them. */
    bool hasOptionInfo = false;
    bool hasChipId = false;
    bool hasTdscdma = false;
    bool hasAgcEx = false;
    bool hasApcEx = false;
    bool hasRfCapability = false;
    bool hasUbin = false;
    bool hasMultiRat = false;
    bool hasGsmEx3 = false;
    bool hasGsmEx2 = false;
    bool hasGsmRfId = false;
    bool hasLte = false;
    bool hasFddRfId = false;
    bool hasTadcChannel = false;

    /* Answers */
    quint32 optionWord = 0;
    quint16 chipId = 0;
    quint16 rfChipId = 0;
    quint32 capabilityFlags = 0;
    quint32 bandFlags = 0;
    QByteArray rfCapabilityRecord = QByteArray(int(AST_RF_CAPABILITY_SIZE), '\0');
    QByteArray multiRatRecord = QByteArray(int(TAVO_MMRF_CAPABILITY_SIZE), '\0');
    QByteArray lteRecord = QByteArray(int(TAVO_ERF_CAPABILITY_SIZE), '\0');
    QByteArray gsmEx3Record = QByteArray(int(TAVO_MS_CAPABILITY_EX3_SIZE), '\0');
    QByteArray gsmEx2Record = QByteArray(int(TAVO_MS_CAPABILITY_EX2_SIZE), '\0');
    quint32 gsmRfId = 0;
    quint32 fddRfId = 0;
    quint8 tadcChannel = 0;
    /* The temperature sensor behind the TADC channel (see Thermal): the
     * ambient temperature in degrees Celsius, how fast the transmitter warms
     * the target (degrees per second) and how far at most, the sensor's ADC
     * over the temperature as (degrees, ADC) points by rising temperature,
     * the spread of a measure in ADC steps, and whether the sensor has
     * settled (it answers no measure until it has). */
    double ambientTemperature = 25;
    double heatingRate = 0.05;
    double maxTemperatureRise = 15;
    QVector<QPointF> adcTable = {{-30, 3300}, {0, 2750}, {25, 2200}, {60, 1450}, {100, 800}};
    int adcNoise = 2;
    bool sensorReady = true;
    /* The crystal behind the AFC test: the DAC at which it is on frequency,
     * its slope in Hz per DAC step at 900 MHz (it scales with the channel's
     * frequency) and the spread of a measured error around the line. */
    double crystalOnFrequencyDac = 4150;
    double crystalSlope = 2.5;
    double crystalNoise = 1.0;

    /* The NVRAM database of the software load, and the records the target's
     * NVRAM holds before anybody writes to it (which need not be those the
     * database describes). */
    NvramDatabase database;
    NvramRecords nvram;
    /* Which integrity record commands the target has: the Ex pair, the
     * plain pair. */
    bool hasIntegrityEx = true;
    bool hasIntegrity = true;
    /* Whether the target tells how many IMEI records it holds. */
    bool hasImeiRecordCount = false;

    /* The self calibration blocks: TD-SCDMA's (served by the first or the
     * second generation of commands, as the multi-RAT record's self-cal
     * word says) and the multi-RAT radio's (the seventh). Each lives in the
     * NVRAM as the record blockLid(). */
    struct SelfCalBlock
    {
        quint16 index = 0;
        quint16 size = 0;
        QString key;
        /* The length its data command reports, when that disagrees with its size. */
        std::optional<quint16> reportedLength;
    };
    QVector<SelfCalBlock> tdscdmaSelfCal;
    QVector<SelfCalBlock> mmrfSelfCal;
    static QString blockLid(bool mmrf, quint16 index);

    /* Faults armed whenever the profile is loaded or the target reset. */
    QVector<Fault> faults;

    /* The commands the two support queries answer 0 for. */
    QSet<QString> offered;
};

} // namespace TavoSim
