#pragma once

#include "AutoBindingDataModelDockWidget.h"

class CTdscdmaRadbenchCore;

// The page "PathLoss".
class CTdscdmaPathlossDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaPathlossDockWidget(QWidget *parent = nullptr);

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 1; }
    void RequestDataModel() override;
    void DisableOperation() override {}
    void EnableOperation() override {}

public slots:
    void Slot_TriggerStopTest() override {}

private:
    CTdscdmaRadbenchCore *m_viewController;
};
