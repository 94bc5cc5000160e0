#include "TpcCalItem.h"

#include "ItemInfo.h"

CTpcCalItem::CTpcCalItem() : CCalItemDescriptor(CAL_ITEM_TPC, CalItemInfo(CAL_ITEM_TPC).name) {}
