#include "TadcCalItem.h"

#include "ItemInfo.h"

CTadcCalItem::CTadcCalItem() : CCalItemDescriptor(CAL_ITEM_TADC, CalItemInfo(CAL_ITEM_TADC).name) {}

bool CTadcCalItem::IsSupported() { return !m_mmrfCapability.IsTadcByL1(); }

bool CTadcCalItem::IsInFile(TIniFile *file) { return m_tadcObj.IsSectionInFile(file); }

int CTadcCalItem::Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage)
{
    return MoveItem(m_tadcObj, movement, file, errorMessage);
}

void CTadcCalItem::SetCalibrationData(const QJsonObject &model)
{
    m_tadcObj.SetAdcTable(m_cmdBuilder.GetTadcCalDataCmd(model));
}

std::string CTadcCalItem::GetCalibrationData(const QJsonObject &model)
{
    return m_responseBuilder.GetTadcDataModel(model, m_tadcObj.GetAdcTable());
}
