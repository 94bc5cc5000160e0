#include "GeneralCore.h"

#include "Descriptors/GeneralItemCatalog.h"
#include "Descriptors/MmrfAfcCalItem.h"
#include "ItemInfo.h"
#include "ModelUpdateResult.h"
#include "RadbenchLog.h"

CGeneralCore *CGeneralCore::GetInstance()
{
    static CGeneralCore core;
    return &core;
}

CGeneralCore::CGeneralCore()
{
    CreateItems();
}

CGeneralCore::~CGeneralCore() = default;

void CGeneralCore::CreateItems()
{
    SGeneralItemCatalog catalog = SGeneralItemCatalog::Create();
    for (auto &item : catalog.calItems)
        AddCalItem(std::move(item));
}

QString CGeneralCore::GetGeneralItemName(int id)
{
    if (const CCalItemDescriptor *item = m_calItemMap.ById(id))
        return item->Name();
    return id >= 0 && id <= GENERAL_ITEM_END ? ::GetGeneralItemName(id) : QString();
}

SRatSupportStatus CGeneralCore::GetRatSupportStatus()
{
    SRatSupportStatus status;
    status.status = SRatSupportStatus::SUPPORTED;
    status.reason = "Support";
    std::lock_guard<std::mutex> lock(m_stateLock);
    m_ratStatus = status;
    return status;
}

bool CGeneralCore::IsTargetServed() { return !IsC2kModem(); }

void CGeneralCore::ResetCapability() { ForgetTarget(); }

// ---- Movements -------------------------------------------------------------------

void CGeneralCore::UploadFromFlashInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CGeneralCore]UploadFromFlashInternal---itemCount" << run.m_operateItems.size();
    RunMovement(run);
}

void CGeneralCore::DownloadToFlashInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CGeneralCore]DownloadToFlashInternal---itemCount" << run.m_operateItems.size();
    RunMovement(run);
}

void CGeneralCore::LoadFromFileInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CGeneralCore]LoadFromFileInternal---itemCount" << run.m_operateItems.size();
    RunMovement(run);
}

void CGeneralCore::SaveToFileInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CGeneralCore]SaveToFileInternal---itemCount" << run.m_operateItems.size();
    RunMovement(run);
}

// ---- The AFC page's data ------------------------------------------------------------

CMmrfAfcCalItem *CGeneralCore::MmrfAfcItem() const
{
    return dynamic_cast<CMmrfAfcCalItem *>(m_calItemMap.ById(GENERAL_ITEM_MMRF_AFC));
}

void CGeneralCore::SetAfcDataFromModel(std::string model, int rat)
{
    if (CMmrfAfcCalItem *item = MmrfAfcItem())
        item->SetDataFromModel(ParseModel(model), rat);
}

std::string CGeneralCore::GetModelWithAfcData(std::string model, int rat)
{
    CMmrfAfcCalItem *item = MmrfAfcItem();
    return item ? item->GetModelWithData(ParseModel(model), rat) : BuildEmptyModelString();
}
