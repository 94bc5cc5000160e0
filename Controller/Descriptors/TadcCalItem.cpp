#include "TadcCalItem.h"

#include "ItemInfo.h"

CTadcCalItem::CTadcCalItem() : CObjectCalItem(CAL_ITEM_TADC, CalItemInfo(CAL_ITEM_TADC).name) {}

bool CTadcCalItem::IsSupported() { return !m_mmrfCapability.IsTadcByL1(); }

void CTadcCalItem::SetCalibrationData(const QJsonObject &model)
{
    m_object.SetAdcTable(m_cmdBuilder.GetTadcCalDataCmd(model));
}

std::string CTadcCalItem::GetCalibrationData(const QJsonObject &model)
{
    return m_responseBuilder.GetTadcDataModel(model, m_object.GetAdcTable());
}
