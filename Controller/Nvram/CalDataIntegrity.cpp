#include "CalDataIntegrity.h"

#include "TavoCore.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;

bool IsOffered(int handle, const char *command)
{
    return TAVO_QueryAPISupported_r(handle, kTimeoutMs, command) == TAVO_OK;
}

} // namespace

CCalDataIntegrity::CCalDataIntegrity()
{
    const int handle = m_targetAccess.GetHandle();
    if (IsOffered(handle, "TAVO_MISC_CalDataIntegrity_StartRec_Ex_r"))
        TAVO_MISC_CalDataIntegrity_StartRec_Ex_r(handle, kTimeoutMs);
    else if (IsOffered(handle, "TAVO_MISC_CalDataIntegrity_StartRec_r"))
        TAVO_MISC_CalDataIntegrity_StartRec_r(handle, kTimeoutMs);
}

CCalDataIntegrity::~CCalDataIntegrity()
{
    const int handle = m_targetAccess.GetHandle();
    uint32_t status = 0;
    if (IsOffered(handle, "TAVO_MISC_CalDataIntegrity_StopRec_Ex_r"))
        TAVO_MISC_CalDataIntegrity_StopRec_Ex_r(handle, kTimeoutMs, &status);
    else if (IsOffered(handle, "TAVO_MISC_CalDataIntegrity_StopRec_r"))
        TAVO_MISC_CalDataIntegrity_StopRec_r(handle, kTimeoutMs, &status);
}
