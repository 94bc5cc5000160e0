#pragma once

#include <QFile>
#include <QJsonObject>

#include <mutex>

// Reads a page's data model from a file or resource and keeps the last one.
class IJsonModel {
public:
    // Parses `file` into `model`; false, with a critical log line, when the
    // file cannot be opened or is not JSON.
    bool ReadDataModel(QFile &file, QJsonObject &model);

protected:
    ~IJsonModel() = default;

    // Models are read on any pool thread.
    std::mutex m_dataModelLock;
    QJsonObject m_dataModel;
};
