#include "TadcPageItem.h"

#include "ItemInfo.h"
#include "TdscdmaDataModelCapUpdater.h"

CTadcPageItem::CTadcPageItem(CTdscdmaTadc &tadc)
    : CPageItemDescriptor(PAGE_ITEM_TADC, GetPageItemName(PAGE_ITEM_TADC), "CTdscdmaTadcDockWidget",
                          SPageModel::WithoutBands(":/TdscdmaTadc.json",
                                                   [&tadc](CTdscdmaDataModelCapUpdater &updater, QJsonObject &model) {
                                                       updater.UpdateTadcCaption(&tadc, model);
                                                   }))
{
}

QString CTadcPageItem::PageClass()
{
    return m_mmrfCapability.IsTadcByL1() ? QString() : CPageItemDescriptor::PageClass();
}
