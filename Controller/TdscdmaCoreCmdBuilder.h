#pragma once

#include <QJsonObject>

#include <cstdint>

#include "Capability/TdscdmaCapability.h"
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

    // The PA mode of a text: "High" 0, "Mid" 1, "Low" 2, anything else 0.
    static uint32_t PaModeOf(const QString &text);
    // The gain mode of a text: "High" 0 ... "Ext3" 7, anything else 0.
    static uint32_t GainModeOf(const QString &text);

private:
    CTdscdmaCapability m_capability;
};
