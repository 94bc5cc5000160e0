#pragma once

#include "Capability/MmrfCapability.h"
#include "Items/TdscdmaTadc.h"
#include "ObjectCalItem.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"

// "Temperature ADC": the ADC table of the temperature sensor, on targets
// whose layer 1 does not serve it itself. The page "Temperature ADC" shows
// it in its second response group.
class CTadcCalItem : public CObjectCalItem<CTdscdmaTadc> {
public:
    CTadcCalItem();

    bool IsSupported() override;
    void SetCalibrationData(const QJsonObject &model) override;
    std::string GetCalibrationData(const QJsonObject &model) override;

    CTdscdmaTadc &TadcObj() { return m_object; }

private:
    CMmrfCapability m_mmrfCapability;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
};
