#include "TdscdmaTpcDockWidget.h"

#include "Chart/CalDataChart.h"
#include "PageRegistration.h"
#include "RadbenchLog.h"
#include "ui_TdscdmaTpcDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaTpcDockWidget)

CTdscdmaTpcDockWidget::CTdscdmaTpcDockWidget(QWidget *parent)
    : CCalDataDockWidget(parent), m_ui(new Ui::CTdscdmaTpcDockWidget)
{
    m_ui->setupUi(this);
    BindOperationWidgets(m_ui->calDataIf_config_group1_memberProperty_band);
    AttachChart(CCalDataChart::ForTpc(
        m_ui->calDataIf_data_group4_memberProperty_paH, m_ui->calDataIf_data_group5_memberProperty_paH,
        {m_ui->calDataIf_data_group2_memberProperty_hysteresisStart0, m_ui->calDataIf_data_group2_memberProperty_hysteresisEnd0,
         m_ui->calDataIf_data_group2_memberProperty_hysteresisStart1, m_ui->calDataIf_data_group2_memberProperty_hysteresisEnd1},
        this));
}

CTdscdmaTpcDockWidget::CTdscdmaTpcDockWidget(QWidget *parent, SOwnForm) : CCalDataDockWidget(parent) {}

CTdscdmaTpcDockWidget::~CTdscdmaTpcDockWidget() = default;

void CTdscdmaTpcDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetTpcDataModelDone, this,
            &CTdscdmaTpcDockWidget::Slot_GetDataModelDone);
    m_viewController->GetTpcDataModel();
}

void CTdscdmaTpcDockWidget::on_m_btnUpload_clicked()
{
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_TpcUploadFromFlashDone,
                                      &CTdscdmaTpcDockWidget::Slot_TpcUploadFromFlashDone);
    m_viewController->TpcUploadFromFlashStart(model);
}

void CTdscdmaTpcDockWidget::on_m_btnDownload_clicked()
{
    // The model carries the shown band's values; they go into the item first.
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_TpcDownloadToFlashDone,
                                      &CTdscdmaTpcDockWidget::Slot_TpcDownloadToFlashDone);
    m_viewController->TpcDownloadToFlashStart(model);
}

void CTdscdmaTpcDockWidget::on_m_btnLoad_clicked()
{
    QString path;
    if (!ChooseFileToLoad(path))
        return;
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_TpcLoadFromFileDone,
                                      &CTdscdmaTpcDockWidget::Slot_TpcLoadFromFileDone);
    m_viewController->TpcLoadFromFileStart(path, model);
}

void CTdscdmaTpcDockWidget::on_m_btnSave_clicked()
{
    QString path;
    if (!ChooseFileToSave(path))
        return;
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_TpcSaveToFileDone,
                                      &CTdscdmaTpcDockWidget::Slot_TpcSaveToFileDone);
    m_viewController->TpcSaveToFileStart(path, model);
}

void CTdscdmaTpcDockWidget::Slot_TpcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TpcUploadFromFlashDone, &CTdscdmaTpcDockWidget::Slot_TpcUploadFromFlashDone);
    ShowReadOutcome(kUpload, result, resultDataModel);
}

void CTdscdmaTpcDockWidget::Slot_TpcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TpcLoadFromFileDone, &CTdscdmaTpcDockWidget::Slot_TpcLoadFromFileDone);
    if (result.errorCode != ERROR_CODE_SUCCESS)
        qCDebug(lcView) << "Error" << result.errorCode;
    ShowReadOutcome(kLoad, result, resultDataModel);
}

void CTdscdmaTpcDockWidget::Slot_TpcDownloadToFlashDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TpcDownloadToFlashDone, &CTdscdmaTpcDockWidget::Slot_TpcDownloadToFlashDone);
    ShowOutcome(kDownload, result);
}

void CTdscdmaTpcDockWidget::Slot_TpcSaveToFileDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TpcSaveToFileDone, &CTdscdmaTpcDockWidget::Slot_TpcSaveToFileDone);
    ShowOutcome(kSave, result);
}

void CTdscdmaTpcDockWidget::on_calDataIf_config_group1_memberProperty_band_currentTextChanged(QString arg1)
{
    ChangeBand(arg1, &CTdscdmaRadbenchCore::SetTpcCalibrationData, &CTdscdmaRadbenchCore::GetTpcCalibrationData);
}
