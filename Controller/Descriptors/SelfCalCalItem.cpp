#include "SelfCalCalItem.h"

#include "ItemInfo.h"

CSelfCalCalItem::CSelfCalCalItem() : CCalItemDescriptor(CAL_ITEM_SELF_CAL, CalItemInfo(CAL_ITEM_SELF_CAL).name) {}

bool CSelfCalCalItem::IsSupported() { return m_mmrfCapability.IsSelfCalSupported(int(kRatIndex)); }

IMultiRatSelfCal &CSelfCalCalItem::Object()
{
    if (m_mmrfCapability.IsSelfCalV2())
        return m_selfCalV2Obj;
    return m_selfCalObj;
}

bool CSelfCalCalItem::IsInFile(TIniFile *file) { return Object().IsSectionInFile(file); }

void CSelfCalCalItem::ForgetTarget()
{
    m_selfCalObj.Reset();
    m_selfCalV2Obj.Reset();
}

int CSelfCalCalItem::Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage)
{
    const bool inUbin = movement == ECalDataMovement::DownloadToFlash && m_tdscdmaCapability.IsUbinSupported();
    if (inUbin && !m_ubinObj.EnableUbin()) {
        errorMessage.clear();
        return ERROR_CODE_UBIN_INIT;
    }
    const int code = MoveItem(Object(), movement, file, errorMessage);
    // Leaving the mode decides, whatever the blocks gave.
    if (inUbin && !m_ubinObj.DisableUbin()) {
        errorMessage.clear();
        return ERROR_CODE_UBIN_DEINIT;
    }
    return code;
}
