#include "TpcPageItem.h"

#include "ItemInfo.h"
#include "TdscdmaDataModelCapUpdater.h"

CTpcPageItem::CTpcPageItem(CTdscdmaTpc &tpc)
    : CPageItemDescriptor(PAGE_ITEM_TPC, GetPageItemName(PAGE_ITEM_TPC), QString(), SPageModel()), m_tpcObj(tpc)
{
}

QString CTpcPageItem::PageClass() { return IsVersion2() ? "CTdscdmaTpcDockWidgetV3" : "CTdscdmaTpcDockWidget"; }

SPageModel CTpcPageItem::Model()
{
    if (IsVersion2()) {
        return SPageModel::ForCalDataPage(":/TdscdmaTpcV3.json",
                                          "calDataIf.data.group7.memberProperty.uarfcn.trait.valuePair", true,
                                          [](CTdscdmaDataModelCapUpdater &updater, QJsonObject &model) {
                                              updater.UpdateTpcV3DefaultSupport(model);
                                          });
    }
    return SPageModel::ForCalDataPage(":/TdscdmaTpc.json", "calDataIf.data.group6.memberProperty.uarfcn.trait.valuePair",
                                      true, [this](CTdscdmaDataModelCapUpdater &updater, QJsonObject &model) {
                                          updater.UpdateTpcDefaultSupport(&m_tpcObj, model);
                                      });
}
