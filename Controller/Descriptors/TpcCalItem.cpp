#include "TpcCalItem.h"

#include "ItemInfo.h"

CTpcCalItem::CTpcCalItem() : CCalItemDescriptor(CAL_ITEM_TPC, CalItemInfo(CAL_ITEM_TPC).name) {}

CTdscdmaTpc &CTpcCalItem::Tpc()
{
    if (m_capability.GetNvramVerNum() == FTA_AST_TL1_NVRAM_VERSION_TWO)
        return m_tpcV3Obj;
    return m_tpcObj;
}

bool CTpcCalItem::IsInFile(TIniFile *file) { return Tpc().IsAnyTpcSectionExist(file); }

int CTpcCalItem::Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage)
{
    return MoveItem(Tpc(), movement, file, errorMessage);
}
