#include "ItemInfo.h"

#include <array>

namespace {

const std::array<SCalItemInfo, CAL_ITEM_END + 1> &CalItems()
{
    static const std::array<SCalItemInfo, CAL_ITEM_END + 1> table{{
        {CAL_ITEM_AFC, "AFC"},
        {CAL_ITEM_RX_PATH_LOSS, "RX Path Loss"},
        {CAL_ITEM_TPC, "TPC"},
        {CAL_ITEM_TADC, "Temperature ADC"},
        {CAL_ITEM_SELF_CAL, "Self Cal"},
        {CAL_ITEM_END, "Error Tdscdma Cal data"},
    }};
    return table;
}

const std::array<SPageItemInfo, PAGE_ITEM_COUNT> &PageItems()
{
    static const std::array<SPageItemInfo, PAGE_ITEM_COUNT> table{{
        {PAGE_ITEM_AFC_CONTROL, "AFC Control"},
        {PAGE_ITEM_CONT_TX, "Continuous TX"},
        {PAGE_ITEM_TPC, "Tpc"},
        {PAGE_ITEM_RX_PATHLOSS, "Rx Pathloss"},
        {PAGE_ITEM_TADC, "Temperature ADC"},
        {PAGE_ITEM_CONT_RX, "Continuous RX"},
        {PAGE_ITEM_DPCH_TX, "Dpch TX"},
        {PAGE_ITEM_RSSI, "Rssi"},
        {PAGE_ITEM_BB_REGISTER, "Baseband Register"},
    }};
    return table;
}

const std::array<SGeneralItemInfo, GENERAL_ITEM_END + 1> &GeneralItems()
{
    static const std::array<SGeneralItemInfo, GENERAL_ITEM_END + 1> table{{
        {GENERAL_ITEM_IMEI, "IMEI"},
        {GENERAL_ITEM_BARCODE, "Barcode"},
        {GENERAL_ITEM_GPS_CO_CLOCK, "GPS Co-Clock"},
        {GENERAL_ITEM_MULTIRAT_TADC, "MultiRat Tadc"},
        {GENERAL_ITEM_MMRF_AFC, "MMRF AFC"},
        {GENERAL_ITEM_MMRF_SELF_CAL, "MMRF Self Cal"},
        {GENERAL_ITEM_END, "Error General Cal data"},
    }};
    return table;
}

template <typename Table>
QMap<QString, int> NameMap(const Table &table, int count)
{
    QMap<QString, int> map;
    for (int i = 0; i < count; ++i)
        map.insert(table[i].name, table[i].id);
    return map;
}

} // namespace

const SCalItemInfo &CalItemInfo(int id) { return CalItems()[id]; }

QString GetPageItemName(int id) { return PageItems()[id].name; }

QString GetGeneralItemName(int id) { return GeneralItems()[id].name; }

QMap<QString, int> BuildCalItemMap() { return NameMap(CalItems(), CAL_ITEM_END); }

QMap<QString, int> BuildPageItemMap() { return NameMap(PageItems(), PAGE_ITEM_COUNT); }

QMap<QString, int> BuildGeneralItemMap() { return NameMap(GeneralItems(), GENERAL_ITEM_END); }
