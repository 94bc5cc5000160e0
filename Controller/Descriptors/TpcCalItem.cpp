#include "TpcCalItem.h"

#include "ItemInfo.h"
#include "JsonPath.h"
#include "ModelUpdateResult.h"
#include "RadbenchLog.h"

namespace {

const char *const kMovementNames[] = {"UploadFromFlash", "DownloadToFlash", "ReadFromFile", "WriteToFile"};

} // namespace

CTpcCalItem::CTpcCalItem() : CCalItemDescriptor(CAL_ITEM_TPC, CalItemInfo(CAL_ITEM_TPC).name) {}

CTdscdmaTpc &CTpcCalItem::Tpc()
{
    if (IsVersion2())
        return m_tpcV3Obj;
    return m_tpcObj;
}

bool CTpcCalItem::IsInFile(TIniFile *file) { return Tpc().IsAnyTpcSectionExist(file); }

int CTpcCalItem::Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage)
{
    if (IsVersion2()) {
        qCDebug(lcController).noquote() << QString("m_tpcV3Obj->%1").arg(kMovementNames[int(movement)]);
        return MoveItem(m_tpcV3Obj, movement, file, errorMessage);
    }
    return MoveItem(m_tpcObj, movement, file, errorMessage);
}

int CTpcCalItem::BandOf(const QJsonObject &model, const char *operation)
{
    const QString band = GetJsonValueConst(model, "calDataIf.config.group1.memberValue.band").toString();
    const int index = CTdscdmaCoreCmdBuilder::GetBandIndexByName(band);
    qCDebug(lcController) << operation << band << index;
    return index;
}

void CTpcCalItem::SetCalibrationData(const QJsonObject &model)
{
    const int band = BandOf(model, "SetTpcCalibrationData: band ");
    if (IsVersion2())
        m_tpcV3Obj.SetBandDataV3(band, m_cmdBuilder.GetTpcCalDataCmdV3(&m_tpcV3Obj, model, m_tpcV3Obj.GetBandDataV3(band)));
    else
        m_tpcObj.SetBandData(band, m_cmdBuilder.GetTpcCalDataCmd(&m_tpcObj, model, m_tpcObj.GetBandData(band)));
    qCDebug(lcController) << "SetTpcCalibrationData: setDone ";
}

std::string CTpcCalItem::GetCalibrationData(const QJsonObject &model)
{
    return ModelText(GetCalibrationDataModel(model));
}

QJsonObject CTpcCalItem::GetCalibrationDataModel(const QJsonObject &model)
{
    const int band = BandOf(model, "GetTpcCalibrationData: band ");
    if (IsVersion2()) {
        qCDebug(lcController) << "m_tdscdmaCapObj.GetNvramVerNum() == FTA_AST_TL1_NVRAM_VERSION_TWO";
        return m_responseBuilder.TpcDataModelV3(model, m_tpcV3Obj.GetBandDataV3(band));
    }
    return m_responseBuilder.TpcDataModel(model, m_tpcObj.GetBandData(band));
}
