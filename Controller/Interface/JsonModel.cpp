#include "JsonModel.h"

#include <QJsonDocument>
#include <QJsonParseError>

#include "RadbenchLog.h"

bool IJsonModel::ReadDataModel(QFile &file, QJsonObject &model)
{
    if (!file.open(QIODevice::ReadOnly)) {
        qCCritical(lcController) << file.fileName() << file.errorString();
        return false;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        qCCritical(lcController) << file.fileName() << "is invalid data model" << error.offset << error.errorString();
        return false;
    }
    qCDebug(lcController) << "Get Data Model from Resource" << file.fileName() << "Status" << error.errorString()
             << error.offset;
    model = document.object();
    std::lock_guard<std::mutex> lock(m_dataModelLock);
    m_dataModel = model;
    return true;
}
