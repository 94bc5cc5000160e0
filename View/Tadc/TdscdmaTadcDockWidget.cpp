#include "TdscdmaTadcDockWidget.h"

#include "PageRegistration.h"
#include "ui_TdscdmaTadcDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaTadcDockWidget)

namespace {

const CCalDataDockWidget::SOutcome kMeasure{"TADC measure successfully.", "TADC measure failed.",
                                            "TADC measure failed"};

} // namespace

CTdscdmaTadcDockWidget::CTdscdmaTadcDockWidget(QWidget *parent)
    : CCalDataDockWidget(parent), m_ui(new Ui::CTdscdmaTadcDockWidget)
{
    m_ui->setupUi(this);
    BindOperationWidgets(nullptr);
}

CTdscdmaTadcDockWidget::~CTdscdmaTadcDockWidget() = default;

void CTdscdmaTadcDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetTadcDataModelDone, this,
            &CTdscdmaTadcDockWidget::Slot_GetDataModelDone);
    m_viewController->GetTadcDataModel();
}

void CTdscdmaTadcDockWidget::SetOperationButtons(bool enabled)
{
    for (QWidget *button : {static_cast<QWidget *>(m_ui->m_btnFetch), static_cast<QWidget *>(m_ui->m_btnLoadFromFile),
                            static_cast<QWidget *>(m_ui->m_btnSaveToFile),
                            static_cast<QWidget *>(m_ui->m_btnUploadFromFlash),
                            static_cast<QWidget *>(m_ui->m_btnDownloadToFlash)})
        button->setEnabled(enabled);
}

void CTdscdmaTadcDockWidget::DisableOperation() { SetOperationButtons(false); }

void CTdscdmaTadcDockWidget::EnableOperation() { SetOperationButtons(true); }

// ---- Buttons ---------------------------------------------------------------------

void CTdscdmaTadcDockWidget::on_m_btnFetch_clicked()
{
    const std::string model =
        Opening(&CTdscdmaRadbenchCore::Signal_TadcMeasureDone, &CTdscdmaTadcDockWidget::Slot_TadcMeasureDone);
    m_viewController->TadcMeasure(model);
}

void CTdscdmaTadcDockWidget::on_m_btnUploadFromFlash_clicked()
{
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_TadcUploadFromFlashDone,
                                      &CTdscdmaTadcDockWidget::Slot_TadcUploadFromFlashDone);
    m_viewController->TadcUploadFromFlashStart(model);
}

void CTdscdmaTadcDockWidget::on_m_btnDownloadToFlash_clicked()
{
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_TadcDownloadToFlashDone,
                                      &CTdscdmaTadcDockWidget::Slot_TadcDownloadToFlashDone);
    m_viewController->TadcDownloadToFlashStart(model);
}

void CTdscdmaTadcDockWidget::on_m_btnLoadFromFile_clicked()
{
    QString path;
    if (!ChooseFileToLoad(path))
        return;
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_TadcLoadFromFileDone,
                                      &CTdscdmaTadcDockWidget::Slot_TadcLoadFromFileDone);
    m_viewController->TadcLoadFromFileStart(path, model);
}

void CTdscdmaTadcDockWidget::on_m_btnSaveToFile_clicked()
{
    QString path;
    if (!ChooseFileToSave(path))
        return;
    const std::string model =
        Opening(&CTdscdmaRadbenchCore::Signal_TadcSaveToFileDone, &CTdscdmaTadcDockWidget::Slot_TadcSaveToFileDone);
    m_viewController->TadcSaveToFileStart(path, model);
}

// ---- Done slots ------------------------------------------------------------------

void CTdscdmaTadcDockWidget::Slot_TadcMeasureDone(SEachItemOperationResult result, std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TadcMeasureDone, &CTdscdmaTadcDockWidget::Slot_TadcMeasureDone);
    // A failed measure comes back too: its label reads "Error".
    UpdateWidgets(Parse(resultDataModel));
    ShowOutcome(kMeasure, result);
}

void CTdscdmaTadcDockWidget::Slot_TadcUploadFromFlashDone(SEachItemOperationResult result,
                                                          std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TadcUploadFromFlashDone,
            &CTdscdmaTadcDockWidget::Slot_TadcUploadFromFlashDone);
    ShowReadOutcome(kTestPageUpload, result, resultDataModel);
}

void CTdscdmaTadcDockWidget::Slot_TadcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TadcLoadFromFileDone, &CTdscdmaTadcDockWidget::Slot_TadcLoadFromFileDone);
    ShowReadOutcome(kTestPageLoad, result, resultDataModel);
}

void CTdscdmaTadcDockWidget::Slot_TadcDownloadToFlashDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TadcDownloadToFlashDone,
            &CTdscdmaTadcDockWidget::Slot_TadcDownloadToFlashDone);
    ShowOutcome(kTestPageDownload, result);
}

void CTdscdmaTadcDockWidget::Slot_TadcSaveToFileDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_TadcSaveToFileDone, &CTdscdmaTadcDockWidget::Slot_TadcSaveToFileDone);
    ShowOutcome(kTestPageSave, result);
}
