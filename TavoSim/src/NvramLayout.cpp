#include "NvramLayout.h"

#include <QtEndian>

#include <cstddef>
#include <cstring>

namespace TavoSim::NvramLayout {

static_assert(sizeof(TavoTxDacRecord) == 228, "TX DAC record");
static_assert(sizeof(TavoTxClpcRecord) == 36, "TX CLPC record");
static_assert(sizeof(TavoPathlossRecord) == 168, "path loss record");
static_assert(sizeof(TavoAfcRecord) == 8, "AFC record");
static_assert(sizeof(TavoImeiRecord) == 18, "IMEI record");

namespace {

constexpr int kNone = -1;

Field F(const char *name, Type type, int count, int decodedOffset = kNone)
{
    return Field{name, type, count, decodedOffset, false};
}

const std::vector<Kind> &table()
{
    static const std::vector<Kind> kinds = {
        {"TxDac",
         {"NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND34_LID",
          "NVRAM_EF_AST_TL1_TXDAC_BAND36_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND38_LID",
          "NVRAM_EF_AST_TL1_TXDAC_BAND40_LID"},
         {F("hysteresisStart0", Type::U16, 1, offsetof(TavoTxDacRecord, hysteresisStart0)),
          F("hysteresisEnd0", Type::U16, 1, offsetof(TavoTxDacRecord, hysteresisEnd0)),
          F("hysteresisStart1", Type::U16, 1, offsetof(TavoTxDacRecord, hysteresisStart1)),
          F("hysteresisEnd1", Type::U16, 1, offsetof(TavoTxDacRecord, hysteresisEnd1)),
          F("paVgaDac", Type::U16, 12, offsetof(TavoTxDacRecord, paVgaDac)),
          F("paPower", Type::S16, 12, offsetof(TavoTxDacRecord, paPower)),
          F("subbandMaxUarfcn", Type::U16, 15, offsetof(TavoTxDacRecord, subbandMaxUarfcn)),
          F("subbandPowerComp", Type::S16, 45, offsetof(TavoTxDacRecord, subbandPowerComp)),
          F("tempPowerComp", Type::S16, 24, offsetof(TavoTxDacRecord, tempPowerComp)),
          /* max power, then max VGA DAC (or UPA offset) */
          Field{"maxPaPower", Type::S16, 2, offsetof(TavoTxDacRecord, maxPower), true}},
         1, sizeof(TavoTxDacRecord)},
        {"TxClpc",
         {"NVRAM_EF_AST_TL1_TXCLPC_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_TXCLPC_BAND34_LID",
          "NVRAM_EF_AST_TL1_TXCLPC_BAND36_LID", "NVRAM_EF_AST_TL1_TXCLPC_BAND38_LID",
          "NVRAM_EF_AST_TL1_TXCLPC_BAND40_LID"},
         {F("pdSubbandComp", Type::S16, 15, offsetof(TavoTxClpcRecord, pdSubbandComp)),
          F("pdPoint", Type::S16, 3, offsetof(TavoTxClpcRecord, pdPoint))},
         1, sizeof(TavoTxClpcRecord)},
        {"Pathloss",
         {"NVRAM_EF_AST_TL1_PATHLOSS_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_PATHLOSS_BAND34_LID",
          "NVRAM_EF_AST_TL1_PATHLOSS_BAND36_LID", "NVRAM_EF_AST_TL1_PATHLOSS_BAND38_LID",
          "NVRAM_EF_AST_TL1_PATHLOSS_BAND40_LID"},
         {F("subbandMaxUarfcn", Type::U16, 15, offsetof(TavoPathlossRecord, subbandMaxUarfcn)),
          F("tempLoss", Type::S16, 24, offsetof(TavoPathlossRecord, tempLoss)),
          F("subbandLoss", Type::S16, 45, offsetof(TavoPathlossRecord, subbandLoss))},
         1, sizeof(TavoPathlossRecord)},
        {"Afc",
         {"NVRAM_EF_AST_TL1_AFC_DATA_LID"},
         {F("slopeInverse", Type::U16, 1, offsetof(TavoAfcRecord, slopeInverse)),
          F("initAfcDac", Type::U16, 1, offsetof(TavoAfcRecord, initAfcDac))},
         1, sizeof(TavoAfcRecord)},
        {"Cap", {"NVRAM_EF_AST_TL1_CAP_DATA_LID"}, {F("capId", Type::U32, 1)}, 1, 0},
        {"Tadc", {"NVRAM_EF_AST_TL1_TEMP_DAC_LID"}, {F("points", Type::U16, 1), F("adc", Type::U16, 8, 0)}, 1, 8 * sizeof(uint16_t)},
        {"Imei",
         {"NVRAM_EF_IMEI_IMEISV_LID"},
         {F("imei", Type::U8, 16, offsetof(TavoImeiRecord, imei)), F("svn", Type::U8, 2, offsetof(TavoImeiRecord, svn)),
          F("checksum", Type::U16, 1)},
         2, sizeof(TavoImeiRecord)},
        {"Barcode", {"NVRAM_EF_BARCODE_NUM_LID"}, {F("nvram_ef_barcode_num", Type::U8, 63)}, 1, 0},
        {"GpsCoClock",
         {"NVRAM_EF_GPS_CO_CLOCK_DATA_LID"},
         {F("C0", Type::F32, 1), F("C1", Type::F32, 1), F("initU", Type::F32, 1), F("lastU", Type::F32, 1),
          F(nullptr, Type::U8, 8)},
         1, 0},
        {"DcxoLpm", {"NVRAM_EF_L1_CLOAD_FREQ_OFFSET_LID"}, {F("cload_freq_offset", Type::S32, 1)}, 1, 0},

        /* Layer 1's TPC data behind the TX data commands: the TX DAC record as
         * the commands carry it (TavoTxDacRecord, then the wanted power offset
         * and the PA middle power offset), and the TX CLPC record. */
        {"TxDacStore",
         {"TL1_TPC_TXDAC_BAND0", "TL1_TPC_TXDAC_BAND1", "TL1_TPC_TXDAC_BAND2", "TL1_TPC_TXDAC_BAND3",
          "TL1_TPC_TXDAC_BAND4"},
         {F("paVgaDac", Type::U16, 12), F("paPower", Type::S16, 12), F("subbandMaxUarfcn", Type::U16, 15),
          F("subbandPowerComp", Type::S16, 45), F("tempPowerComp", Type::S16, 24), F("hysteresisStart0", Type::U16, 1),
          F("hysteresisEnd0", Type::U16, 1), F("hysteresisStart1", Type::U16, 1), F("hysteresisEnd1", Type::U16, 1),
          F("maxPaPower", Type::S16, 2), F("wantedPowerOffset", Type::S16, 1), F("paMidPowerOffset", Type::S16, 1)},
         1, 0, "TxDac"},
        {"TxClpcStore",
         {"TL1_TPC_TXCLPC_BAND0", "TL1_TPC_TXCLPC_BAND1", "TL1_TPC_TXCLPC_BAND2", "TL1_TPC_TXCLPC_BAND3",
          "TL1_TPC_TXCLPC_BAND4"},
         {F("pdPoint", Type::S16, 3), F("pdSubbandComp", Type::S16, 15)},
         1, 0, "TxClpc"},

        /* Layer 1's RX path loss behind the path loss commands, in their
         * record layout: sub-band losses [gain mode][15], then temperature
         * losses [gain mode][8]. The first three gain modes are those of the
         * NVRAM record (subbandLoss, tempLoss); the rows beyond them, the
         * extended modes, only layer 1 keeps (subbandLossExt, tempLossExt). */
        {"PathlossStore",
         {"TL1_PATHLOSS_BAND0", "TL1_PATHLOSS_BAND1", "TL1_PATHLOSS_BAND2", "TL1_PATHLOSS_BAND3",
          "TL1_PATHLOSS_BAND4"},
         {F("subbandMaxUarfcn", Type::U16, 15), F("subbandLoss", Type::S16, 45), F("subbandLossExt", Type::S16, 15),
          F("tempLoss", Type::S16, 24), F("tempLossExt", Type::S16, 8)},
         1, 0, "Pathloss"},
        {"Pathloss8Store",
         {"TL1_PATHLOSS8_BAND0", "TL1_PATHLOSS8_BAND1", "TL1_PATHLOSS8_BAND2", "TL1_PATHLOSS8_BAND3",
          "TL1_PATHLOSS8_BAND4"},
         {F("subbandMaxUarfcn", Type::U16, 15), F("subbandLoss", Type::S16, 45), F("subbandLossExt", Type::S16, 75),
          F("tempLoss", Type::S16, 24), F("tempLossExt", Type::S16, 40)},
         1, 0, "Pathloss"},

        /* Layer 1's own data behind the multi-RAT data commands, kept by no
         * NVRAM record (each names its own kind as what it holds): the AFC
         * data, the GPS co-clock coefficients in fixed point, the RF chips'
         * temperature ADC tables (a row of 8 per chip); and the E-RF side's
         * GPS co-clock. */
        {"MmAfcStore",
         {"MMRF_AFC"},
         {F("initAfcDac", Type::U16, 1), F("aac", Type::S16, 1), F("slope", Type::S32, 1), F("capId", Type::U32, 1),
          F("cload", Type::U32, 1)},
         1, 0, "MmAfcStore"},
        {"MmGpsStore",
         {"MMRF_GPS_CO_CLOCK"},
         {F("c0", Type::S32, 1), F("c1", Type::S32, 1), F("coefficient2", Type::S32, 1),
          F("coefficient3", Type::S32, 1)},
         1, 0, "MmGpsStore"},
        {"ErfGpsStore", {"ERF_GPS_CO_CLOCK"}, {F("c0", Type::F32, 1), F("c1", Type::F32, 1)}, 1, 0, "ErfGpsStore"},
        {"MmTadcStore", {"MMRF_TADC"}, {F("table", Type::U16, 64)}, 1, 0, "MmTadcStore"},
    };
    return kinds;
}

} // namespace

int sizeOf(Type type)
{
    switch (type) {
    case Type::U8:
        return 1;
    case Type::U16:
    case Type::S16:
        return 2;
    case Type::U32:
    case Type::S32:
    case Type::F32:
        return 4;
    }
    return 0;
}

int Kind::fullSize() const
{
    int size = 0;
    for (const Field &f : fields)
        size += f.size();
    return size;
}

int Kind::minimumSize() const
{
    int size = 0;
    for (const Field &f : fields)
        size += f.optional ? 0 : f.size();
    return size;
}

const Field *Kind::field(const QString &name, int *offset) const
{
    int at = 0;
    for (const Field &f : fields) {
        if (f.name && name == QLatin1String(f.name)) {
            *offset = at;
            return &f;
        }
        at += f.size();
    }
    return nullptr;
}

const std::vector<Kind> &kinds()
{
    return table();
}

const Kind *kindOfLid(const QString &lid)
{
    for (const Kind &kind : table()) {
        for (const char *known : kind.lids) {
            if (lid == QLatin1String(known))
                return &kind;
        }
    }
    return nullptr;
}

const Kind &kind(const char *name)
{
    for (const Kind &kind : table()) {
        if (qstrcmp(kind.name, name) == 0)
            return kind;
    }
    Q_UNREACHABLE();
}

bool isStore(const QString &lid)
{
    const Kind *kind = kindOfLid(lid);
    return kind && kind->storeOf;
}

void elementToRaw(Type type, const void *host, uchar *raw)
{
    switch (sizeOf(type)) {
    case 1:
        std::memcpy(raw, host, 1);
        break;
    case 2: {
        quint16 v;
        std::memcpy(&v, host, 2);
        qToLittleEndian(v, raw);
        break;
    }
    default: {
        quint32 v;
        std::memcpy(&v, host, 4);
        qToLittleEndian(v, raw);
        break;
    }
    }
}

void elementFromRaw(Type type, const uchar *raw, void *host)
{
    switch (sizeOf(type)) {
    case 1:
        std::memcpy(host, raw, 1);
        break;
    case 2: {
        const quint16 v = qFromLittleEndian<quint16>(raw);
        std::memcpy(host, &v, 2);
        break;
    }
    default: {
        const quint32 v = qFromLittleEndian<quint32>(raw);
        std::memcpy(host, &v, 4);
        break;
    }
    }
}

namespace {

template <typename Move>
TAVO_RESULT eachDecodedElement(const Kind &kind, uint32_t rawSize, Move move)
{
    if (rawSize < uint32_t(kind.minimumSize()))
        return TAVO_ERR_BUFFER_TOO_SMALL;
    int offset = 0;
    for (const Field &f : kind.fields) {
        const int step = sizeOf(f.type);
        if (f.decodedOffset != kNone && uint32_t(offset + f.size()) <= rawSize) {
            for (int i = 0; i < f.count; ++i)
                move(f.type, f.decodedOffset + i * step, offset + i * step);
        }
        offset += f.size();
    }
    return TAVO_OK;
}

} // namespace

TAVO_RESULT compose(const Kind &kind, const void *decoded, uchar *raw, uint32_t rawSize)
{
    const auto *from = static_cast<const uchar *>(decoded);
    return eachDecodedElement(kind, rawSize, [&](Type type, int decodedAt, int rawAt) {
        elementToRaw(type, from + decodedAt, raw + rawAt);
    });
}

TAVO_RESULT decompose(const Kind &kind, void *decoded, const uchar *raw, uint32_t rawSize)
{
    auto *to = static_cast<uchar *>(decoded);
    return eachDecodedElement(kind, rawSize, [&](Type type, int decodedAt, int rawAt) {
        elementFromRaw(type, raw + rawAt, to + decodedAt);
    });
}

} // namespace TavoSim::NvramLayout
