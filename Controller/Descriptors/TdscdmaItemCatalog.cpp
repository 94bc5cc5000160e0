#include "TdscdmaItemCatalog.h"

#include "AfcCalItem.h"
#include "AfcPageItem.h"
#include "ContinuousPageItem.h"
#include "DpchTxPageItem.h"
#include "ItemInfo.h"
#include "Items/TdscdmaContRx.h"
#include "Items/TdscdmaContTx.h"
#include "PathlossCalItem.h"
#include "PathlossPageItem.h"
#include "RssiPageItem.h"
#include "SelfCalCalItem.h"
#include "TadcCalItem.h"
#include "TadcPageItem.h"
#include "TpcCalItem.h"
#include "TpcPageItem.h"

namespace {

std::unique_ptr<CPageItemDescriptor> Page(int id, const char *pageClass, SPageModel model)
{
    return std::make_unique<CPageItemDescriptor>(id, GetPageItemName(id), pageClass, std::move(model));
}

} // namespace

STdscdmaItemCatalog STdscdmaItemCatalog::Create()
{
    auto afc = std::make_unique<CAfcCalItem>();
    auto tpc = std::make_unique<CTpcCalItem>();
    auto tadc = std::make_unique<CTadcCalItem>();
    CTdscdmaAfc &afcObj = afc->AfcObj();
    CTdscdmaTpc &tpcObj = tpc->TpcObj();
    CTdscdmaTadc &tadcObj = tadc->TadcObj();

    STdscdmaItemCatalog catalog;
    catalog.calItems.push_back(std::move(afc));
    catalog.calItems.push_back(std::make_unique<CPathlossCalItem>());
    catalog.calItems.push_back(std::move(tpc));
    catalog.calItems.push_back(std::move(tadc));
    catalog.calItems.push_back(std::make_unique<CSelfCalCalItem>());

    catalog.pageItems.push_back(std::make_unique<CAfcPageItem>(afcObj));
    catalog.pageItems.push_back(std::make_unique<CTadcPageItem>(tadcObj));
    catalog.pageItems.push_back(std::make_unique<CRssiPageItem>());
    catalog.pageItems.push_back(std::make_unique<CPathlossPageItem>());
    catalog.pageItems.push_back(std::make_unique<CContinuousPageItem<CTdscdmaContRx>>(
        PAGE_ITEM_CONT_RX, GetPageItemName(PAGE_ITEM_CONT_RX), "CTdscdmaContRxDockWidget", ":/TdscdmaContRx.json",
        &CTdscdmaContRx::RxOn, &CTdscdmaContRx::RxOff));
    catalog.pageItems.push_back(std::make_unique<CContinuousPageItem<CTdscdmaContTx>>(
        PAGE_ITEM_CONT_TX, GetPageItemName(PAGE_ITEM_CONT_TX), "CTdscdmaContTxDockWidget", ":/TdscdmaContTx.json",
        &CTdscdmaContTx::TxOn, &CTdscdmaContTx::TxOff));
    catalog.pageItems.push_back(std::make_unique<CDpchTxPageItem>());
    catalog.pageItems.push_back(
        Page(PAGE_ITEM_BB_REGISTER, "CTdscdmaBBRegDockWidget", SPageModel::WithoutBands(":/TdscdmaBBReg.json")));
    catalog.pageItems.push_back(std::make_unique<CTpcPageItem>(tpcObj));
    return catalog;
}
