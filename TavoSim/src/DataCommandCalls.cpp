/* Data commands: layer 1's TPC data and RX path loss of each band group,
 * read and written whole by the TX data commands and the path loss commands
 * (TavoApp.h). Layer 1 keeps them in stores of the NVRAM
 * ("TL1_TPC_TXDAC_BAND<n>", "TL1_TPC_TXCLPC_BAND<n>", "TL1_PATHLOSS_BAND<n>",
 * "TL1_PATHLOSS8_BAND<n>", see NvramLayout), so they outlive resets and the
 * process like any record. */

#include <QtEndian>

#include "NvramStore.h"
#include "TavoApp.h"
#include "TargetCall.h"

using namespace TavoSim;

namespace {

constexpr quint16 kVersion = 2;
constexpr int kBandGroups = 5;
constexpr uint32_t kHead = AST_TAVO_NVRAM_TX_HEAD_SIZE;

/* What a lidCode asks for. */
struct Operation
{
    quint16 lidCode;
    bool write;
    const char *store; /* the store's name without the band group index */
    uint32_t size;     /* of the record carried, head included */
    bool clpc;         /* kept only by targets with closed-loop power control */
};

const Operation kOperations[] = {
    {AST_TAVO_NVRAM_TX_DAC_READ, false, "TL1_TPC_TXDAC_BAND", AST_TAVO_NVRAM_TX_DAC_SIZE, false},
    {AST_TAVO_NVRAM_TX_DAC_WRITE, true, "TL1_TPC_TXDAC_BAND", AST_TAVO_NVRAM_TX_DAC_SIZE, false},
    {AST_TAVO_NVRAM_TX_CLPC_READ, false, "TL1_TPC_TXCLPC_BAND", AST_TAVO_NVRAM_TX_CLPC_SIZE, true},
    {AST_TAVO_NVRAM_TX_CLPC_WRITE, true, "TL1_TPC_TXCLPC_BAND", AST_TAVO_NVRAM_TX_CLPC_SIZE, true},
};

struct Head
{
    quint16 band = 0;
    quint16 version = 0;
    quint16 lidCode = 0;
};

Head headOf(const void *request)
{
    const auto *bytes = static_cast<const uchar *>(request);
    return {qFromLittleEndian<quint16>(bytes), qFromLittleEndian<quint16>(bytes + 2),
            qFromLittleEndian<quint16>(bytes + 4)};
}

void putHead(void *confirm, quint16 band, quint16 resultCode)
{
    auto *bytes = static_cast<uchar *>(confirm);
    qToLittleEndian<quint16>(band, bytes);
    qToLittleEndian<quint16>(kVersion, bytes + 2);
    qToLittleEndian<quint16>(resultCode, bytes + 4);
    qToLittleEndian<quint16>(0, bytes + 6);
}

/* The operation a request asks of the command, or why the target turns it
 * down (the resultCode). */
const Operation *operationFor(const TargetProfile &profile, const Head &head, bool write, quint16 *refusal)
{
    const Operation *found = nullptr;
    for (const Operation &operation : kOperations) {
        if (operation.lidCode == head.lidCode && operation.write == write)
            found = &operation;
    }
    const bool clpc = profile.rfCapabilityValue(TargetProfile::kTxClpcModeOffset) == 1u;
    if (head.version != kVersion)
        *refusal = AST_TAVO_NVRAM_OPER_BAD_VERSION;
    else if (!found || (found->clpc && !clpc))
        *refusal = AST_TAVO_NVRAM_OPER_UNKNOWN_LID;
    else if (head.band >= kBandGroups)
        *refusal = AST_TAVO_NVRAM_OPER_BAD_BAND;
    else if (!profile.supportsBandGroup(head.band))
        *refusal = AST_TAVO_NVRAM_OPER_BAND_NOT_SUPPORTED;
    else
        return found;
    return nullptr;
}

TAVO_RESULT txCommand(const char *call, bool write, int handle, uint32_t timeoutMs, const void *request,
                      void *confirm)
{
    const Head head = request ? headOf(request) : Head();
    const QStringList inputs = request ? QStringList{Input("band", head.band), Input("version", head.version),
                                                     Input("lidCode", head.lidCode)}
                                       : QStringList{QStringLiteral("request=null")};
    return TargetCall(call, handle, timeoutMs, inputs)
        .run(request && confirm, [&](const TargetProfile &profile, TargetState &state) {
            quint16 refusal = 0;
            const Operation *operation = operationFor(profile, head, write, &refusal);
            if (!operation) {
                putHead(confirm, head.band, refusal);
                return TAVO_RESULT(TAVO_OK);
            }
            const QString store = QLatin1String(operation->store) + QString::number(head.band);
            const uint32_t size = operation->size - kHead;
            const TAVO_RESULT result =
                write ? NvramStore::write(state, store, 1, static_cast<const uchar *>(request) + kHead, size)
                      : NvramStore::read(state, store, 1, static_cast<uchar *>(confirm) + kHead, size);
            if (result == TAVO_OK)
                putHead(confirm, head.band, AST_TAVO_NVRAM_OPER_SUCCESS);
            return result;
        });
}

/* ---- RX path loss commands ---- */

/* One generation of the path loss commands. */
struct PathlossGeneration
{
    quint16 version;
    const char *store; /* the store's name without the band group index */
    uint32_t size;     /* of the record behind the head */
};

const PathlossGeneration kFourModes = {AST_TAVO_NVRAM_PATHLOSS_VERSION, "TL1_PATHLOSS_BAND",
                                       AST_TAVO_NVRAM_PATHLOSS_RECORD_SIZE};
const PathlossGeneration kEightLevels = {AST_TAVO_NVRAM_PATHLOSS_8LEVEL_VERSION, "TL1_PATHLOSS8_BAND",
                                         AST_TAVO_NVRAM_PATHLOSS_8LEVEL_RECORD_SIZE};

constexpr uint32_t kPathlossHead = AST_TAVO_NVRAM_PATHLOSS_HEAD_SIZE;

/* Band group, version, then four bytes of 0. */
void putPathlossHead(void *confirm, quint16 band, quint16 version)
{
    auto *bytes = static_cast<uchar *>(confirm);
    qToLittleEndian<quint16>(band, bytes);
    qToLittleEndian<quint16>(version, bytes + 2);
    qToLittleEndian<quint32>(0, bytes + 4);
}

/* The target turns a request down, in this order: a generation it does not
 * offer (TargetCall, from CommandCatalog), a head of the other generation or
 * beyond the band groups, a band group none of its bands lies in. */
TAVO_RESULT pathlossCommand(const char *call, const PathlossGeneration &generation, bool write, int handle,
                            uint32_t timeoutMs, const void *request, void *confirm)
{
    const Head head = request ? headOf(request) : Head();
    const QStringList inputs = request ? QStringList{Input("band", head.band), Input("version", head.version)}
                                       : QStringList{QStringLiteral("request=null")};
    return TargetCall(call, handle, timeoutMs, inputs)
        .run(request && confirm, [&](const TargetProfile &profile, TargetState &state) {
            if (head.version != generation.version || head.band >= kBandGroups)
                return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
            if (!profile.supportsBandGroup(head.band))
                return TAVO_RESULT(TAVO_ERR_FAILED);
            const QString store = QLatin1String(generation.store) + QString::number(head.band);
            const TAVO_RESULT result =
                write ? NvramStore::write(state, store, 1, static_cast<const uchar *>(request) + kPathlossHead,
                                          generation.size)
                      : NvramStore::read(state, store, 1, static_cast<uchar *>(confirm) + kPathlossHead,
                                         generation.size);
            if (result == TAVO_OK)
                putPathlossHead(confirm, head.band, head.version);
            return result;
        });
}

} // namespace

