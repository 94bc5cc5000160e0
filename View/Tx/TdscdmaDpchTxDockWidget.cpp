#include "TdscdmaDpchTxDockWidget.h"

#include "PageRegistration.h"
#include "RadbenchLog.h"
#include "TdscdmaRadbenchCore.h"
#include "ui_TdscdmaDpchTxDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaDpchTxDockWidget)

CTdscdmaDpchTxDockWidget::CTdscdmaDpchTxDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this)),
      m_ui(new Ui::CTdscdmaDpchTxDockWidget)
{
    m_ui->setupUi(this);
}

CTdscdmaDpchTxDockWidget::~CTdscdmaDpchTxDockWidget() { delete m_ui; }

void CTdscdmaDpchTxDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetDpchTxDataModelDone, this,
            &CTdscdmaDpchTxDockWidget::Slot_GetDataModelDone);
    m_viewController->GetDpchTxDataModel();
}

void CTdscdmaDpchTxDockWidget::DisableOperation()
{
    m_ui->m_start->setEnabled(false);
    m_ui->m_stop->setEnabled(false);
}

void CTdscdmaDpchTxDockWidget::EnableOperation()
{
    m_ui->m_start->setEnabled(true);
    m_ui->m_stop->setEnabled(false);
}

void CTdscdmaDpchTxDockWidget::Slot_TriggerStopTest()
{
    if (m_ui->m_stop->isEnabled())
        on_m_stop_clicked();
}

void CTdscdmaDpchTxDockWidget::on_m_start_clicked()
{
    qCDebug(lcView) << "on_m_start_clicked";
    m_ui->m_start->setEnabled(false);
    emit Signal_PluginIsBusy(true);
    const std::string model = PackageMemberValue();
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_DpchTxTestDone, this,
            &CTdscdmaDpchTxDockWidget::Slot_DpchTxTestDone);
    m_viewController->DpchTxTest(model);
}

void CTdscdmaDpchTxDockWidget::Slot_DpchTxTestDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_DpchTxTestDone, this,
               &CTdscdmaDpchTxDockWidget::Slot_DpchTxTestDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        m_ui->m_stop->setEnabled(true);
        emit Signal_UpdateStatus("DPCH TX start...", 0);
        return;
    }
    m_ui->m_start->setEnabled(true);
    emit Signal_UpdateStatus("DPCH Tx start failed.", 0);
    ShowResultMessage("DPCH TX start failed", result);
}

void CTdscdmaDpchTxDockWidget::on_m_stop_clicked()
{
    m_ui->m_stop->setEnabled(false);
    emit Signal_PluginIsBusy(true);
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
            &CTdscdmaDpchTxDockWidget::Slot_DpchTxTestStopDone);
    m_viewController->TestStop();
}

void CTdscdmaDpchTxDockWidget::Slot_DpchTxTestStopDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
               &CTdscdmaDpchTxDockWidget::Slot_DpchTxTestStopDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        m_ui->m_start->setEnabled(true);
        emit Signal_UpdateStatus("DPCH TX stop.", 0);
        return;
    }
    m_ui->m_stop->setEnabled(true);
    emit Signal_UpdateStatus("DPCH TX stop failed.", 0);
    ShowResultMessage("DPCH TX stop failed.", result);
}
