#pragma once

#include <string>

#include "Interface/CoreInterface.h"
#include "Items/GsmDcxoLpm.h"

class CMmrfAfcCalItem;

// The controller of the calibration items that do not belong to the
// TD-SCDMA radio alone: IMEI, barcode, GPS co-clock, the multi-RAT
// temperature ADC, AFC and self calibration (the general items). It moves
// their data like the TD-SCDMA controller moves its own, through the same
// four movements, and has no tests. The AFC page turns to it on targets
// whose multi-RAT layer 1 keeps the AFC data ("MMRF AFC").
//
// A process-wide singleton. What it offers comes from its items, one
// descriptor each (Descriptors/GeneralItemCatalog).
class CGeneralCore : public IRfCoreCalDataOperation {
    Q_OBJECT
public:
    static CGeneralCore *GetInstance();
    ~CGeneralCore() override;

    // IRfCoreCalDataOperation
    void UploadFromFlashInternal(SCalDataRun run) override;
    void SaveToFileInternal(SCalDataRun run) override;
    void LoadFromFileInternal(SCalDataRun run) override;
    void DownloadToFlashInternal(SCalDataRun run) override;
    void ResetCapability() override;
    // The general items serve every radio: always supported.
    SRatSupportStatus GetRatSupportStatus() override;

    virtual void CreateItems();
    // The name of the general item of `id`, or of the row of the item table.
    QString GetGeneralItemName(int id);

    // The AFC values of a page's model of `rat` into "MMRF AFC", and the
    // item's values into such a model (compact JSON text).
    void SetAfcDataFromModel(std::string model, int rat);
    std::string GetModelWithAfcData(std::string model, int rat);

protected:
    // Not a C2K modem's connection.
    bool IsTargetServed() override;

private:
    CGeneralCore();

    CMmrfAfcCalItem *MmrfAfcItem() const;

    // Moved by no flow: the multi-RAT AFC item carries its value.
    CGsmDcxoLpm m_gsmDcxoLpmObj;
};
