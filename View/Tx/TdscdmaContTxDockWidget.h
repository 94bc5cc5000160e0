#pragma once

#include "AutoBindingDataModelDockWidget.h"

class CTdscdmaRadbenchCore;

namespace Ui {
class CTdscdmaContTxDockWidget;
}

// The page "Continuous TX": continuous transmission on the channel of the chosen band. Start
// turns it on, Stop or turning to another page turns it off.
class CTdscdmaContTxDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaContTxDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaContTxDockWidget() override;

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override;
    void EnableOperation() override;

public slots:
    void Slot_TriggerStopTest() override;
    void on_m_start_clicked();
    void on_m_stop_clicked();
    void Slot_ContTxTestDone(SEachItemOperationResult result);
    void Slot_ContTxTestStopDone(SEachItemOperationResult result);

private:
    CTdscdmaRadbenchCore *m_viewController;
    Ui::CTdscdmaContTxDockWidget *m_ui;
};
