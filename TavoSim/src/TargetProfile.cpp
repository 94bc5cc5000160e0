#include "TargetProfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtEndian>

#include <cmath>
#include <limits>

#include "CommandCatalog.h"
#include "ProfileReader.h"

namespace TavoSim {

namespace {

/* Largest value a capability word can carry above its two flag bits. */
constexpr qint64 kWordValueMax = 0x3fffffff;
constexpr qint64 kU16Max = 0xffff;
constexpr qint64 kU32Max = 0xffffffffLL;
constexpr qint64 kIntMax = std::numeric_limits<int>::max();

/* Common form of a capability word: bit 0 valid, the value from bit 2 up. */
quint32 capabilityWord(std::optional<qint64> value)
{
    return value ? (quint32(*value) << 2) | 1u : 0u;
}

quint32 bit(bool set, int index) { return set ? 1u << index : 0u; }

template <typename T>
void put(QByteArray &record, int offset, T value)
{
    char bytes[sizeof(T)];
    qToLittleEndian<T>(value, bytes);
    record.replace(offset, int(sizeof(T)), bytes, int(sizeof(T)));
}

void put32(QByteArray &record, int offset, quint32 value) { put<quint32>(record, offset, value); }
void put16(QByteArray &record, int offset, quint16 value) { put<quint16>(record, offset, value); }

/* A list of names turned into a mask by a table of (name, bits). */
struct NamedBits
{
    const char *name;
    quint32 bits;
};

template <size_t N>
std::optional<quint32> readMask(ProfileReader &reader, const char *key, const NamedBits (&table)[N],
                                const char *what)
{
    const std::optional<QStringList> names = reader.strings(key);
    if (!names)
        return std::nullopt;
    quint32 mask = 0;
    for (int i = 0; i < names->size(); ++i) {
        bool known = false;
        for (const NamedBits &entry : table) {
            if (names->at(i) == QLatin1String(entry.name)) {
                mask |= entry.bits;
                known = true;
            }
        }
        if (!known) {
            QStringList expected;
            for (const NamedBits &entry : table)
                expected << QLatin1String(entry.name);
            reader.fail(QStringLiteral("%1[%2]").arg(QLatin1String(key)).arg(i),
                        QStringLiteral("unknown %1 \"%2\" (expected one of %3)")
                            .arg(QLatin1String(what), names->at(i), expected.join(QStringLiteral(", "))));
            return std::nullopt;
        }
    }
    return mask;
}

/* Bits of the RATs in a world-mode or self-cal mask. */
const NamedBits kRats[] = {
    {"gsm", 1u << 0},    {"tdscdma", 1u << 1}, {"c2k", 1u << 2},          {"fdd", 1u << 3},
    {"ltefdd", 1u << 4}, {"ltetdd", 1u << 5},  {"lte", 1u << 4 | 1u << 5},
};

/* Bits of the TD-SCDMA bands in bandFlags. */
const NamedBits kBands[] = {
    {"a", 1u << 0}, {"b", 1u << 1}, {"c", 1u << 2}, {"d", 1u << 3}, {"f", 1u << 4}, {"e", 1u << 5},
};

void readModem(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> modem = top.object("modem");
    if (!modem)
        return;
    modem->allowKeys({"activeIndex", "service"});
    p.activeModemIndex = int(modem->integer("activeIndex", 0, 255).value_or(0));
    if (modem->isAbsent("service"))
        return;
    const QJsonValue service = modem->value("service");
    static const struct
    {
        const char *name;
        int kind;
    } kinds[] = {{"none", TAVO_MD_SRV_NONE},
                 {"3gpp", TAVO_MD_SRV_3GPP},
                 {"irat", TAVO_MD_SRV_IRAT},
                 {"c2k", TAVO_MD_SRV_C2K}};
    if (service.isDouble()) {
        p.modemService = int(modem->integer("service", 0, kIntMax).value_or(TAVO_MD_SRV_3GPP));
        return;
    }
    for (const auto &kind : kinds) {
        if (service.toString() == QLatin1String(kind.name)) {
            p.modemService = kind.kind;
            return;
        }
    }
    modem->fail(QStringLiteral("service"),
                QStringLiteral("expected one of \"none\", \"3gpp\", \"irat\", \"c2k\" or a number"));
}

void readOptionInfo(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> option = top.object("optionInfo");
    if (!option)
        return;
    option->allowKeys({"tdscdmaCapability"});
    p.hasOptionInfo = true;
    p.optionWord = option->boolean("tdscdmaCapability") ? TAVO_OPTION_TDSCDMA_CAPABILITY : 0u;
}

void readChipId(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> chip = top.object("chipId");
    if (!chip)
        return;
    chip->allowKeys({"chip", "rf"});
    p.hasChipId = true;
    p.chipId = quint16(chip->integer("chip", 0, kU16Max).value_or(0));
    p.rfChipId = quint16(chip->integer("rf", 0, kU16Max).value_or(0));
}

void readRfCapability(ProfileReader &tdscdma, TargetProfile &p)
{
    std::optional<ProfileReader> rf = tdscdma.object("rfCapability");
    if (!rf)
        return;
    rf->allowKeys({"txClpcMode", "ubin", "nvramVersion"});
    p.hasRfCapability = true;
    p.capabilityFlags |= 1u << 4;
    p.hasUbin = rf->boolean("ubin");
    put32(p.rfCapabilityRecord, TargetProfile::kTxClpcModeOffset,
          capabilityWord(rf->integer("txClpcMode", 0, kWordValueMax)));
    put32(p.rfCapabilityRecord, 36, bit(p.hasUbin, 0));
    put32(p.rfCapabilityRecord, TargetProfile::kNvramVersionOffset,
          capabilityWord(rf->integer("nvramVersion", 0, kWordValueMax)));
}

void readTdscdma(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> td = top.object("tdscdma");
    if (!td)
        return;
    td->allowKeys({"agcEx", "apcEx", "tadcByCalCommand", "dspPowerInQ3", "rxExtendMode", "pathlossV3", "bands",
                   "rfCapability"});
    p.hasTdscdma = true;
    p.hasAgcEx = td->boolean("agcEx");
    p.hasApcEx = td->boolean("apcEx");
    p.capabilityFlags |= bit(td->boolean("tadcByCalCommand"), 3) | bit(td->boolean("dspPowerInQ3"), 6) |
                         bit(td->boolean("rxExtendMode"), 8) | bit(td->boolean("pathlossV3"), 9);
    p.bandFlags = readMask(*td, "bands", kBands, "band").value_or(0);
    readRfCapability(*td, p);
}

void readMultiRat(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> mr = top.object("multiRat");
    if (!mr)
        return;
    mr->allowKeys({"worldMode", "selfCal", "selfCalV2", "tadcByL1", "rficCount", "afcByL1", "afcVersion", "dcxoLpm",
                   "gpsCoClockByL1", "gpsCoClockVersion", "mmrfSelfCal"});
    p.hasMultiRat = true;
    QByteArray &r = p.multiRatRecord;

    const std::optional<quint32> selfCal = readMask(*mr, "selfCal", kRats, "RAT");
    if (mr->boolean("selfCalV2"))
        put32(r, 24, 1u | selfCal.value_or(0) << 2);
    else
        put32(r, 20, capabilityWord(selfCal));
    put32(r, 44, capabilityWord(readMask(*mr, "worldMode", kRats, "RAT")));
    put32(r, 52, bit(mr->boolean("tadcByL1"), 0) | quint32(mr->integer("rficCount", 0, 255).value_or(0)) << 2);
    put32(r, 68, bit(mr->boolean("afcByL1"), 0) | quint32(mr->integer("afcVersion", 0, 255).value_or(0)) << 2);
    put32(r, 100, bit(mr->boolean("dcxoLpm"), 0));
    put32(r, 108, bit(mr->boolean("gpsCoClockByL1"), 0));
    put32(r, 112, capabilityWord(mr->integer("gpsCoClockVersion", 0, kWordValueMax)));
    put32(r, 124, bit(mr->boolean("mmrfSelfCal"), 0));
}

void readGsm(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> gsm = top.object("gsm");
    if (!gsm)
        return;
    gsm->allowKeys({"worldMode", "ex2", "rfId"});

    /* Absent: no Ex3 command. Null: Ex3 answers an invalid world mode. */
    p.hasGsmEx3 = gsm->contains("worldMode");
    put16(p.gsmEx3Record, 72, quint16(capabilityWord(readMask(*gsm, "worldMode", kRats, "RAT"))));

    if (std::optional<ProfileReader> ex2 = gsm->object("ex2")) {
        ex2->allowKeys({"tadcMeasureSum", "tadcSingleRead"});
        p.hasGsmEx2 = true;
        put32(p.gsmEx2Record, 0, bit(ex2->boolean("tadcMeasureSum"), 14) | bit(ex2->boolean("tadcSingleRead"), 15));
    }

    const std::optional<qint64> rfId = gsm->integer("rfId", 0, kU32Max);
    p.hasGsmRfId = rfId.has_value();
    p.gsmRfId = quint32(rfId.value_or(0));
}

void readLte(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> lte = top.object("lte");
    if (!lte)
        return;
    lte->allowKeys({"rfId", "gpsCoClockByErf"});
    p.hasLte = true;
    put32(p.lteRecord, 8, quint32(lte->integer("rfId", 0, kU32Max).value_or(0)));
    put32(p.lteRecord, 112, bit(lte->boolean("gpsCoClockByErf"), 0));
}

void readFdd(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> fdd = top.object("fdd");
    if (!fdd)
        return;
    fdd->allowKeys({"rfId"});
    const std::optional<qint64> rfId = fdd->integer("rfId", 0, kU32Max);
    p.hasFddRfId = rfId.has_value();
    p.fddRfId = quint32(rfId.value_or(0));
}

/* "tadc.adcTable": [degrees, ADC] points by strictly rising temperature. */
std::optional<QVector<QPointF>> readAdcTable(ProfileReader &tadc, const QJsonArray &table)
{
    if (table.size() < 2) {
        tadc.fail(QStringLiteral("adcTable"), QStringLiteral("expected at least 2 points"));
        return std::nullopt;
    }
    QVector<QPointF> points;
    for (int i = 0; i < table.size(); ++i) {
        const QJsonArray point = table.at(i).toArray();
        const double adc = point.at(1).toDouble(-1);
        const QString key = QStringLiteral("adcTable[%1]").arg(i);
        if (point.size() != 2 || !point.at(0).isDouble() || std::floor(adc) != adc || adc < 0 || adc > kU16Max) {
            tadc.fail(key, QStringLiteral("expected [degrees, ADC] with an integer ADC from 0 to 65535"));
            return std::nullopt;
        }
        if (!points.isEmpty() && point.at(0).toDouble() <= points.last().x()) {
            tadc.fail(key, QStringLiteral("temperatures must rise from point to point"));
            return std::nullopt;
        }
        points << QPointF(point.at(0).toDouble(), adc);
    }
    return points;
}

void readTadc(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> tadc = top.object("tadc");
    if (!tadc)
        return;
    tadc->allowKeys({"channel", "temperature", "heating", "maxRise", "adcTable", "noise", "sensorReady"});
    const std::optional<qint64> channel = tadc->integer("channel", 0, 255);
    p.hasTadcChannel = channel.has_value();
    p.tadcChannel = quint8(channel.value_or(0));
    p.ambientTemperature = tadc->real("temperature", -100, 200).value_or(p.ambientTemperature);
    p.heatingRate = tadc->real("heating", 0, 1000).value_or(p.heatingRate);
    p.maxTemperatureRise = tadc->real("maxRise", 0, 200).value_or(p.maxTemperatureRise);
    p.adcNoise = int(tadc->integer("noise", 0, kU16Max).value_or(p.adcNoise));
    p.sensorReady = tadc->boolean("sensorReady", p.sensorReady);
    if (const std::optional<QJsonArray> table = tadc->array("adcTable"))
        p.adcTable = readAdcTable(*tadc, *table).value_or(p.adcTable);
}

void readCrystal(ProfileReader &top, TargetProfile &p)
{
    std::optional<ProfileReader> crystal = top.object("crystal");
    if (!crystal)
        return;
    crystal->allowKeys({"onFrequencyDac", "slope", "noise"});
    p.crystalOnFrequencyDac = crystal->real("onFrequencyDac", 0, 65535).value_or(p.crystalOnFrequencyDac);
    p.crystalSlope = crystal->real("slope", -1000, 1000).value_or(p.crystalSlope);
    p.crystalNoise = crystal->real("noise", 0, 1000).value_or(p.crystalNoise);
}

void readDatabase(ProfileReader &top, TargetProfile &p)
{
    if (std::optional<ProfileReader> database = top.object("database"))
        p.database.read(*database);
}

/* After readDatabase: the target holds the records the database describes,
 * unless "nvram.target" says otherwise. */
void readNvram(ProfileReader &top, TargetProfile &p)
{
    TargetNvram target(p.database);
    std::optional<ProfileReader> nvram = top.object("nvram");
    if (!nvram) {
        p.nvram = target.initialRecords(nullptr);
        return;
    }
    nvram->allowKeys({"integrity", "target", "records", "imeiRecordCount"});
    p.hasImeiRecordCount = nvram->boolean("imeiRecordCount");
    const QString integrity = nvram->string("integrity", QStringLiteral("ex"));
    p.hasIntegrityEx = integrity == QLatin1String("ex");
    p.hasIntegrity = integrity != QLatin1String("none");
    if (!p.hasIntegrityEx && integrity != QLatin1String("plain") && p.hasIntegrity)
        nvram->fail(QStringLiteral("integrity"), QStringLiteral("expected one of \"ex\", \"plain\", \"none\""));
    if (std::optional<ProfileReader> lids = nvram->object("target"))
        target.read(*lids);
    std::optional<ProfileReader> records = nvram->object("records");
    p.nvram = target.initialRecords(records ? &*records : nullptr);
}

/* A self calibration block's bytes before anybody writes: a pattern of its
 * own, so that blocks never equal one another. */
QByteArray selfCalPattern(quint16 index, quint16 size, bool mmrf)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = char((i * 7 + index * 13 + (mmrf ? 101 : 0)) & 0xff);
    return bytes;
}

/* "selfCal.tdscdma" / "selfCal.mmrf": arrays of {"index", "key", "size"}.
 * Absent: the blocks of the generation the target has (see the README). */
QVector<TargetProfile::SelfCalBlock> readBlocks(ProfileReader &selfCal, const char *key, int maxBlocks, int maxSize,
                                                const QVector<TargetProfile::SelfCalBlock> &fallback)
{
    if (selfCal.isAbsent(key))
        return fallback;
    QVector<TargetProfile::SelfCalBlock> blocks;
    for (ProfileReader &entry : selfCal.objects(key)) {
        entry.allowKeys({"index", "key", "size", "reportedLength"});
        TargetProfile::SelfCalBlock block;
        block.index = quint16(entry.integer("index", 0, 65535).value_or(blocks.size()));
        block.size = quint16(entry.integer("size", 1, maxSize).value_or(1));
        block.key = entry.string("key");
        if (const std::optional<qint64> length = entry.integer("reportedLength", 0, maxSize))
            block.reportedLength = quint16(*length);
        if (block.key.isEmpty() || block.key.size() >= int(TAVO_SELFCAL_KEY_SIZE))
            entry.fail(QStringLiteral("key"), QStringLiteral("1 to 63 characters"));
        blocks << block;
    }
    if (blocks.size() > maxBlocks)
        selfCal.fail(QLatin1String(key), QStringLiteral("at most %1 blocks").arg(maxBlocks));
    return blocks;
}

QVector<TargetProfile::SelfCalBlock> defaultBlocks(const char *prefix, const QVector<quint16> &indices,
                                                   const QVector<quint16> &sizes)
{
    QVector<TargetProfile::SelfCalBlock> blocks;
    for (int i = 0; i < indices.size(); ++i)
        blocks << TargetProfile::SelfCalBlock{indices[i], sizes[i],
                                              QStringLiteral("%1_%2").arg(QLatin1String(prefix)).arg(i), std::nullopt};
    return blocks;
}

void readSelfCal(ProfileReader &top, TargetProfile &p)
{
    const bool v2 = (qFromLittleEndian<quint32>(p.multiRatRecord.constData() + 24) & 1u) != 0;
    const QVector<TargetProfile::SelfCalBlock> tdscdma =
        v2 ? defaultBlocks("TDS_SELFCAL_V2", {3, 7, 12}, {30000, 30000, 30000})
           : defaultBlocks("TDS_SELFCAL", {0, 1, 2}, {4096, 12288, 16384});
    const QVector<TargetProfile::SelfCalBlock> mmrf =
        defaultBlocks("MMRF_SELFCAL", {10, 20, 30}, {2048, 40000, 8192});
    std::optional<ProfileReader> selfCal = top.object("selfCal");
    if (selfCal) {
        selfCal->allowKeys({"tdscdma", "mmrf"});
        p.tdscdmaSelfCal = readBlocks(*selfCal, "tdscdma", v2 ? TAVO_SELFCAL_V2_MAX_LIDS : TAVO_SELFCAL_V1_MAX_LIDS,
                                      v2 ? 65535 : TAVO_SELFCAL_V1_MAX_DATA, tdscdma);
        p.mmrfSelfCal = readBlocks(*selfCal, "mmrf", TAVO_SELFCAL_V7_MAX_LIDS, TAVO_SELFCAL_V7_MAX_DATA, mmrf);
    } else {
        p.tdscdmaSelfCal = tdscdma;
        p.mmrfSelfCal = mmrf;
    }
    for (const TargetProfile::SelfCalBlock &block : p.tdscdmaSelfCal)
        p.nvram.insert(TargetProfile::blockLid(false, block.index), {selfCalPattern(block.index, block.size, false)});
    for (const TargetProfile::SelfCalBlock &block : p.mmrfSelfCal)
        p.nvram.insert(TargetProfile::blockLid(true, block.index), {selfCalPattern(block.index, block.size, true)});
}

/* Names of "commands.offered"/"withheld": what the two support queries take. */
QStringList readCommandNames(ProfileReader &commands, const char *key)
{
    const QStringList names = commands.strings(key).value_or(QStringList());
    for (int i = 0; i < names.size(); ++i) {
        if (!names[i].startsWith(QLatin1String("TAVO_")) && !names[i].startsWith(QLatin1String("AST_"))) {
            commands.fail(QStringLiteral("%1[%2]").arg(QLatin1String(key)).arg(i),
                          QStringLiteral("\"%1\" is not a command name (TAVO_... or AST_...)").arg(names[i]));
            return {};
        }
    }
    return names;
}

/* A fault's "args": input name -> the string or integer it must have, as
 * the call log writes it ("name=value"). */
QStringList readFaultArgs(ProfileReader &fault)
{
    std::optional<ProfileReader> args = fault.object("args");
    if (!args)
        return {};
    QStringList selector;
    for (const QString &name : args->keys()) {
        const QByteArray key = name.toLatin1();
        if (args->isAbsent(key.constData()))
            continue;
        if (name.isEmpty() || name.contains(QLatin1Char('='))) {
            args->fail(name, QStringLiteral("not the name of an input"));
            return {};
        }
        const QJsonValue value = args->value(key.constData());
        if (value.isString()) {
            selector << name + QLatin1Char('=') + value.toString();
            continue;
        }
        if (!value.isDouble()) {
            args->fail(name, QStringLiteral("expected a string or an integer"));
            return {};
        }
        const std::optional<qint64> number = args->integer(key.constData(), -kU32Max, kU32Max);
        if (!number)
            return {};
        selector << name + QLatin1Char('=') + QString::number(*number);
    }
    return selector;
}

void readFaults(ProfileReader &top, TargetProfile &p)
{
    for (ProfileReader &fault : top.objects("faults")) {
        fault.allowKeys({"call", "args", "result", "count", "skip"});
        Fault armed;
        armed.call = fault.string("call");
        if (armed.call.isEmpty())
            fault.fail(QStringLiteral("call"), QStringLiteral("expected the name of a call, or \"*\""));
        armed.args = readFaultArgs(fault);
        armed.result = TAVO_RESULT(fault.integer("result", std::numeric_limits<TAVO_RESULT>::min(),
                                                std::numeric_limits<TAVO_RESULT>::max())
                                      .value_or(TAVO_ERR_FAILED));
        armed.count = int(fault.integer("count", -1, kIntMax).value_or(-1));
        armed.skip = int(fault.integer("skip", 0, kIntMax).value_or(0));
        p.faults << armed;
    }
}

const char kBuiltInFolder[] = ":/TavoSim/profiles/";

} // namespace

