#pragma once

#include "Capability/MmrfCapability.h"
#include "Interface/CalItemDescriptor.h"
#include "Items/TdscdmaAfc.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"

// "AFC": the AFC calibration data of targets whose layer 1 does not keep
// them itself (there the multi-RAT AFC item stands in its place). The page
// "AFC Control" shows them in its response group.
class CAfcCalItem : public CCalItemDescriptor {
public:
    CAfcCalItem();

    bool IsSupported() override;
    bool IsInFile(TIniFile *file) override;
    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override;
    void SetCalibrationData(const QJsonObject &model) override;
    std::string GetCalibrationData(const QJsonObject &model) override;

    CTdscdmaAfc &AfcObj() { return m_afcObj; }

private:
    CTdscdmaAfc m_afcObj;
    CMmrfCapability m_mmrfCapability;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
};
