#include "TdscdmaPathlossDockWidget.h"

#include "Chart/CalDataChart.h"
#include "PageRegistration.h"
#include "RadbenchLog.h"
#include "ui_TdscdmaPathlossDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaPathlossDockWidget)

namespace {

// The page's box titles go without the status line's full stop.
const CCalDataDockWidget::SOutcome kPathlossUpload{"Read data from target successfully.", "Read data from target failed.",
                                           "Read data from target failed"};
const CCalDataDockWidget::SOutcome kPathlossLoad{"Import data from file successfully.", "Import data from file failed.",
                                         "Import data from file failed"};
const CCalDataDockWidget::SOutcome kPathlossDownload{"Write data to target successfully.", "Write data to target failed.",
                                             "Write data to target failed"};
const CCalDataDockWidget::SOutcome kPathlossSave{"Export data to file successfully.", "Export data to file failed.",
                                         "Export data to file failed"};

} // namespace

CTdscdmaPathlossDockWidget::CTdscdmaPathlossDockWidget(QWidget *parent)
    : CCalDataDockWidget(parent), m_ui(new Ui::CTdscdmaPathlossDockWidget)
{
    m_ui->setupUi(this);
    BindOperationWidgets(m_ui->calDataIf_config_group1_memberProperty_band);
    AttachChart(CCalDataChart::ForPathloss(m_ui->calDataIf_data_group1_memberProperty_uarfcn, this));
}

CTdscdmaPathlossDockWidget::~CTdscdmaPathlossDockWidget() = default;

void CTdscdmaPathlossDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetPathlossDataModelDone, this,
            &CTdscdmaPathlossDockWidget::Slot_GetDataModelDone);
    m_viewController->GetPathlossDataModel();
}

void CTdscdmaPathlossDockWidget::on_m_btnUpload_clicked()
{
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_PathlossUploadFromFlashDone,
                                      &CTdscdmaPathlossDockWidget::Slot_PathlossUploadFromFlashDone);
    m_viewController->PathlossUploadFromFlashStart(model);
}

void CTdscdmaPathlossDockWidget::on_m_btnDownload_clicked()
{
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_PathlossDownloadToFlashDone,
                                      &CTdscdmaPathlossDockWidget::Slot_PathlossDownloadToFlashDone);
    m_viewController->PathlossDownloadToFlashStart(model);
}

void CTdscdmaPathlossDockWidget::on_m_btnLoad_clicked()
{
    QString path;
    if (!ChooseFileToLoad(path))
        return;
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_PathlossLoadFromFileDone,
                                      &CTdscdmaPathlossDockWidget::Slot_PathlossLoadFromFileDone);
    m_viewController->PathlossLoadFromFileStart(path, model);
}

void CTdscdmaPathlossDockWidget::on_m_btnSave_clicked()
{
    QString path;
    if (!ChooseFileToSave(path))
        return;
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_PathlossSaveToFileDone,
                                      &CTdscdmaPathlossDockWidget::Slot_PathlossSaveToFileDone);
    m_viewController->PathlossSaveToFileStart(path, model);
}

void CTdscdmaPathlossDockWidget::Slot_PathlossUploadFromFlashDone(SEachItemOperationResult result,
                                                                  std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_PathlossUploadFromFlashDone,
            &CTdscdmaPathlossDockWidget::Slot_PathlossUploadFromFlashDone);
    ShowReadOutcome(kPathlossUpload, result, resultDataModel);
}

void CTdscdmaPathlossDockWidget::Slot_PathlossLoadFromFileDone(SEachItemOperationResult result,
                                                               std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_PathlossLoadFromFileDone,
            &CTdscdmaPathlossDockWidget::Slot_PathlossLoadFromFileDone);
    if (result.errorCode != ERROR_CODE_SUCCESS)
        qCDebug(lcView) << "Error" << result.errorCode;
    ShowReadOutcome(kPathlossLoad, result, resultDataModel);
}

void CTdscdmaPathlossDockWidget::Slot_PathlossDownloadToFlashDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_PathlossDownloadToFlashDone,
            &CTdscdmaPathlossDockWidget::Slot_PathlossDownloadToFlashDone);
    ShowOutcome(kPathlossDownload, result);
}

void CTdscdmaPathlossDockWidget::Slot_PathlossSaveToFileDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_PathlossSaveToFileDone,
            &CTdscdmaPathlossDockWidget::Slot_PathlossSaveToFileDone);
    ShowOutcome(kPathlossSave, result);
}

void CTdscdmaPathlossDockWidget::on_calDataIf_config_group1_memberProperty_band_currentTextChanged(QString arg1)
{
    ChangeBand(arg1, &CTdscdmaRadbenchCore::SetPathlossCalibrationData,
               &CTdscdmaRadbenchCore::GetPathlossCalibrationData);
}

void CTdscdmaPathlossDockWidget::on_pushButton_clicked()
{
    ClearTable(m_ui->calDataIf_data_group1_memberProperty_uarfcn, 1);
}

void CTdscdmaPathlossDockWidget::on_pushButton_2_clicked()
{
    ClearTable(m_ui->calDataIf_data_group2_memberProperty_loss0, 0);
}