std::optional<quint32> TargetProfile::rfCapabilityValue(int offset) const
{
    const quint32 word = qFromLittleEndian<quint32>(rfCapabilityRecord.constData() + offset);
    return word & 1u ? std::optional<quint32>(word >> 2) : std::nullopt;
}

bool TargetProfile::supportsBandGroup(int group) const
{
    /* bandFlags bits: a 0, b 1, c 2, d 3, f 4, e 5 */
    static const quint32 bandsOfGroup[] = {1u << 0 | 1u << 1 | 1u << 2 | 1u << 4, 1u << 0, 1u << 1, 1u << 3, 1u << 5};
    return group >= 0 && group < 5 && (bandFlags & bandsOfGroup[group]) != 0;
}

QStringList TargetProfile::builtInNames()
{
    QStringList names;
    const QDir folder{QLatin1String(kBuiltInFolder)};
    for (const QFileInfo &file : folder.entryInfoList({QStringLiteral("*.json")}, QDir::Files))
        names << file.completeBaseName();
    names.sort();
    return names;
}

std::optional<TargetProfile> TargetProfile::load(const QString &nameOrPath, QString *error)
{
    auto fail = [&](const QString &problem) {
        if (error)
            *error = nameOrPath + QStringLiteral(": ") + problem;
        return std::nullopt;
    };

    QString path = nameOrPath;
    QString fallbackName = QFileInfo(nameOrPath).completeBaseName();
    if (builtInNames().contains(nameOrPath)) {
        path = QLatin1String(kBuiltInFolder) + nameOrPath + QStringLiteral(".json");
        fallbackName = nameOrPath;
    }

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("neither a built-in profile nor a readable file (%1)").arg(file.errorString()));
    QJsonParseError parse;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &parse);
    if (parse.error != QJsonParseError::NoError)
        return fail(QStringLiteral("not JSON: %1 at offset %2").arg(parse.errorString()).arg(parse.offset));
    if (!document.isObject())
        return fail(QStringLiteral("a profile must be a JSON object"));

    QString problem;
    std::optional<TargetProfile> profile = fromJson(document.object(), fallbackName, &problem);
    if (!profile)
        return fail(problem);
    return profile;
}

