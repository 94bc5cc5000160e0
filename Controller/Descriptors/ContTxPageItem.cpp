#include "ContTxPageItem.h"

#include "ItemInfo.h"

CContTxPageItem::CContTxPageItem()
    : CPageItemDescriptor(PAGE_ITEM_CONT_TX, GetPageItemName(PAGE_ITEM_CONT_TX), "CTdscdmaContTxDockWidget",
                          SPageModel::ForTestPage(":/TdscdmaContTx.json", true))
{
}

void CContTxPageItem::Test(STestRun &run)
{
    run.code = m_contTxObj.TxOn(RequestUarfcn(run.request));
    run.errorMessage = m_contTxObj.GetErrorMessage();
}

bool CContTxPageItem::Stop(STestRun &run)
{
    run.code = m_contTxObj.TxOff(RequestUarfcn(run.request));
    run.errorMessage = m_contTxObj.GetErrorMessage();
    return true;
}
