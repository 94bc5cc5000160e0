#pragma once

#include "AutoBindingDataModelDockWidget.h"
#include "TdscdmaRadbenchCore.h"

namespace Ui {
class CTdscdmaBBRegDockWidget;
}

// The page "Baseband Register": reads a register of the target's baseband
// and writes one. The two buttons act as one: while either runs, both rest.
class CTdscdmaBBRegDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaBBRegDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaBBRegDockWidget() override;

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override;
    void EnableOperation() override;

public slots:
    void Slot_TriggerStopTest() override {}
    void on_m_btnRegRead_clicked();
    void on_m_btnRegWrite_clicked();
    void Slot_RegReadDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_RegWriteDone(SEachItemOperationResult result, std::string resultDataModel);

private:
    // The end of either operation: both buttons back, the answer shown.
    void Finish(const SEachItemOperationResult &result, const std::string &resultDataModel, const QString &done,
                const QString &failed, const QString &boxTitle);

    CTdscdmaRadbenchCore m_viewController;
    Ui::CTdscdmaBBRegDockWidget *m_ui;
};
