#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <string>

#include "Capability/TdscdmaCapability.h"
#include "Items/STdscdmaUITpcDataByBand.h"
#include "TestCommandRecords.h"

// Writes what the target answered into a page's model, as the texts the
// page shows, and gives the model back as compact JSON text. A model that
// lacks a member comes back as the substitute empty model with the failure.
class CTdscdmaDataModelResponseBuilder {
public:
    // The TPC data of one band as the defaults of the TPC or TPC V3 model's
    // members. A model without calibration data comes back as it is.
    std::string GetTpcDataModel(QJsonObject model, STdscdmaUITpcDataByBand data);
    std::string GetTpcDataModelV3(QJsonObject model, STdscdmaUITpcDataByBandV3 data);

    std::string UpdateTadcMeasureResult(QJsonObject model, QString result);
    std::string UpdateRssiResult(QJsonObject model, bool isAgcEx, SRssiResult result);
    std::string UpdateRegisterResult(QJsonObject model, uint16_t value);

private:
    // What the two TPC models share; `offsets` only for the V3 model.
    std::string WriteTpcModel(QJsonObject &model, const STdscdmaUITpcDataByBand &data,
                              const STdscdmaUITpcDataByBandV3 *offsets);

    CTdscdmaCapability m_capability;
};
