#include "TdscdmaBBRegDockWidget.h"

#include <QJsonDocument>

#include "PageRegistration.h"
#include "ui_TdscdmaBBRegDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaBBRegDockWidget)

CTdscdmaBBRegDockWidget::CTdscdmaBBRegDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_ui(new Ui::CTdscdmaBBRegDockWidget)
{
    m_ui->setupUi(this);
}

CTdscdmaBBRegDockWidget::~CTdscdmaBBRegDockWidget() { delete m_ui; }

void CTdscdmaBBRegDockWidget::RequestDataModel()
{
    connect(&m_viewController, &CTdscdmaRadbenchCore::Signal_GetBBRegDataModelDone, this,
            &CTdscdmaBBRegDockWidget::Slot_GetDataModelDone);
    m_viewController.GetBBRegDataModel();
}

void CTdscdmaBBRegDockWidget::DisableOperation()
{
    m_ui->m_btnRegRead->setEnabled(false);
    m_ui->m_btnRegWrite->setEnabled(false);
}

void CTdscdmaBBRegDockWidget::EnableOperation()
{
    m_ui->m_btnRegRead->setEnabled(true);
    m_ui->m_btnRegWrite->setEnabled(true);
}

void CTdscdmaBBRegDockWidget::on_m_btnRegRead_clicked()
{
    DisableOperation();
    emit Signal_PluginIsBusy(true);
    connect(&m_viewController, &CTdscdmaRadbenchCore::Signal_RegReadDone, this,
            &CTdscdmaBBRegDockWidget::Slot_RegReadDone);
    m_viewController.RegRead(PackageMemberValue());
}

void CTdscdmaBBRegDockWidget::on_m_btnRegWrite_clicked()
{
    DisableOperation();
    emit Signal_PluginIsBusy(true);
    connect(&m_viewController, &CTdscdmaRadbenchCore::Signal_RegWriteDone, this,
            &CTdscdmaBBRegDockWidget::Slot_RegWriteDone);
    m_viewController.RegWrite(PackageMemberValue());
}

void CTdscdmaBBRegDockWidget::Slot_RegReadDone(SEachItemOperationResult result, std::string resultDataModel)
{
    disconnect(&m_viewController, &CTdscdmaRadbenchCore::Signal_RegReadDone, this,
               &CTdscdmaBBRegDockWidget::Slot_RegReadDone);
    Finish(result, resultDataModel, "Register read successfully.", "Register read failed.", "Register read failed");
}

void CTdscdmaBBRegDockWidget::Slot_RegWriteDone(SEachItemOperationResult result, std::string resultDataModel)
{
    disconnect(&m_viewController, &CTdscdmaRadbenchCore::Signal_RegWriteDone, this,
               &CTdscdmaBBRegDockWidget::Slot_RegWriteDone);
    Finish(result, resultDataModel, "Register write successfully.", "Register write failed.",
           "Register write failed");
}

void CTdscdmaBBRegDockWidget::Finish(const SEachItemOperationResult &result, const std::string &resultDataModel,
                                     const QString &done, const QString &failed, const QString &boxTitle)
{
    if (result.errorCode == 0)
        UpdateWidgets(QJsonDocument::fromJson(QByteArray::fromStdString(resultDataModel)).object());
    EnableOperation();
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == 0) {
        emit Signal_UpdateStatus(done, 0);
        return;
    }
    emit Signal_UpdateStatus(failed, 0);
    ShowResultMessage(boxTitle, result);
}
