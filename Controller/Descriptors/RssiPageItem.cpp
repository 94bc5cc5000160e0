#include "RssiPageItem.h"

#include "ItemInfo.h"
#include "TdscdmaDataModelCapUpdater.h"

CRssiPageItem::CRssiPageItem()
    : CPageItemDescriptor(PAGE_ITEM_RSSI, GetPageItemName(PAGE_ITEM_RSSI), "CTdscdmaRssiDockWidget",
                          SPageModel::ForTestPage(":/TdscdmaRssi.json", false,
                                                  [](CTdscdmaDataModelCapUpdater &updater, QJsonObject &model) {
                                                      updater.UpdateRssiModeList(model);
                                                  }))
{
}

void CRssiPageItem::Test(STestRun &run)
{
    const SRssiCmd cmd = m_cmdBuilder.GetRssiCmd(run.request);
    SRssiResult result;
    const bool extended = m_capability.IsAgcExSupported();
    run.code = extended ? m_rssiObj.MeasureEx(cmd, result) : m_rssiObj.Measure(cmd, result);
    if (run.code != ERROR_CODE_SUCCESS) {
        run.errorMessage = m_rssiObj.GetErrorMessage();
        return;
    }
    run.resultModel = m_responseBuilder.UpdateRssiResult(run.request, extended, result);
}
