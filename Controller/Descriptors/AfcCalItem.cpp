#include "AfcCalItem.h"

#include "GeneralCore.h"
#include "ItemInfo.h"

CAfcCalItem::CAfcCalItem() : CCalItemDescriptor(CAL_ITEM_AFC, CalItemInfo(CAL_ITEM_AFC).name) {}

bool CAfcCalItem::IsSupported() { return !m_mmrfCapability.IsAfcByL1(); }

bool CAfcCalItem::IsInFile(TIniFile *file) { return m_afcObj.IsSectionInFile(file); }

int CAfcCalItem::Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage)
{
    return MoveItem(m_afcObj, movement, file, errorMessage);
}

void CAfcCalItem::SetCalibrationData(const QJsonObject &model) { m_afcObj.SetAfcData(m_cmdBuilder.GetAfcCalDataCmd(model)); }

std::string CAfcCalItem::GetCalibrationData(const QJsonObject &model)
{
    return m_responseBuilder.GetAfcDataModel(model, m_afcObj.GetAfcData());
}

SCalDataRoute CAfcCalItem::Route(IRfCoreCalDataOperation *owner)
{
    if (!m_mmrfCapability.IsAfcByL1())
        return CCalItemDescriptor::Route(owner);
    CGeneralCore *general = CGeneralCore::GetInstance();
    return {general, general->GetGeneralItemName(GENERAL_ITEM_MMRF_AFC)};
}
