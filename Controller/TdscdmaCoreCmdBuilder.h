#pragma once

#include <QJsonObject>

#include <cstdint>

#include "Capability/TdscdmaCapability.h"
#include "Items/STdscdmaUITpcDataByBand.h"
#include "Items/TdscdmaPathlossData.h"
#include "Items/TdscdmaTadc.h"
#include "TavoCore.h"
#include "TestCommandRecords.h"

// Turns a page's model, with its widgets' values under memberValue, into
// the record a target command or an item takes. The one place where a text
// from a widget becomes a stored value.
class CTdscdmaCoreCmdBuilder {
public:
    SAfcStartCmd GetAfcStartCmd(QJsonObject model);
    SDpchTxCmd GetDpchTxCmd(QJsonObject model);
    SRssiCmd GetRssiCmd(QJsonObject model);
    uint16_t GetRegReadAddr(QJsonObject model);
    SRegWriteCmd GetRegWriteCmd(QJsonObject model);

    // The TPC data of the band the model shows: `current` with the values of
    // the model's widgets written over it. `item` is the CTdscdmaTpc that
    // holds the data (null: the record has no max PA power field). Fields the
    // target does not have, or the page does not show, keep their values.
    STdscdmaUITpcDataByBand GetTpcCalDataCmd(void *item, QJsonObject model, STdscdmaUITpcDataByBand current);
    STdscdmaUITpcDataByBandV3 GetTpcCalDataCmdV3(void *item, QJsonObject model, STdscdmaUITpcDataByBandV3 current);

    // The path loss of the band the model shows: `current` with the model's
    // UARFCN row and loss rows (in 1/8 dB on a target with extended AGC,
    // else whole dB) written over it. A loss row the page does not have
    // (a gain mode the target does not support) keeps its values.
    _FTA_tl1cal_pathlossData_T GetPathlossCalDataCmd(QJsonObject model, _FTA_tl1cal_pathlossData_T current);
    _FTA_tl1cal_pathlossData_8level_T GetPathlossCalDataCmdV3(QJsonObject model,
                                                              _FTA_tl1cal_pathlossData_8level_T current);

    // The AFC data of the "AFC Control" model's response group: the initial
    // DAC, the slope (Hz per DAC step) as 4096 over it rounded half away
    // from zero in single precision, and the CAP ID.
    TavoAfcRecord GetAfcCalDataCmd(QJsonObject model);

    // The ADC table of the "TADC" model's second response group, "adc0" to
    // "adc7", each kept in 16 bits.
    CTdscdmaTadc::AdcTable GetTadcCalDataCmd(QJsonObject model);
    // The measure count of the "TADC" model's request.
    uint16_t GetTadcMeasureCount(QJsonObject model);

    // The index of a band group's text: "1850-1930MHz" 0 ... "2300-2400MHz"
    // 4, anything else 0.
    static int GetBandIndexByName(const QString &bandText);

    // The PA mode of a text: "High" 0, "Mid" 1, "Low" 2, anything else 0.
    static uint32_t PaModeOf(const QString &text);
    // The gain mode of a text: "High" 0 ... "Ext3" 7, anything else 0.
    static uint32_t GainModeOf(const QString &text);

private:
    // What the TPC and TPC V3 models share; `groupShift` is 1 for the V3
    // model, whose groups from the fourth on sit one further down.
    void ReadTpcModel(void *item, QJsonObject &model, int groupShift, STdscdmaUITpcDataByBand &data);
    // What the two path loss records share: the rows of `modes` gain modes.
    template <typename Record>
    void ReadPathlossModel(QJsonObject &model, int modes, Record &record);

    CTdscdmaCapability m_capability;
};
