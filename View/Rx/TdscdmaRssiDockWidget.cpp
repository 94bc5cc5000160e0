#include "TdscdmaRssiDockWidget.h"

#include <QJsonDocument>

#include "PageRegistration.h"
#include "RadbenchLog.h"
#include "TdscdmaRadbenchCore.h"
#include "ui_TdscdmaRssiDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaRssiDockWidget)

CTdscdmaRssiDockWidget::CTdscdmaRssiDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this)),
      m_ui(new Ui::CTdscdmaRssiDockWidget)
{
    m_ui->setupUi(this);
}

CTdscdmaRssiDockWidget::~CTdscdmaRssiDockWidget() { delete m_ui; }

void CTdscdmaRssiDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetRssiDataModelDone, this,
            &CTdscdmaRssiDockWidget::Slot_GetDataModelDone);
    m_viewController->GetRssiDataModel();
}

void CTdscdmaRssiDockWidget::DisableOperation() { m_ui->m_start->setEnabled(false); }

void CTdscdmaRssiDockWidget::EnableOperation() { m_ui->m_start->setEnabled(true); }

void CTdscdmaRssiDockWidget::on_m_start_clicked()
{
    qCDebug(lcView) << "on_m_start_clicked";
    m_ui->m_start->setEnabled(false);
    emit Signal_PluginIsBusy(true);
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_RssiTestDone, this,
            &CTdscdmaRssiDockWidget::Slot_RssiTestDone);
    m_viewController->RssiTest(PackageMemberValue());
}

void CTdscdmaRssiDockWidget::Slot_RssiTestDone(SEachItemOperationResult result, std::string resultDataModel)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_RssiTestDone, this,
               &CTdscdmaRssiDockWidget::Slot_RssiTestDone);
    if (result.errorCode == 0)
        UpdateWidgets(QJsonDocument::fromJson(QByteArray::fromStdString(resultDataModel)).object());
    m_ui->m_start->setEnabled(true);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        emit Signal_UpdateStatus("Rssi test finished", 0);
        return;
    }
    emit Signal_UpdateStatus("Rssi test failed.", 0);
    ShowResultMessage("Rssi test failed", result);
}
