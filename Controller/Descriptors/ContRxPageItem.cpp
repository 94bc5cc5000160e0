#include "ContRxPageItem.h"

#include "ItemInfo.h"

CContRxPageItem::CContRxPageItem()
    : CPageItemDescriptor(PAGE_ITEM_CONT_RX, GetPageItemName(PAGE_ITEM_CONT_RX), "CTdscdmaContRxDockWidget",
                          SPageModel::ForTestPage(":/TdscdmaContRx.json", true))
{
}

void CContRxPageItem::Test(STestRun &run)
{
    run.code = m_contRxObj.RxOn(RequestUarfcn(run.request));
    run.errorMessage = m_contRxObj.GetErrorMessage();
}

bool CContRxPageItem::Stop(STestRun &run)
{
    run.code = m_contRxObj.RxOff(RequestUarfcn(run.request));
    run.errorMessage = m_contRxObj.GetErrorMessage();
    return true;
}
