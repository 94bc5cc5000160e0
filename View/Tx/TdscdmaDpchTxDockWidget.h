#pragma once

#include "AutoBindingDataModelDockWidget.h"

class CTdscdmaRadbenchCore;

namespace Ui {
class CTdscdmaDpchTxDockWidget;
}

// The page "DPCH TX": DPCH transmission with a chosen PA mode, APC data and
// time slot setting, optionally at a fixed power.
class CTdscdmaDpchTxDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaDpchTxDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaDpchTxDockWidget() override;

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override;
    void EnableOperation() override;

public slots:
    void Slot_TriggerStopTest() override;
    void on_m_start_clicked();
    void on_m_stop_clicked();
    void Slot_DpchTxTestDone(SEachItemOperationResult result);
    void Slot_DpchTxTestStopDone(SEachItemOperationResult result);

private:
    CTdscdmaRadbenchCore *m_viewController;
    Ui::CTdscdmaDpchTxDockWidget *m_ui;
};
