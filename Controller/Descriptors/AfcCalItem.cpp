#include "AfcCalItem.h"

#include "GeneralCore.h"
#include "ItemInfo.h"

CAfcCalItem::CAfcCalItem() : CObjectCalItem(CAL_ITEM_AFC, CalItemInfo(CAL_ITEM_AFC).name) {}

bool CAfcCalItem::IsSupported() { return !m_mmrfCapability.IsAfcByL1(); }

void CAfcCalItem::SetCalibrationData(const QJsonObject &model) { m_object.SetAfcData(m_cmdBuilder.GetAfcCalDataCmd(model)); }

std::string CAfcCalItem::GetCalibrationData(const QJsonObject &model)
{
    return m_responseBuilder.GetAfcDataModel(model, m_object.GetAfcData());
}

SCalDataRoute CAfcCalItem::Route(IRfCoreCalDataOperation *owner)
{
    if (!m_mmrfCapability.IsAfcByL1())
        return CCalItemDescriptor::Route(owner);
    CGeneralCore *general = CGeneralCore::GetInstance();
    return {general, general->GetGeneralItemName(GENERAL_ITEM_MMRF_AFC)};
}
