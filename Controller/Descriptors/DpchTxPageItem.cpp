#include "DpchTxPageItem.h"

#include "ItemInfo.h"
#include "TdscdmaDataModelCapUpdater.h"

CDpchTxPageItem::CDpchTxPageItem()
    : CPageItemDescriptor(PAGE_ITEM_DPCH_TX, GetPageItemName(PAGE_ITEM_DPCH_TX), "CTdscdmaDpchTxDockWidget",
                          SPageModel::ForTestPage(":/TdscdmaDpchTx.json", true,
                                                  [](CTdscdmaDataModelCapUpdater &updater, QJsonObject &model) {
                                                      updater.UpdateDpchTxDefaultSupport(model);
                                                  }))
{
}

void CDpchTxPageItem::Test(STestRun &run)
{
    run.code = m_dpchTxObj.Start(m_cmdBuilder.GetDpchTxCmd(run.request));
    run.errorMessage = m_dpchTxObj.GetErrorMessage();
}