QString TargetProfile::blockLid(bool mmrf, quint16 index)
{
    return (mmrf ? QStringLiteral("MMRF_SELFCAL_") : QStringLiteral("TDS_SELFCAL_")) + QString::number(index);
}

std::optional<TargetProfile> TargetProfile::fromJson(const QJsonObject &json, const QString &fallbackName,
                                                     QString *error)
{
    ProfileReader top(json);
    top.allowKeys({"name", "description", "modem", "optionInfo", "chipId", "tdscdma", "multiRat", "gsm", "lte", "fdd",
                   "tadc", "crystal", "database", "nvram", "selfCal", "commands", "faults"});

    TargetProfile p;
    p.json = json;
    p.name = top.string("name", fallbackName);
    if (p.name.isEmpty())
        top.fail(QStringLiteral("name"), QStringLiteral("must not be empty"));
    p.description = top.string("description");

    readModem(top, p);
    readOptionInfo(top, p);
    readChipId(top, p);
    readTdscdma(top, p);
    readMultiRat(top, p);
    readGsm(top, p);
    readLte(top, p);
    readFdd(top, p);
    readTadc(top, p);
    readCrystal(top, p);
    readDatabase(top, p);
    readNvram(top, p);
    readSelfCal(top, p);
    readFaults(top, p);

    p.offered = CommandCatalog::offeredBy(p);
    if (std::optional<ProfileReader> commands = top.object("commands")) {
        commands->allowKeys({"offered", "withheld"});
        for (const QString &name : readCommandNames(*commands, "offered"))
            p.offered.insert(name);
        for (const QString &name : readCommandNames(*commands, "withheld"))
            p.offered.remove(name);
    }

    if (!top.ok()) {
        if (error)
            *error = top.error();
        return std::nullopt;
    }
    return p;
}

} // namespace TavoSim
