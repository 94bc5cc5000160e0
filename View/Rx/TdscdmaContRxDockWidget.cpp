#include "TdscdmaContRxDockWidget.h"

#include "PageRegistration.h"
#include "RadbenchLog.h"
#include "TdscdmaRadbenchCore.h"
#include "ui_TdscdmaContRxDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaContRxDockWidget)

CTdscdmaContRxDockWidget::CTdscdmaContRxDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this)),
      m_ui(new Ui::CTdscdmaContRxDockWidget)
{
    m_ui->setupUi(this);
}

CTdscdmaContRxDockWidget::~CTdscdmaContRxDockWidget() { delete m_ui; }

void CTdscdmaContRxDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetContRxDataModelDone, this,
            &CTdscdmaContRxDockWidget::Slot_GetDataModelDone);
    m_viewController->GetContRxDataModel();
}

void CTdscdmaContRxDockWidget::DisableOperation()
{
    m_ui->m_start->setEnabled(false);
    m_ui->m_stop->setEnabled(false);
}

void CTdscdmaContRxDockWidget::EnableOperation()
{
    m_ui->m_start->setEnabled(true);
    m_ui->m_stop->setEnabled(false);
}

void CTdscdmaContRxDockWidget::Slot_TriggerStopTest()
{
    if (m_ui->m_stop->isEnabled())
        on_m_stop_clicked();
}

void CTdscdmaContRxDockWidget::on_m_start_clicked()
{
    qCDebug(lcView) << "on_m_start_clicked";
    m_ui->m_start->setEnabled(false);
    emit Signal_PluginIsBusy(true);
    const std::string model = PackageMemberValue();
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_ContRxTestDone, this,
            &CTdscdmaContRxDockWidget::Slot_ContRxTestDone);
    m_viewController->ContRxTest(model);
}

void CTdscdmaContRxDockWidget::Slot_ContRxTestDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_ContRxTestDone, this,
               &CTdscdmaContRxDockWidget::Slot_ContRxTestDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        m_ui->m_stop->setEnabled(true);
        emit Signal_UpdateStatus("Cont Rx start...", 0);
        return;
    }
    m_ui->m_start->setEnabled(true);
    emit Signal_UpdateStatus("Cont Rx start failed.", 0);
    ShowResultMessage("Cont Rx start failed", result);
}

void CTdscdmaContRxDockWidget::on_m_stop_clicked()
{
    m_ui->m_stop->setEnabled(false);
    emit Signal_PluginIsBusy(true);
    // The target stops the test on the channel it runs on.
    const std::string model = PackageMemberValue();
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
            &CTdscdmaContRxDockWidget::Slot_ContRxTestStopDone);
    m_viewController->ContRxTestStop(model);
}

void CTdscdmaContRxDockWidget::Slot_ContRxTestStopDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
               &CTdscdmaContRxDockWidget::Slot_ContRxTestStopDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        m_ui->m_start->setEnabled(true);
        emit Signal_UpdateStatus("Cont Rx stop.", 0);
        return;
    }
    m_ui->m_stop->setEnabled(true);
    emit Signal_UpdateStatus("Cont Rx stop failed.", 0);
    ShowResultMessage("Cont Rx stop failed.", result);
}
