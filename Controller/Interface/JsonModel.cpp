#include "JsonModel.h"

#include <QDebug>
#include <QJsonDocument>
#include <QJsonParseError>

bool IJsonModel::ReadDataModel(QFile &file, QJsonObject &model)
{
    if (!file.open(QIODevice::ReadOnly)) {
        qCritical() << file.fileName() << file.errorString();
        return false;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        qCritical() << file.fileName() << "is invalid data model" << error.offset << error.errorString();
        return false;
    }
    qDebug() << "Get Data Model from Resource" << file.fileName() << "Status" << error.errorString()
             << error.offset;
    model = document.object();
    m_dataModel = model;
    return true;
}
