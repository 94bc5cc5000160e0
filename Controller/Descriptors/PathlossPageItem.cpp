#include "PathlossPageItem.h"

#include "ItemInfo.h"
#include "TdscdmaDataModelCapUpdater.h"

CPathlossPageItem::CPathlossPageItem()
    : CPageItemDescriptor(PAGE_ITEM_RX_PATHLOSS, GetPageItemName(PAGE_ITEM_RX_PATHLOSS),
                          "CTdscdmaPathlossDockWidget", SPageModel())
{
}

SPageModel CPathlossPageItem::Model()
{
    const QString ranges = "calDataIf.data.group1.memberProperty.uarfcn.trait.valuePair";
    if (m_capability.IsPathlossV3())
        return SPageModel::ForCalDataPage(":/TdscdmaPathlossV3.json", ranges, false);
    return SPageModel::ForCalDataPage(":/TdscdmaPathloss.json", ranges, false,
                                      [](CTdscdmaDataModelCapUpdater &updater, QJsonObject &model) {
                                          updater.UpdatePathlossDefaultEnableStatus(model);
                                      });
}
