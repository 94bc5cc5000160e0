#include "AfcPageItem.h"

#include "ItemInfo.h"
#include "Items/TdscdmaAfc.h"

CAfcPageItem::CAfcPageItem(CTdscdmaAfc &afc)
    : CPageItemDescriptor(PAGE_ITEM_AFC_CONTROL, GetPageItemName(PAGE_ITEM_AFC_CONTROL), "CTdscdmaAfcDockWidget",
                          SPageModel::ForTestPage(":/TdscdmaAfc.json", true)),
      m_afcObj(afc)
{
}

void CAfcPageItem::Test(STestRun &run) { run.code = m_afcObj.StartAfc(m_cmdBuilder.GetAfcStartCmd(run.request)); }
