#include "TdscdmaContTxDockWidget.h"

#include "PageRegistration.h"
#include "RadbenchLog.h"
#include "TdscdmaRadbenchCore.h"
#include "ui_TdscdmaContTxDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaContTxDockWidget)

CTdscdmaContTxDockWidget::CTdscdmaContTxDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this)),
      m_ui(new Ui::CTdscdmaContTxDockWidget)
{
    m_ui->setupUi(this);
}

CTdscdmaContTxDockWidget::~CTdscdmaContTxDockWidget() { delete m_ui; }

void CTdscdmaContTxDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetContTxDataModelDone, this,
            &CTdscdmaContTxDockWidget::Slot_GetDataModelDone);
    m_viewController->GetContTxDataModel();
}

void CTdscdmaContTxDockWidget::DisableOperation()
{
    m_ui->m_start->setEnabled(false);
    m_ui->m_stop->setEnabled(false);
}

void CTdscdmaContTxDockWidget::EnableOperation()
{
    m_ui->m_start->setEnabled(true);
    m_ui->m_stop->setEnabled(false);
}

void CTdscdmaContTxDockWidget::Slot_TriggerStopTest()
{
    if (m_ui->m_stop->isEnabled())
        on_m_stop_clicked();
}

void CTdscdmaContTxDockWidget::on_m_start_clicked()
{
    qCDebug(lcView) << "on_m_start_clicked";
    m_ui->m_start->setEnabled(false);
    emit Signal_PluginIsBusy(true);
    const std::string model = PackageMemberValue();
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_ContTxTestDone, this,
            &CTdscdmaContTxDockWidget::Slot_ContTxTestDone);
    m_viewController->ContTxTest(model);
}

void CTdscdmaContTxDockWidget::Slot_ContTxTestDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_ContTxTestDone, this,
               &CTdscdmaContTxDockWidget::Slot_ContTxTestDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        m_ui->m_stop->setEnabled(true);
        emit Signal_UpdateStatus("Cont Tx start...", 0);
        return;
    }
    m_ui->m_start->setEnabled(true);
    emit Signal_UpdateStatus("Cont Tx start failed.", 0);
    ShowResultMessage("Cont Tx start failed", result);
}

void CTdscdmaContTxDockWidget::on_m_stop_clicked()
{
    m_ui->m_stop->setEnabled(false);
    emit Signal_PluginIsBusy(true);
    // The target stops the test on the channel it runs on.
    const std::string model = PackageMemberValue();
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
            &CTdscdmaContTxDockWidget::Slot_ContTxTestStopDone);
    m_viewController->ContTxTestStop(model);
}

void CTdscdmaContTxDockWidget::Slot_ContTxTestStopDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
               &CTdscdmaContTxDockWidget::Slot_ContTxTestStopDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        m_ui->m_start->setEnabled(true);
        emit Signal_UpdateStatus("Cont Tx stop.", 0);
        return;
    }
    m_ui->m_stop->setEnabled(true);
    emit Signal_UpdateStatus("Cont Tx stop failed.", 0);
    ShowResultMessage("Cont Tx stop failed.", result);
}
