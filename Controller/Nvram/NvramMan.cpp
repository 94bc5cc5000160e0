#include "NvramMan.h"

#include <QMetaType>

#include <memory>

#include "CalDataIntegrity.h"
#include "TavoApp.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;

} // namespace

CNvramMan::CNvramMan(QObject *parent) : QObject(parent)
{
    // The done signals may reach receivers on other threads.
    static const int registered = qRegisterMetaType<TAVO_RESULT>("TAVO_RESULT");
    Q_UNUSED(registered);
}

TAVO_RESULT CNvramMan::ReadNvram(int count, const char *const lids[], const uint16_t records[],
                                 const uint32_t sizes[], uint8_t *const buffers[])
{
    const TAVO_RESULT result = TransferBatch(EDirection::Read, count, lids, records, sizes, buffers);
    emit Signal_ReadNvramDone(result);
    return result;
}

TAVO_RESULT CNvramMan::WriteNvram(int count, const char *const lids[], const uint16_t records[],
                                  const uint32_t sizes[], uint8_t *const buffers[])
{
    auto integrity = std::make_unique<CCalDataIntegrity>();
    const TAVO_RESULT result = TransferBatch(EDirection::Write, count, lids, records, sizes, buffers);
    emit Signal_WriteNvramDone(result);
    integrity.reset();
    return result;
}

TAVO_RESULT CNvramMan::TransferBatch(EDirection direction, int count, const char *const lids[],
                                     const uint16_t records[], const uint32_t sizes[], uint8_t *const buffers[])
{
    if (count > 0 && !(lids && records && sizes && buffers))
        return TAVO_ERR_FAILED;
    for (int i = 0; i < count; ++i) {
        if (!lids[i] || records[i] == 0 || sizes[i] == 0 || !buffers[i])
            return TAVO_ERR_FAILED;
        const TAVO_RESULT result = TransferRecord(direction, lids[i], records[i], sizes[i], buffers[i]);
        if (result != TAVO_OK)
            return result;
    }
    return TAVO_OK;
}

// The modem is asked for every record: nothing keeps the connection from
// turning to another modem between two records. A connection that cannot
// name its modem's service is not taken for a C2K one.
TAVO_RESULT CNvramMan::TransferRecord(EDirection direction, const char *lid, uint16_t record, uint32_t size,
                                      uint8_t *buffer)
{
    const int handle = m_targetAccess.GetHandle();
    int index = 0;
    int service = TAVO_MD_SRV_NONE;
    if (TavoConn_GetMdActiveIdx(handle, &index) != TAVO_OK || TavoConn_GetMdSrv(handle, index, &service) != TAVO_OK)
        service = TAVO_MD_SRV_NONE;

    if (service == TAVO_MD_SRV_C2K) {
        return direction == EDirection::Read ? TAVO_C2K_NVRAM_Read_r(handle, kTimeoutMs, lid, record, buffer, size)
                                             : TAVO_C2K_NVRAM_Write_r(handle, kTimeoutMs, lid, record, buffer, size);
    }
    const SNvramAccessRequest request{lid, record, size, buffer};
    SNvramAccessConfirm confirm{};
    return direction == EDirection::Read ? TAVO_NVRAM_Read_r(handle, kTimeoutMs, &request, &confirm)
                                         : TAVO_NVRAM_Write_r(handle, kTimeoutMs, &request, &confirm);
}
