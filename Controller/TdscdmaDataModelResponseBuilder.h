#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <string>

#include "Capability/TdscdmaCapability.h"
#include "Items/STdscdmaUITpcDataByBand.h"
#include "Items/TdscdmaPathlossData.h"
#include "Items/TdscdmaTadc.h"
#include "TavoCore.h"
#include "TestCommandRecords.h"

// Writes what the target answered into a page's model, as the texts the
// page shows, and gives the model back as compact JSON text (or, for the
// band data of the calibration pages, as the model itself). A model that
// lacks a member comes back as the substitute empty model with the failure.
class CTdscdmaDataModelResponseBuilder {
public:
    // The TPC data of one band as the defaults of the TPC or TPC V3 model's
    // members. A model without calibration data comes back as it is.
    std::string GetTpcDataModel(QJsonObject model, STdscdmaUITpcDataByBand data);
    std::string GetTpcDataModelV3(QJsonObject model, STdscdmaUITpcDataByBandV3 data);
    // The same, giving the model itself.
    QJsonObject TpcDataModel(QJsonObject model, const STdscdmaUITpcDataByBand &data);
    QJsonObject TpcDataModelV3(QJsonObject model, const STdscdmaUITpcDataByBandV3 &data);

    // The path loss of one band as the defaults of the path loss model's
    // members: losses in dB with three decimals on a target with extended
    // AGC, else whole numbers. A model without calibration data comes back
    // as it is.
    std::string UpdatePathlossDataModel(QJsonObject &model, _FTA_tl1cal_pathlossData_T data);
    std::string UpdatePathlossDataModelV3(QJsonObject &model, _FTA_tl1cal_pathlossData_8level_T data);
    // The same, giving the model itself.
    QJsonObject PathlossDataModel(QJsonObject &model, const _FTA_tl1cal_pathlossData_T &data);
    QJsonObject PathlossDataModelV3(QJsonObject &model, const _FTA_tl1cal_pathlossData_8level_T &data);

    // The AFC data as the defaults of the "AFC Control" model's response
    // members: the slope as 4096 over the stored inverse.
    std::string GetAfcDataModel(QJsonObject model, TavoAfcRecord data);

    // The ADC table as the defaults of the "TADC" model's "adc0" to "adc7".
    // A model without them gives the bare empty model.
    std::string GetTadcDataModel(QJsonObject model, CTdscdmaTadc::AdcTable adc);
    // The same into `model` itself; false at the first member it lacks.
    bool SetTadcTable(QJsonObject &model, const CTdscdmaTadc::AdcTable &adc);
    // A measure's text (a number, or "Error") as the default of the "adc" label.
    std::string UpdateTadcMeasureResult(QJsonObject model, QString result);
    std::string UpdateRssiResult(QJsonObject model, bool isAgcEx, SRssiResult result);
    std::string UpdateRegisterResult(QJsonObject model, uint16_t value);

private:
    // A row of losses as the page shows them.
    template <size_t N>
    QJsonArray LossColumn(const int16_t (&losses)[N]);
    // What the two TPC models share; `offsets` only for the V3 model.
    QJsonObject WriteTpcModel(QJsonObject &model, const STdscdmaUITpcDataByBand &data,
                              const STdscdmaUITpcDataByBandV3 *offsets);

    CTdscdmaCapability m_capability;
};
