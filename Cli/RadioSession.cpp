#include "RadioSession.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>

#include "AwaitSignal.h"
#include "JsonPath.h"
#include "TdscdmaCore.h"

namespace {

const char *const kRequest = "cmdIf.request";
const char *const kResponse = "cmdIf.response";
const char *const kBBReg = "Baseband Register";

std::string Text(const QJsonObject &model) { return QJsonDocument(model).toJson(QJsonDocument::Compact).toStdString(); }

QJsonObject Parse(const std::string &text) { return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object(); }

// The groups of a model's request or response, in the order of their names.
QStringList GroupNames(const QJsonObject &model, const QString &side)
{
    QStringList names = GetJsonValueConst(model, side).toObject().keys();
    names.sort();
    return names;
}

// Whether `value` fits the trait of a member; `band` names the band whose
// range a member's valuePair gives.
bool Fits(const QJsonObject &trait, const QString &value, const QString &band, QString &allowed)
{
    const QString type = trait.value("dataType").toString();
    if (type == "list" || type == "boolean") {
        QStringList values;
        for (const QJsonValue &entry : trait.value("value").toArray())
            values << entry.toString();
        allowed = "one of " + values.join(", ");
        return values.isEmpty() || values.contains(value);
    }
    if (type != "range")
        return true;
    const QJsonObject range = trait.contains("valuePair") ? trait.value("valuePair").toObject().value(band).toObject()
                                                          : trait.value("value").toObject();
    bool isNumber = false;
    const qlonglong number = value.toLongLong(&isNumber, 0);
    if (range.isEmpty()) {
        allowed = "a number";
        return isNumber;
    }
    const qlonglong min = qlonglong(range.value("min").toDouble()), max = qlonglong(range.value("max").toDouble());
    allowed = QString("a number from %1 to %2").arg(min).arg(max);
    return isNumber && number >= min && number <= max;
}

// The group at `path` of `model` with `values` as its memberValue.
void SetMemberValues(QJsonObject &model, const QString &path, const QJsonObject &values)
{
    QJsonObject group = GetJsonValueConst(model, path).toObject();
    group.insert("memberValue", values);
    SetJsonValue(model, path, group);
}

} // namespace

CRadioSession::CRadioSession() : m_core(CTdscdmaCore::GetInstance()) {}

CRadioSession::~CRadioSession()
{
    if (m_armed)
        AwaitSignal(m_core, &CTdscdmaCore::Signal_SetUbinDone, [this] { m_core->SetUbin(false); });
}

SEachItemOperationResult CRadioSession::Arm()
{
    // The window asks what the target serves before anything else.
    m_core->GetRatSupportStatus();
    const auto [result] = AwaitSignal(m_core, &CTdscdmaCore::Signal_SetUbinDone, [this] { m_core->SetUbin(true); });
    m_armed = result.IsSuccess();
    return result;
}

QStringList CRadioSession::Tests() { return m_core->GetTestItems(); }

bool CRadioSession::BuildRequest(const QString &item, const QStringList &assignments, QJsonObject &request,
                                 QString &error)
{
    request = Parse(m_core->GetDataModel(item));
    // Each member starts at its default, as the page's widgets show it.
    QMap<QString, QJsonObject> values; // by group path
    QMap<QString, QString> groupOf;    // a member's first group
    for (const QString &group : GroupNames(request, kRequest)) {
        const QString path = QString("%1.%2").arg(kRequest, group);
        for (const QJsonValue &member : GetJsonValueConst(request, path + ".memberList").toArray()) {
            const QString name = member.toString();
            values[path].insert(name,
                                GetJsonValueConst(request, path + ".memberProperty." + name + ".trait.defaultValue"));
            if (!groupOf.contains(name))
                groupOf.insert(name, path);
        }
    }
    for (const QString &assignment : assignments) {
        const int at = assignment.indexOf('=');
        const QString name = assignment.left(at);
        if (at <= 0 || !groupOf.contains(name)) {
            error = QString("%1 has no parameter %2 (it has %3)")
                        .arg(item, at <= 0 ? assignment : name, groupOf.keys().join(", "));
            return false;
        }
        values[groupOf[name]].insert(name, assignment.mid(at + 1));
    }
    // Values are checked once all are in: a channel's range is its band's.
    for (const QString &assignment : assignments) {
        const QString name = assignment.section('=', 0, 0), value = assignment.section('=', 1);
        const QString path = groupOf[name];
        QString allowed;
        if (!Fits(GetJsonValueConst(request, path + ".memberProperty." + name + ".trait").toObject(), value,
                  values[path].value("band").toString(), allowed)) {
            error = QString("%1 of %2 must be %3, not %4").arg(name, item, allowed, value);
            return false;
        }
    }
    for (auto group = values.cbegin(); group != values.cend(); ++group)
        SetMemberValues(request, group.key(), group.value());
    return true;
}

CRadioSession::SOutcome CRadioSession::Run(const QString &item, const QJsonObject &request, int holdMs)
{
    SOutcome outcome;
    std::string answer;
    std::tie(outcome.result, answer) = AwaitSignal(m_core, &CTdscdmaCore::Signal_TestDone,
                                                   [&] { m_core->TestStart(item, Text(request)); });
    if (m_core->GetTestKind(item) == CPageItemDescriptor::ETestKind::Held && outcome.result.IsSuccess()) {
        if (holdMs > 0)
            QThread::msleep(ulong(holdMs));
        std::tie(outcome.stop) = AwaitSignal(m_core, &CTdscdmaCore::Signal_TestStopDone,
                                             [&] { m_core->TestStopByItem(item, Text(request)); });
        outcome.stopped = true;
    }
    const QJsonObject model = Parse(answer);
    for (const QString &group : GroupNames(model, kResponse)) {
        const QString path = QString("%1.%2").arg(kResponse, group);
        for (const QJsonValue &member : GetJsonValueConst(model, path + ".memberList").toArray()) {
            const QString property = path + ".memberProperty." + member.toString();
            outcome.shown.append({GetJsonValueConst(model, property + ".caption").toString(),
                                  GetJsonValueConst(model, property + ".trait.defaultValue").toString()});
        }
    }
    return outcome;
}

SEachItemOperationResult CRadioSession::ReadRegister(quint16 address, quint16 &value)
{
    QJsonObject request = Parse(m_core->GetDataModel(kBBReg));
    SetMemberValues(request, "cmdIf.request.group1", {{"regAddr", QString::number(address)}});
    auto [result, answer] =
        AwaitSignal(m_core, &CTdscdmaCore::Signal_RegReadDone, [&] { m_core->RegRead(Text(request)); });
    value = quint16(
        GetJsonValueConst(Parse(answer), "cmdIf.response.group1.memberProperty.regValue.trait.defaultValue")
            .toString()
            .toUInt(nullptr, 0));
    result.itemName = kBBReg;
    return result;
}

SEachItemOperationResult CRadioSession::WriteRegister(quint16 address, quint16 value)
{
    QJsonObject request = Parse(m_core->GetDataModel(kBBReg));
    SetMemberValues(request, "cmdIf.request.group2",
                    {{"regAddr", QString::number(address)}, {"regValue", QString::number(value)}});
    auto [result, answer] =
        AwaitSignal(m_core, &CTdscdmaCore::Signal_RegWriteDone, [&] { m_core->RegWrite(Text(request)); });
    Q_UNUSED(answer);
    result.itemName = kBBReg;
    return result;
}
