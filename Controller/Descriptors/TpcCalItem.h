#pragma once

#include "Capability/TdscdmaCapability.h"
#include "Interface/CalItemDescriptor.h"
#include "Items/TdscdmaTpc.h"
#include "Items/TdscdmaTpcV3.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelResponseBuilder.h"

// "TPC": the TX power control data of the band groups, served by the item
// of the target's record generation: the V3 item on structure version 2.
// A page shows one band at a time; the exchange stores and fetches the band
// its model names.
class CTpcCalItem : public CCalItemDescriptor {
public:
    CTpcCalItem();

    bool IsInFile(TIniFile *file) override;
    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override;
    void SetCalibrationData(const QJsonObject &model) override;
    std::string GetCalibrationData(const QJsonObject &model) override;
    QJsonObject GetCalibrationDataModel(const QJsonObject &model) override;

    // The item of the record generation without structure version.
    CTdscdmaTpc &TpcObj() { return m_tpcObj; }
    CTdscdmaTpcV3 &TpcV3Obj() { return m_tpcV3Obj; }
    // The item that serves the connected target.
    CTdscdmaTpc &Tpc();

private:
    bool IsVersion2() { return m_capability.GetNvramVerNum() == FTA_AST_TL1_NVRAM_VERSION_TWO; }
    // The band the model shows, logged under `operation`.
    static int BandOf(const QJsonObject &model, const char *operation);

    CTdscdmaTpc m_tpcObj;
    CTdscdmaTpcV3 m_tpcV3Obj;
    CTdscdmaCapability m_capability;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
};
