#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <functional>

#include "TestRun.h"

class CTdscdmaDataModelCapUpdater;

// A page's stored model and how the controller fits it to the target.
struct SPageModel {
    // The resource of the stored model.
    QString resource;
    // Where the model keeps its band list (the full path of its trait.value)
    // and the UARFCN ranges by band (of trait.valuePair); none when empty.
    QString bandPath;
    QString freqPath;
    // Uplink or downlink ranges; the eight test bands or the five band groups.
    bool uplink = false;
    bool bandGroups = false;
    // What the item fits beyond bands and ranges, once they are in.
    using Update = std::function<void(CTdscdmaDataModelCapUpdater &, QJsonObject &)>;
    Update update;

    // A test page: band list and ranges in the request's group1, over the
    // eight test bands.
    static SPageModel ForTestPage(QString resource, bool uplink, Update update = {});
    // A calibration data page: band list in the config group, over the five
    // band groups, ranges at `freqPath`.
    static SPageModel ForCalDataPage(QString resource, QString freqPath, bool uplink, Update update = {});
    // A page without bands.
    static SPageModel WithoutBands(QString resource, Update update = {});
};

// One page item as the controller serves it: the page the window builds for
// it, the page's model, and the test and stop the page asks for. The
// descriptor owns the target operations its test needs. Adding a page to
// the tool is adding its descriptor (see TdscdmaItemCatalog) and its page.
//
// Test and Stop run on a pool thread; Model and PageClass on the thread of
// the caller (a pool thread too).
class CPageItemDescriptor {
public:
    // What the page's test is: none, one measure or command that ends by
    // itself, or one that holds the target until its stop.
    enum class ETestKind { None, Single, Held };

    // `pageClass` names the page's class, as the window builds it.
    CPageItemDescriptor(int id, QString name, QString pageClass, SPageModel model);
    virtual ~CPageItemDescriptor();

    CPageItemDescriptor(const CPageItemDescriptor &) = delete;
    CPageItemDescriptor &operator=(const CPageItemDescriptor &) = delete;

    int Id() const { return m_id; }
    const QString &Name() const { return m_name; }

    // The class of the item's page on the connected target; empty when the
    // target gets no such page.
    virtual QString PageClass();
    // The stored model of the page on the connected target.
    virtual SPageModel Model();
    // The page's test, into `run`. An item without a test of its own ends
    // as not executed (code 2) without a target call.
    virtual void Test(STestRun &run);
    virtual ETestKind TestKind() const { return ETestKind::None; }
    // The stop of the page's test, into `run`; false when the controller's
    // common stop serves the item.
    virtual bool Stop(STestRun &run);

protected:
    // The channel of a test's request ("cmdIf.request.group1.memberValue.uarfcn"), cut to 16 bits.
    static uint16_t RequestUarfcn(const QJsonObject &request);

private:
    const int m_id;
    const QString m_name;
    const QString m_pageClass;
    const SPageModel m_model;
};
