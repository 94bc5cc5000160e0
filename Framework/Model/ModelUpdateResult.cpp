#include "ModelUpdateResult.h"

#include <QJsonArray>
#include <QJsonDocument>

#include "JsonPath.h"
#include "RadbenchLog.h"

namespace {

const QString kIntegrity = "modelIntegrity";

} // namespace

void InsertModelUpdateResult(QJsonObject &model, bool allCorrect, QString errorMessage)
{
    qCDebug(lcFramework) << "======> InsertModelUpdateResult";
    if (model.contains(kIntegrity)) {
        qCDebug(lcFramework) << "======> Has defined the modelIntegrity: remove it!";
        model.remove(kIntegrity);
    }
    const QJsonArray messages{errorMessage};
    qCDebug(lcFramework) << "======> InsertModelUpdateResult allCorrect: " << allCorrect << "errorMes: " << messages;
    model.insert(kIntegrity, QJsonObject{{"integrity", allCorrect}, {"messageList", messages}});
}

void AddModelUpdateResult(QJsonObject &model, bool allCorrect, QString errorMessage)
{
    qCDebug(lcFramework) << "AddModelUpdateResult";
    if (IsJsonPathMissing(model, kIntegrity)) {
        InsertModelUpdateResult(model, allCorrect, errorMessage);
        return;
    }
    QJsonArray messages = GetJsonValueConst(model, "modelIntegrity.messageList").toArray();
    messages.append(errorMessage);
    qCDebug(lcFramework) << "======> AddModelUpdateResult allCorrect: " << allCorrect << "errorMes: " << messages;
    if (!allCorrect && !SetJsonValue(model, "modelIntegrity.integrity", false))
        return;
    SetJsonValue(model, "modelIntegrity.messageList", messages);
}

std::string BuildEmptyModelString() { return ModelText(QJsonObject{{"emptyModel", ""}}); }

std::string BuildEmptyModelStringWithError(QString errorMessage)
{
    return ModelText(BuildEmptyModelWithError(errorMessage));
}

QJsonObject BuildEmptyModelWithError(const QString &errorMessage)
{
    QJsonObject model{{"emptyModel", ""}};
    InsertModelUpdateResult(model, false, errorMessage);
    return model;
}

std::string ModelText(const QJsonObject &model)
{
    return QJsonDocument(model).toJson(QJsonDocument::Compact).toStdString();
}
