#pragma once

#include "AutoBindingDataModelDockWidget.h"

class CTdscdmaRadbenchCore;

namespace Ui {
class CTdscdmaRssiDockWidget;
}

// The page "RSSI": one measure of the received signal at a chosen channel,
// gain and mode, with the answer shown in the page.
class CTdscdmaRssiDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaRssiDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaRssiDockWidget() override;

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override;
    void EnableOperation() override;

public slots:
    void Slot_TriggerStopTest() override {}
    void on_m_start_clicked();
    void Slot_RssiTestDone(SEachItemOperationResult result, std::string resultDataModel);

private:
    CTdscdmaRadbenchCore *m_viewController;
    Ui::CTdscdmaRssiDockWidget *m_ui;
};
