#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <string>

#include "Capability/TdscdmaCapability.h"
#include "TestCommandRecords.h"

// Writes what the target answered into a page's model, as the texts the
// page shows, and gives the model back as compact JSON text. A model that
// lacks a member comes back as the substitute empty model with the failure.
class CTdscdmaDataModelResponseBuilder {
public:
    std::string UpdateTadcMeasureResult(QJsonObject model, QString result);
    std::string UpdateRssiResult(QJsonObject model, bool isAgcEx, SRssiResult result);
    std::string UpdateRegisterResult(QJsonObject model, uint16_t value);

private:
    CTdscdmaCapability m_capability;
};
