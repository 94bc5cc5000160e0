#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <string>

#include "Capability/TdscdmaCapability.h"
#include "Interface/JsonModel.h"

class CTdscdmaTpc;
class CTdscdmaTadc;

// Where a model keeps a band list: the full path of its `trait.value`.
// The direction is carried along and not looked at.
struct SBandPathDir {
    QString path;
    bool direction = false;
};

// Where a model keeps the UARFCN ranges by band: the full path of the
// member's `trait.valuePair`; true takes the uplink range, false the downlink.
struct SFreqPathDir {
    QString path;
    bool direction = false;
};

// Fits a stored page model to the connected target before the page sees it:
// band lists cut to the supported bands, UARFCN ranges from the 3GPP band
// plan, members the target lacks marked unsupported, captions that follow
// the target's commands. A write that fails marks the model's integrity.
class CTdscdmaDataModelCapUpdater : public IJsonModel {
public:
    CTdscdmaDataModelCapUpdater();

    // The band plan resource as compact JSON text, empty when unreadable.
    std::string Get3gppDataModel();
    // The band plan's row of a band text; null when there is none.
    QJsonValue GetOperatingBand(const QString &band) const;

    bool UpdateBandFreqInDataModel(QJsonObject &model, QList<SBandPathDir> bandPaths, QList<SFreqPathDir> freqPaths,
                                   bool useBandGroups);
    bool UpdateFreqInDataModelBySupportBand(QJsonObject &model, QJsonArray bands, QList<SFreqPathDir> freqPaths,
                                            bool useBandGroups);
    bool UpdateTpcDefaultSupport(CTdscdmaTpc *tpc, QJsonObject &model);
    bool UpdateTpcV3DefaultSupport(QJsonObject &model);
    bool UpdatePathlossDefaultEnableStatus(QJsonObject &model);
    bool UpdateTadcCaption(CTdscdmaTadc *tadc, QJsonObject &model);
    bool UpdateDpchTxDefaultSupport(QJsonObject &model);
    bool UpdateRssiModeList(QJsonObject &model);

    // The texts of the eight test bands and of the five band groups.
    static const QStringList &BandNames();
    static const QStringList &BandGroupNames();

private:
    // Band text to {min, max[, rangeCheck]} for one direction.
    QJsonObject FrequencyMap(QJsonObject &model, const QJsonArray &bands, bool uplink, bool useBandGroups);
    // The captions of the TPC offset or plain power fields.
    bool UpdateTpcCaptions(QJsonObject &model);
    // The TX CLPC members, supported only in TX CLPC mode 1.
    bool UpdateTpcClpcSupport(QJsonObject &model, const QString &compGroup);

    CTdscdmaCapability m_capability;
    QJsonObject m_3gppModel;
};
