#pragma once

#include "AutoBindingDataModelDockWidget.h"

class CTdscdmaRadbenchCore;

// The page "Baseband Register".
class CTdscdmaBBRegDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaBBRegDockWidget(QWidget *parent = nullptr);

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override {}
    void EnableOperation() override {}

public slots:
    void Slot_TriggerStopTest() override {}

private:
    CTdscdmaRadbenchCore *m_viewController;
};
