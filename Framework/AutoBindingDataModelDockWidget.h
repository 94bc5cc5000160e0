#pragma once

#include <QDockWidget>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QPointer>
#include <QVector>

#include <string>

#include "MessageBoxMan.h"
#include "SEachItemOperationResult.h"

class QTableWidget;

// Base class of every page. A page supplies a designed form whose widgets
// are named after model paths ("cmdIf_request_group1_memberProperty_band" is
// the member cmdIf.request.group1.memberProperty.band) and a few operations;
// the base does the rest:
//  - on the first show it asks for the page's model and, when the text
//    arrives, sets every bound widget up from it (visibility, enabled state,
//    captions, value spaces, tables, defaults, connections);
//  - while the user edits, value and status relevance recompute the widgets
//    that subscribe to a changed one, as the model's publish and subscribe
//    keys say;
//  - it packs the widgets' values into the model for a request, and writes
//    the values of a model that comes back into the response and data widgets.
// The binding is implemented in three parts: the walk at initialisation
// (this file's .cpp), relevance (...Relevance.cpp) and packing and update
// (...Packing.cpp).
class CAutoBindingDataModelDockWidget : public QDockWidget {
    Q_OBJECT
public:
    explicit CAutoBindingDataModelDockWidget(QWidget *parent = nullptr);
    ~CAutoBindingDataModelDockWidget() override;

    virtual QWidget *GetWidgetRoot() = 0;
    // 0 for a page of a cmdIf model, 1 for a page of calibration data.
    virtual int IsCalDataPage() = 0;
    // Connects the view controller's model signal of this page to
    // Slot_GetDataModelDone and starts the fetch.
    virtual void RequestDataModel() = 0;
    virtual void DisableOperation() = 0;
    virtual void EnableOperation() = 0;

    void StartInit();
    void InitWidgets();
    void InitType1Widget(QString path, QWidget *widget);
    void InitType2Widget(QString path, QWidget *widget);
    void InitType3Widget(QString path, QWidget *widget);
    // The value space of a member: `value` of its trait, or the entry of
    // `valuePair` its subscription selects in the model as loaded.
    QJsonValue ResolveValueObject(QJsonValue member, QJsonValue trait);
    // The short path with the page's interface in front.
    QString ExpandModelPath(const QString &shortPath) const;
    // The groupType of the group that holds `path`; 0 when unknown.
    int GetGroupType(const QString &path) const;

    // Writes the widgets' values under memberValue and gives the model as
    // compact JSON text.
    std::string PackageMemberValue();
    // The same, giving the model itself, for a page that works on it before
    // it becomes text.
    const QJsonObject &PackageMemberValueObject();
    void PackageType1Widget(QWidget *widget, QString path);
    void PackageType3Widget(QWidget *widget, QString path);
    // Shows the values of a model that came back in the response and data
    // widgets, then takes the model if its integrity allows.
    void UpdateWidgets(QJsonObject model);
    void UpdateType1Widget(QWidget *widget, QString path, QJsonObject model);
    void UpdateType2Widget(QWidget *widget, QString path, QJsonObject model);
    void UpdateType3Widget(QWidget *widget, QString path, QJsonObject model);
    void CheckDateModelIntegrity(QJsonObject model);

    void ValueRelevanceType1(QString path, QString key);
    void ValueRelevanceType3(QString path, QString key);
    void StatusRelevanceType1(QString path, QString key);
    void StatusRelevanceType3(QString path, QString key);
    // The key of a multi-member subscription from what the widgets show, or
    // from the members' values in the model.
    QString RebuildKeyFromWidgets(QJsonArray list, QJsonObject model);
    QString RebuildKeyFromModel(QJsonArray list, QJsonObject model);

    // The presentation of a failed result, with `title` on the box.
    void ShowResultMessage(QString title, SEachItemOperationResult result);

    bool IsModelReady() const { return m_isModelReady; }
    const QJsonObject &Model() const { return m_model; }

signals:
    void Signal_UpdateStatus(QString msg, int timeout = 0);
    void Signal_InitDone();
    void Signal_PluginIsBusy(bool isBusy);
    // How far the page's running operation has come: `finished` of `total`
    // steps; `finished` equal to `total` ends it.
    void Signal_UpdateProgress(int finished, int total);

public slots:
    void Slot_ValueChange(QString currentText);
    void Slot_EnableStatusChange(QString currentText);
    void Slot_CheckBoxValueChange(int state);
    void Slot_CheckBoxEnableStatusChange(int state);
    void Slot_GetDataModelDone(std::string dataModelStr);
    // Stops what the page has running, if anything.
    virtual void Slot_TriggerStopTest() = 0;

private slots:
    void Slot_RangeCheck();
    void Slot_PointRangeCheck();

protected:
    bool event(QEvent *e) override;
    void showEvent(QShowEvent *event) override;

    bool m_isPageStarted = false;
    bool m_isModelReady = false;
    QJsonObject m_model;
    QWidget *m_widgetRoot = nullptr;
    int m_isCalDataPage = 0;
    // The widgets that take part in packing and update, in the order of the
    // walk at initialisation; found once by that walk, not on every packing.
    QVector<QPointer<QWidget>> m_valueWidgets;
    CMessageBoxMan m_messageBox;

private:
    // What distinguishes the walk of value relevance from that of status
    // relevance: the keys it follows, the operations it calls, its trace.
    struct SRelevanceWalk;
    // The trace of the search for a type 3 subscriber's table, which value
    // and status relevance word differently.
    struct STableSearchTrace;
    void WalkRelevance(const SRelevanceWalk &walk, const QString &currentText);
    // The spin box cells of one table row: limits, tool tip, value (the
    // entry of `values` for the column, or its last), check.
    template <typename Box, typename Range>
    void InitSpinCells(QTableWidget *table, int row, int columns, const Range &range, const QJsonArray &values,
                       const QJsonValue &rangeCheck, bool enabled, int decimals);
    // The same cells after a new value space: the value kept where it is
    // still valid on a calibration page, else the middle or the forced value.
    template <typename Box, typename Range>
    void RecomputeSpinCells(QTableWidget *table, int row, int columns, const Range &range, const QJsonArray &defaults,
                            const QJsonValue &rangeCheck, const QJsonValue &forced);

    // The bound widget of a full path, the first in the page's widget tree.
    QWidget *FindBoundWidget(const QString &path) const;
    // The members of a table group that are supported, in memberList order.
    static QStringList SupportedRows(const QJsonObject &memberProperty, const QJsonArray &memberList);
    // Gives the headers of a table their real size, then fits the table.
    void SizeTable(QTableWidget *table, int columns, bool singleRowTall);
    // The table of the group of a type 3 member, and the member's row.
    QTableWidget *FindGroupTable(const QString &path, const STableSearchTrace &trace, int &row, int &columns);
};
