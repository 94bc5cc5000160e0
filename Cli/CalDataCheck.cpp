#include "CalDataCheck.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

#include "CalDataSession.h"
#include "ItemInfo.h"
#include "JsonPath.h"
#include "Plausibility/CalPlausibility.h"
#include "TdscdmaCore.h"

namespace {

struct SCheckedItem {
    int calItem;
    int pageItem;
};

const SCheckedItem kChecked[] = {{CAL_ITEM_TPC, PAGE_ITEM_TPC}, {CAL_ITEM_RX_PATH_LOSS, PAGE_ITEM_RX_PATHLOSS}};

const char *const kBandValues = "calDataIf.config.group1.memberProperty.band.trait.value";

} // namespace

bool CCalDataCheck::Run(const QString &path, double maxLossJump, QVector<SFinding> &findings,
                        QVector<SEachItemOperationResult> &results, QString &error)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    QStringList items;
    const QStringList offered = core->GetSupportItem();
    for (const SCheckedItem &checked : kChecked) {
        if (offered.contains(CalItemInfo(checked.calItem).name))
            items << CalItemInfo(checked.calItem).name;
    }
    if (!m_session.Fetch(path, items, results, error))
        return false;

    for (const SCheckedItem &checked : kChecked) {
        const QString item = CalItemInfo(checked.calItem).name;
        const bool fetched = std::any_of(results.cbegin(), results.cend(), [&item](const SEachItemOperationResult &r) {
            return r.itemName == item && r.IsSuccess();
        });
        if (!fetched)
            continue;
        QJsonObject model = QJsonDocument::fromJson(QByteArray::fromStdString(
                                                        core->GetDataModel(GetPageItemName(checked.pageItem))))
                                .object();
        for (const QJsonValue &band : GetJsonValueConst(model, kBandValues).toArray()) {
            InsertJsonValue(model, "calDataIf.config.group1", "memberValue", "band", band);
            const QJsonObject answer = QJsonDocument::fromJson(
                                           QByteArray::fromStdString(core->GetCalibrationData(
                                               item, QJsonDocument(model).toJson(QJsonDocument::Compact).toStdString())))
                                           .object();
            QVector<SCalFault> faults;
            STpcCurves tpc;
            SPathlossCurves loss;
            if (CCalPlausibility::TpcFromModel(answer, tpc))
                faults = CCalPlausibility::CheckTpc(tpc);
            else if (CCalPlausibility::PathlossFromModel(answer, loss))
                faults = CCalPlausibility::CheckPathloss(loss, maxLossJump);
            for (const SCalFault &fault : faults)
                findings.append({item, band.toString(), fault.text});
        }
    }
    return true;
}