extern "C" {

TAVO_RESULT AST_Tavo_NVRAM_TX_Read_r(int handle, uint32_t timeoutMs, const void *request, void *confirm)
{
    return txCommand("AST_Tavo_NVRAM_TX_Read_r", false, handle, timeoutMs, request, confirm);
}

TAVO_RESULT AST_Tavo_NVRAM_TX_Write_r(int handle, uint32_t timeoutMs, const void *request, void *confirm)
{
    return txCommand("AST_Tavo_NVRAM_TX_Write_r", true, handle, timeoutMs, request, confirm);
}

TAVO_RESULT AST_Tavo_NVRAM_Pathloss_Read_r(int handle, uint32_t timeoutMs, const void *request, void *confirm)
{
    return pathlossCommand("AST_Tavo_NVRAM_Pathloss_Read_r", kFourModes, false, handle, timeoutMs, request, confirm);
}

TAVO_RESULT AST_Tavo_NVRAM_Pathloss_Write_r(int handle, uint32_t timeoutMs, const void *request, void *confirm)
{
    return pathlossCommand("AST_Tavo_NVRAM_Pathloss_Write_r", kFourModes, true, handle, timeoutMs, request, confirm);
}

TAVO_RESULT AST_Tavo_NVRAM_Pathloss_8level_Read_r(int handle, uint32_t timeoutMs, const void *request, void *confirm)
{
    return pathlossCommand("AST_Tavo_NVRAM_Pathloss_8level_Read_r", kEightLevels, false, handle, timeoutMs, request,
                           confirm);
}

TAVO_RESULT AST_Tavo_NVRAM_Pathloss_8level_Write_r(int handle, uint32_t timeoutMs, const void *request,
                                                    void *confirm)
{
    return pathlossCommand("AST_Tavo_NVRAM_Pathloss_8level_Write_r", kEightLevels, true, handle, timeoutMs, request,
                           confirm);
}

} // extern "C"
