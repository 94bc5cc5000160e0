#include "GeneralItemCatalog.h"

#include "Capability/LteRfCapability.h"
#include "Capability/MmrfCapability.h"
#include "ItemInfo.h"
#include "Items/Barcode.h"
#include "Items/GpsCoClock.h"
#include "Items/IMEI.h"
#include "Items/MultiRatSelfCalV7.h"
#include "Items/MultiRatTadc.h"
#include "MmrfAfcCalItem.h"
#include "ObjectCalItem.h"

namespace {

// The IMEIs, whose record count the item asks once per target.
class CImeiItem : public CObjectCalItem<CIMEI> {
public:
    CImeiItem() : CObjectCalItem(GENERAL_ITEM_IMEI, GetGeneralItemName(GENERAL_ITEM_IMEI)) {}
    void ForgetTarget() override { m_object.ResetRecordCount(); }
};

// The multi-RAT radio's self calibration blocks, learned once per target.
class CMmrfSelfCalItem : public CObjectCalItem<CMultiRatSelfCalV7> {
public:
    CMmrfSelfCalItem()
        : CObjectCalItem(GENERAL_ITEM_MMRF_SELF_CAL, GetGeneralItemName(GENERAL_ITEM_MMRF_SELF_CAL), [] {
              CMmrfCapability mmrf;
              return mmrf.IsMmrfSelfCalSupported();
          })
    {
    }
    void ForgetTarget() override { m_object.Reset(); }
};

template <typename Item>
std::unique_ptr<CCalItemDescriptor> Served(int id, std::function<bool()> isSupported)
{
    return std::make_unique<CObjectCalItem<Item>>(id, GetGeneralItemName(id), std::move(isSupported));
}

} // namespace

SGeneralItemCatalog SGeneralItemCatalog::Create()
{
    SGeneralItemCatalog catalog;
    catalog.calItems.push_back(std::make_unique<CImeiItem>());
    catalog.calItems.push_back(Served<CBarcode>(GENERAL_ITEM_BARCODE, {}));
    // The co-clock has a home on the target when the E-RF side keeps it or
    // the database knows its NVRAM record.
    catalog.calItems.push_back(Served<CGpsCoClock>(GENERAL_ITEM_GPS_CO_CLOCK, [] {
        CLteRfCapability lte;
        return lte.IsGpsCoClockByErf() || TAVO_NVRAM_LidExists(CGpsCoClock::kLid) == TAVO_OK;
    }));
    catalog.calItems.push_back(Served<CMultiRatTadc>(GENERAL_ITEM_MULTIRAT_TADC, [] {
        CMmrfCapability mmrf;
        return mmrf.IsTadcByL1();
    }));
    catalog.calItems.push_back(std::make_unique<CMmrfAfcCalItem>());
    catalog.calItems.push_back(std::make_unique<CMmrfSelfCalItem>());
    return catalog;
}
