#pragma once

#include "Capability/MmrfCapability.h"
#include "Items/MmrfAfc.h"
#include "ObjectCalItem.h"

// "MMRF AFC": the AFC data of targets whose multi-RAT layer 1 keeps them.
// The AFC page moves its data through this item on such targets; its model
// carries them in the response group ("initAfcdac", "slope" in Hz per DAC
// step, "capId").
class CMmrfAfcCalItem : public CObjectCalItem<CMmrfAfc> {
public:
    // The radio access technology the AFC page's data belong to.
    static constexpr int kPageRat = 1;

    CMmrfAfcCalItem();

    bool IsSupported() override;
    void SetCalibrationData(const QJsonObject &model) override { SetDataFromModel(model, kPageRat); }
    std::string GetCalibrationData(const QJsonObject &model) override { return GetModelWithData(model, kPageRat); }

    // The values of a model's response group of `rat` into the item; a rat
    // whose models carry no AFC data (2, above 5) leaves the item as it was.
    void SetDataFromModel(const QJsonObject &model, int rat);
    // `model` with the item's values as the response members' defaults,
    // as compact JSON text; a rat without AFC data gives the empty model
    // with the reason.
    std::string GetModelWithData(QJsonObject model, int rat);

private:
    CMmrfCapability m_capability;
};
