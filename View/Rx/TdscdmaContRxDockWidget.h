#pragma once

#include "AutoBindingDataModelDockWidget.h"

class CTdscdmaRadbenchCore;

namespace Ui {
class CTdscdmaContRxDockWidget;
}

// The page "Continuous RX": continuous reception on the channel of the chosen band. Start
// turns it on, Stop or turning to another page turns it off.
class CTdscdmaContRxDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaContRxDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaContRxDockWidget() override;

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override;
    void EnableOperation() override;

public slots:
    void Slot_TriggerStopTest() override;
    void on_m_start_clicked();
    void on_m_stop_clicked();
    void Slot_ContRxTestDone(SEachItemOperationResult result);
    void Slot_ContRxTestStopDone(SEachItemOperationResult result);

private:
    CTdscdmaRadbenchCore *m_viewController;
    Ui::CTdscdmaContRxDockWidget *m_ui;
};
