#pragma once

#include "Capability/TdscdmaCapability.h"
#include "Interface/CalItemDescriptor.h"
#include "Items/TdscdmaPathLoss.h"
#include "Items/TdscdmaPathLossV2.h"
#include "Items/TdscdmaPathLossV3.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"

// "RX Path Loss": the RX path loss of the band groups, served by the item of
// the target's generation: the 8-level commands with path loss V3, the
// four-mode commands on other targets with a structure version, the NVRAM
// records on the rest. A target with the RX extend mode but no structure
// version has no item to serve it: every movement answers code 2 with the
// reason, and nothing reaches the target or the file.
class CPathlossCalItem : public CCalItemDescriptor {
public:
    CPathlossCalItem();

    bool IsInFile(TIniFile *file) override;
    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override;
    void SetCalibrationData(const QJsonObject &model) override;
    std::string GetCalibrationData(const QJsonObject &model) override;
    QJsonObject GetCalibrationDataModel(const QJsonObject &model) override;

    CTdscdmaPathLoss &PathLossObj() { return m_pathLossObj; }
    CTdscdmaPathLossV2 &PathLossV2Obj() { return m_pathLossV2Obj; }
    CTdscdmaPathLossV3 &PathLossV3Obj() { return m_pathLossV3Obj; }
    // The item that holds the data of the connected target's generation (the
    // record item also where no item can move them).
    CTdscdmaPathLoss &PathLoss();

    static const char *const kNoItemMessage;

private:
    bool IsV3() { return m_capability.IsNvramVerValid() && m_capability.IsPathlossV3(); }

    CTdscdmaPathLoss m_pathLossObj;
    CTdscdmaPathLossV2 m_pathLossV2Obj;
    CTdscdmaPathLossV3 m_pathLossV3Obj;
    CTdscdmaCapability m_capability;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
};
