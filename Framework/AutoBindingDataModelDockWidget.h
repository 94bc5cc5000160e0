#pragma once

#include <QDockWidget>
#include <QJsonObject>

#include <string>

#include "MessageBoxMan.h"
#include "SEachItemOperationResult.h"

// Base class of every page. A page supplies a designed form whose widgets
// are named after model paths, and a few operations; on the first show the
// base asks for the page's model and, when it arrives, sets the page up
// from it and tells the form that the page is ready.
class CAutoBindingDataModelDockWidget : public QDockWidget {
    Q_OBJECT
public:
    explicit CAutoBindingDataModelDockWidget(QWidget *parent = nullptr);

    virtual QWidget *GetWidgetRoot() = 0;
    // 0 for a page of a cmdIf model, 1 for a page of calibration data.
    virtual int IsCalDataPage() = 0;
    // Connects the view controller's model signal of this page to
    // Slot_GetDataModelDone and starts the fetch.
    virtual void RequestDataModel() = 0;
    virtual void DisableOperation() = 0;
    virtual void EnableOperation() = 0;

    void StartInit();
    // The short path with the page's interface in front.
    QString ExpandModelPath(const QString &shortPath) const;
    // The presentation of a failed result, with `title` on the box.
    void ShowResultMessage(QString title, SEachItemOperationResult result);

    bool IsModelReady() const { return m_isModelReady; }
    const QJsonObject &Model() const { return m_model; }

signals:
    void Signal_UpdateStatus(QString msg, int timeout = 0);
    void Signal_InitDone();
    void Signal_PluginIsBusy(bool isBusy);

public slots:
    void Slot_GetDataModelDone(std::string dataModelStr);
    // Stops what the page has running, if anything.
    virtual void Slot_TriggerStopTest() = 0;

protected:
    bool event(QEvent *e) override;
    void showEvent(QShowEvent *event) override;

    bool m_isPageStarted = false;
    bool m_isModelReady = false;
    QJsonObject m_model;
    QWidget *m_widgetRoot = nullptr;
    int m_isCalDataPage = 0;
    CMessageBoxMan m_messageBox;
};
