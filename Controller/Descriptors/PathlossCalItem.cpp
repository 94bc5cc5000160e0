#include "PathlossCalItem.h"

#include "ItemInfo.h"
#include "JsonPath.h"
#include "ModelUpdateResult.h"
#include "RadbenchLog.h"

const char *const CPathlossCalItem::kNoItemMessage =
    "Please check SW version. It use NVRAM interface to operation not use L1 interface\n"
    "If target supports Rx extend mode, it must also support L1 interface.";

CPathlossCalItem::CPathlossCalItem() : CCalItemDescriptor(CAL_ITEM_RX_PATH_LOSS, CalItemInfo(CAL_ITEM_RX_PATH_LOSS).name)
{
}

CTdscdmaPathLoss &CPathlossCalItem::PathLoss()
{
    if (IsV3())
        return m_pathLossV3Obj;
    if (m_capability.IsNvramVerValid())
        return m_pathLossV2Obj;
    return m_pathLossObj;
}

bool CPathlossCalItem::IsInFile(TIniFile *file) { return PathLoss().IsAnyPathlossSectionExist(file); }

int CPathlossCalItem::Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage)
{
    if (!m_capability.IsNvramVerValid() && m_capability.IsRxExtendModeSupported()) {
        errorMessage = kNoItemMessage;
        return ERROR_CODE_NOT_EXECUTED;
    }
    return MoveItem(PathLoss(), movement, file, errorMessage);
}

void CPathlossCalItem::SetCalibrationData(const QJsonObject &model)
{
    const QString text = GetJsonValueConst(model, "calDataIf.config.group1.memberValue.band").toString();
    const int band = CTdscdmaCoreCmdBuilder::GetBandIndexByName(text);
    qCDebug(lcController) << "SetPathlossCalibrationData: band " << text << band;
    if (IsV3()) {
        m_pathLossV3Obj.SetBandDataV3(band, m_cmdBuilder.GetPathlossCalDataCmdV3(model, m_pathLossV3Obj.GetBandDataV3(band)));
        return;
    }
    CTdscdmaPathLoss &item = PathLoss();
    item.SetBandData(band, m_cmdBuilder.GetPathlossCalDataCmd(model, item.GetBandData(band)));
}

std::string CPathlossCalItem::GetCalibrationData(const QJsonObject &model)
{
    return ModelText(GetCalibrationDataModel(model));
}

QJsonObject CPathlossCalItem::GetCalibrationDataModel(const QJsonObject &model)
{
    const QString text = GetJsonValueConst(model, "calDataIf.config.group1.memberValue.band").toString();
    const int band = CTdscdmaCoreCmdBuilder::GetBandIndexByName(text);
    qCDebug(lcController) << "GetPathlossCalibrationData: band " << text << band;
    QJsonObject filled = model;
    if (IsV3())
        return m_responseBuilder.PathlossDataModelV3(filled, m_pathLossV3Obj.GetBandDataV3(band));
    return m_responseBuilder.PathlossDataModel(filled, PathLoss().GetBandData(band));
}
