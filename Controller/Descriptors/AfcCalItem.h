#pragma once

#include "Capability/MmrfCapability.h"
#include "Items/TdscdmaAfc.h"
#include "ObjectCalItem.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"

// "AFC": the AFC calibration data of targets whose layer 1 does not keep
// them itself. The page "AFC Control" shows them in its response group; on
// targets whose layer 1 keeps them the page's data go to the general
// controller's multi-RAT AFC item instead.
class CAfcCalItem : public CObjectCalItem<CTdscdmaAfc> {
public:
    CAfcCalItem();

    bool IsSupported() override;
    // The general controller's "MMRF AFC" on targets whose layer 1 keeps the AFC data.
    SCalDataRoute Route(IRfCoreCalDataOperation *owner) override;
    void SetCalibrationData(const QJsonObject &model) override;
    std::string GetCalibrationData(const QJsonObject &model) override;

    CTdscdmaAfc &AfcObj() { return m_object; }

private:
    CMmrfCapability m_mmrfCapability;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
};
