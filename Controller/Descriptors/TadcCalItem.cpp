#include "TadcCalItem.h"

#include "ItemInfo.h"

CTadcCalItem::CTadcCalItem() : CCalItemDescriptor(CAL_ITEM_TADC, CalItemInfo(CAL_ITEM_TADC).name) {}

bool CTadcCalItem::IsSupported() { return !m_mmrfCapability.IsTadcByL1(); }
