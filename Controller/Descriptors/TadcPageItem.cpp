#include "TadcPageItem.h"

#include "ItemInfo.h"
#include "Items/TdscdmaTadc.h"
#include "TdscdmaDataModelCapUpdater.h"

CTadcPageItem::CTadcPageItem(CTdscdmaTadc &tadc)
    : CPageItemDescriptor(PAGE_ITEM_TADC, GetPageItemName(PAGE_ITEM_TADC), "CTdscdmaTadcDockWidget",
                          SPageModel::WithoutBands(":/TdscdmaTadc.json",
                                                   [&tadc](CTdscdmaDataModelCapUpdater &updater, QJsonObject &model) {
                                                       updater.UpdateTadcCaption(&tadc, model);
                                                   })),
      m_tadcObj(tadc)
{
}

QString CTadcPageItem::PageClass()
{
    return m_mmrfCapability.IsTadcByL1() ? QString() : CPageItemDescriptor::PageClass();
}

void CTadcPageItem::Test(STestRun &run)
{
    uint32_t value = 0;
    const bool measured = m_tadcObj.Measure(m_cmdBuilder.GetTadcMeasureCount(run.request), value) == ERROR_CODE_SUCCESS;
    // Whatever went wrong, the page shows "Error".
    run.code = measured ? ERROR_CODE_SUCCESS : ERROR_CODE_L1_STATUS;
    if (!measured)
        run.errorMessage = m_tadcObj.GetErrorMessage();
    // The page takes the whole model back: the table keeps what it showed,
    // edits included.
    QJsonObject shown = run.request;
    m_responseBuilder.SetTadcTable(shown, m_cmdBuilder.GetTadcCalDataCmd(run.request));
    run.resultModel = m_responseBuilder.UpdateTadcMeasureResult(shown, measured ? QString::number(value) : "Error");
}
