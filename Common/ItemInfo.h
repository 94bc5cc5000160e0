#pragma once

#include <QMap>
#include <QString>

// Display names of the calibration items, the pages and the general items.
// The id of a row is its position. The last row of the calibration and the
// general table is an end marker: never operated on, never in a name map.

enum ECalItemId { CAL_ITEM_AFC = 0, CAL_ITEM_RX_PATH_LOSS, CAL_ITEM_TPC, CAL_ITEM_TADC, CAL_ITEM_SELF_CAL, CAL_ITEM_END };

enum EPageItemId {
    PAGE_ITEM_AFC_CONTROL = 0,
    PAGE_ITEM_CONT_TX,
    PAGE_ITEM_TPC,
    PAGE_ITEM_RX_PATHLOSS,
    PAGE_ITEM_TADC,
    PAGE_ITEM_CONT_RX,
    PAGE_ITEM_DPCH_TX,
    PAGE_ITEM_RSSI,
    PAGE_ITEM_BB_REGISTER,
    PAGE_ITEM_COUNT
};

enum EGeneralItemId {
    GENERAL_ITEM_IMEI = 0,
    GENERAL_ITEM_BARCODE,
    GENERAL_ITEM_GPS_CO_CLOCK,
    GENERAL_ITEM_MULTIRAT_TADC,
    GENERAL_ITEM_MMRF_AFC,
    GENERAL_ITEM_MMRF_SELF_CAL,
    GENERAL_ITEM_END
};

struct SCalItemInfo {
    int id;
    QString name;
};

struct SPageItemInfo {
    int id;
    QString name;
};

struct SGeneralItemInfo {
    int id;
    QString name;
};

// Rows by position; the id must lie inside the table (ends included).
const SCalItemInfo &CalItemInfo(int id);
QString GetPageItemName(int id);
QString GetGeneralItemName(int id);

// Name-to-id maps of the real rows (end markers left out).
QMap<QString, int> BuildCalItemMap();
QMap<QString, int> BuildPageItemMap();
QMap<QString, int> BuildGeneralItemMap();
