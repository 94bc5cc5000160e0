#include "MmrfAfcCalItem.h"

#include "ItemInfo.h"
#include "JsonPath.h"
#include "ModelUpdateResult.h"

namespace {

const QString kValues = "cmdIf.response.group1.memberValue.";
const QString kDefaults = "cmdIf.response.group1.memberProperty.%1.trait.defaultValue";

// What a rat's models hold of the AFC data.
enum class ERatModel {
    None,     // no AFC data
    Optional, // only the members the model has
    Full,     // all three members
};

ERatModel RatModel(int rat)
{
    switch (rat) {
    case 0:
        return ERatModel::Optional;
    case 1:
    case 3:
    case 4:
    case 5:
        return ERatModel::Full;
    default:
        return ERatModel::None;
    }
}

} // namespace

CMmrfAfcCalItem::CMmrfAfcCalItem() : CObjectCalItem(GENERAL_ITEM_MMRF_AFC, GetGeneralItemName(GENERAL_ITEM_MMRF_AFC)) {}

bool CMmrfAfcCalItem::IsSupported() { return m_capability.IsAfcByL1(); }

void CMmrfAfcCalItem::SetDataFromModel(const QJsonObject &model, int rat)
{
    const ERatModel kind = RatModel(rat);
    if (kind == ERatModel::None)
        return;
    SMmrfAfcData data = m_object.GetAfcData();
    const auto has = [&](const char *member) {
        return kind == ERatModel::Full || !IsJsonPathMissing(model, kValues + member);
    };
    const auto text = [&](const char *member) { return GetJsonValueConst(model, kValues + member).toString(); };
    if (has("initAfcdac"))
        data.initAfcDac = uint16_t(text("initAfcdac").toUInt());
    if (has("slope")) {
        // A slope of 0, or one too small for 32 bits, has no stored form
        // and gives the most negative one.
        data.slope = CMmrfAfc::SlopeToTargetValue(float(text("slope").toDouble()));
    }
    if (has("capId"))
        data.capId = text("capId").toUInt();
    m_object.SetAfcData(data);
}

std::string CMmrfAfcCalItem::GetModelWithData(QJsonObject model, int rat)
{
    const ERatModel kind = RatModel(rat);
    if (kind == ERatModel::None)
        return BuildEmptyModelStringWithError(QString("It does not support this rat.(%1 )").arg(rat));
    const SMmrfAfcData data = m_object.GetAfcData();
    const struct {
        const char *member;
        QString value;
        const char *failure;
    } writes[] = {
        {"initAfcdac", QString::number(data.initAfcDac), "Update Init AFC DAC failed"},
        {"slope", QString::number(double(CMmrfAfc::TargetValueToSlope(data.slope)), 'g', 6), "Update slope failed"},
        {"capId", QString::number(data.capId), "Update cap ID failed"},
    };
    for (const auto &write : writes) {
        const QString path = kDefaults.arg(write.member);
        if (kind == ERatModel::Optional && IsJsonPathMissing(model, path))
            continue;
        if (!SetJsonValue(model, path, write.value))
            return BuildEmptyModelStringWithError(write.failure);
    }
    return ModelText(model);
}
