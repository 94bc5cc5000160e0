#pragma once

#include <QString>
#include <QStringList>

#include <string>

#include "JsonModel.h"

// The test face of the controller: pages' models, tests and stops.
class IRfTest : public IJsonModel {
public:
    virtual QStringList GetInitPageList() = 0;
    virtual std::string GetDataModel(QString pageName) = 0;
    virtual void TestStart(QString item, std::string request) = 0;
    virtual void TestStop() = 0;

protected:
    ~IRfTest() = default;
};
