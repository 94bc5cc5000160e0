#include "TdscdmaAfcDockWidget.h"

#include "AfcSlopeCalculator.h"
#include "PageRegistration.h"
#include "RadbenchLog.h"
#include "ui_TdscdmaAfcDockWidget.h"

RADBENCH_REGISTER_PAGE(CTdscdmaAfcDockWidget)

namespace {

const char *const kTitle = "AFC Control";
const CCalDataDockWidget::SOutcome kAfcUpload{"Read data from target successfully.", "Read data from target failed.",
                                              "Upload data from flash failed"};

// A decimal integer kept in 16 bits and taken as signed.
int16_t SignedWord(const QString &text) { return int16_t(uint16_t(text.toLongLong(nullptr, 10))); }

} // namespace

CTdscdmaAfcDockWidget::CTdscdmaAfcDockWidget(QWidget *parent)
    : CCalDataDockWidget(parent), m_ui(new Ui::CTdscdmaAfcDockWidget)
{
    m_ui->setupUi(this);
    BindOperationWidgets(nullptr);
}

CTdscdmaAfcDockWidget::~CTdscdmaAfcDockWidget() = default;

void CTdscdmaAfcDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetAfcDataModelDone, this,
            &CTdscdmaAfcDockWidget::Slot_GetDataModelDone);
    m_viewController->GetAfcDataModel();
}

void CTdscdmaAfcDockWidget::SetOperationButtons(bool enabled)
{
    for (QWidget *button : {static_cast<QWidget *>(m_ui->m_btnExport), static_cast<QWidget *>(m_ui->m_btnWrite),
                            static_cast<QWidget *>(m_ui->m_btnRead), static_cast<QWidget *>(m_ui->m_btnImport),
                            static_cast<QWidget *>(m_ui->m_btnCalculate), static_cast<QWidget *>(m_ui->m_start),
                            static_cast<QWidget *>(m_ui->m_stop)})
        button->setEnabled(enabled);
}

void CTdscdmaAfcDockWidget::DisableOperation() { SetOperationButtons(false); }

void CTdscdmaAfcDockWidget::EnableOperation()
{
    SetOperationButtons(true);
    m_ui->m_stop->setEnabled(false);
}

// ---- The AFC test ------------------------------------------------------------------

void CTdscdmaAfcDockWidget::Slot_TriggerStopTest()
{
    if (m_ui->m_stop->isEnabled())
        on_m_stop_clicked();
}

void CTdscdmaAfcDockWidget::on_m_start_clicked()
{
    SetOperationButtons(false);
    emit Signal_PluginIsBusy(true);
    const std::string model = PackageMemberValue();
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_AfcTestDone, this, &CTdscdmaAfcDockWidget::Slot_AfcTestDone);
    m_viewController->AfcTest(model);
}

void CTdscdmaAfcDockWidget::Slot_AfcTestDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_AfcTestDone, this,
               &CTdscdmaAfcDockWidget::Slot_AfcTestDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == ERROR_CODE_SUCCESS) {
        // Running: the stop is the only button in reach.
        SetOperationButtons(false);
        m_ui->m_stop->setEnabled(true);
        emit Signal_UpdateStatus("AFC start...", 0);
        return;
    }
    EnableOperation();
    emit Signal_UpdateStatus("AFC start failed.", 0);
    ShowResultMessage("AFC start failed", result);
}

void CTdscdmaAfcDockWidget::on_m_stop_clicked()
{
    SetOperationButtons(false);
    emit Signal_PluginIsBusy(true);
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
            &CTdscdmaAfcDockWidget::Slot_AfcTestStopDone);
    m_viewController->TestStop();
}

void CTdscdmaAfcDockWidget::Slot_AfcTestStopDone(SEachItemOperationResult result)
{
    disconnect(m_viewController, &CTdscdmaRadbenchCore::Signal_TestStopDone, this,
               &CTdscdmaAfcDockWidget::Slot_AfcTestStopDone);
    emit Signal_PluginIsBusy(false);
    if (result.errorCode == ERROR_CODE_SUCCESS) {
        EnableOperation();
        emit Signal_UpdateStatus("AFC stop.", 0);
        return;
    }
    // Still running: the user can try again.
    SetOperationButtons(false);
    m_ui->m_stop->setEnabled(true);
    emit Signal_UpdateStatus("AFC stop failed.", 0);
    ShowResultMessage("AFC stop failed", result);
}

// ---- The calculator ------------------------------------------------------------

void CTdscdmaAfcDockWidget::on_m_btnCalculate_clicked()
{
    const QString error1 = m_ui->m_edtFreqError1->text();
    const QString error2 = m_ui->m_edtFreqError2->text();
    if (error1.isEmpty() || error2.isEmpty()) {
        m_messageBox.ShowMessage(CMessageBoxMan::KIND_WARNING, kTitle,
                                 "Please both fill the value into the field \"Frequency Error 1\" and \"Frequency Error 2\"",
                                 QString(), QString(), -1);
        return;
    }
    if (error1 == error2) {
        m_messageBox.ShowMessage(CMessageBoxMan::KIND_ERROR, kTitle,
                                 "\"Frequency Error 1\" and \"Frequency Error 2\" must be different!", QString(),
                                 QString(), -1);
        return;
    }
    emit Signal_PluginIsBusy(true);
    const int16_t d0 = SignedWord(m_ui->cmdIf_request_group1_memberProperty_afcdac1->text());
    const int16_t d1 = SignedWord(m_ui->cmdIf_request_group1_memberProperty_afcdac2->text());
    const double f0 = error1.toDouble();
    const double f1 = error2.toDouble();
    const uint16_t uarfcn = uint16_t(m_ui->cmdIf_request_group1_memberProperty_uarfcn->text().toLongLong(nullptr, 10));
    const CAfcSlopeCalculator::SResult result = CAfcSlopeCalculator::Evaluate(d0, d1, f0, f1, uarfcn);
    m_ui->cmdIf_response_group1_memberProperty_initAfcdac->setValue(result.initAfcDac);
    m_ui->cmdIf_response_group1_memberProperty_slope->setValue(result.slope);
    qCDebug(lcView, "[CTdscdmaAfcDockWidget] CTdscdmaAfcDockWidget::Evaluate==== >d0[%d], d1[%d], f0[%f]  f1[%f]", d0,
            d1, f0, f1);
    qCDebug(lcView, "[CTdscdmaAfcDockWidget] CTdscdmaAfcDockWidget::Evaluate==== >afcSlopeFactor[%f]",
            double(result.slopeFactor));
    qCDebug(lcView, "[CTdscdmaAfcDockWidget] CTdscdmaAfcDockWidget::Evaluate==== >fdata[%f]", double(result.initAfcDac));
    emit Signal_PluginIsBusy(false);
}

// ---- Calibration data ------------------------------------------------------------

void CTdscdmaAfcDockWidget::on_m_btnRead_clicked()
{
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_AfcUploadFromFlashDone,
                                      &CTdscdmaAfcDockWidget::Slot_AfcUploadFromFlashDone);
    m_viewController->AfcUploadFromFlashStart(model);
}

void CTdscdmaAfcDockWidget::on_m_btnWrite_clicked()
{
    const std::string model = Opening(&CTdscdmaRadbenchCore::Signal_AfcDownloadToFlashDone,
                                      &CTdscdmaAfcDockWidget::Slot_AfcDownloadToFlashDone);
    m_viewController->AfcDownloadToFlashStart(model);
}

void CTdscdmaAfcDockWidget::on_m_btnImport_clicked()
{
    QString path;
    if (!ChooseFileToLoad(path))
        return;
    const std::string model =
        Opening(&CTdscdmaRadbenchCore::Signal_AfcLoadFromFileDone, &CTdscdmaAfcDockWidget::Slot_AfcLoadFromFileDone);
    m_viewController->AfcLoadFromFileStart(path, model);
}

void CTdscdmaAfcDockWidget::on_m_btnExport_clicked()
{
    QString path;
    if (!ChooseFileToSave(path))
        return;
    const std::string model =
        Opening(&CTdscdmaRadbenchCore::Signal_AfcSaveToFileDone, &CTdscdmaAfcDockWidget::Slot_AfcSaveToFileDone);
    m_viewController->AfcSaveToFileStart(path, model);
}

void CTdscdmaAfcDockWidget::Slot_AfcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_AfcUploadFromFlashDone, &CTdscdmaAfcDockWidget::Slot_AfcUploadFromFlashDone);
    ShowReadOutcome(kAfcUpload, result, resultDataModel);
}

void CTdscdmaAfcDockWidget::Slot_AfcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel)
{
    Closing(&CTdscdmaRadbenchCore::Signal_AfcLoadFromFileDone, &CTdscdmaAfcDockWidget::Slot_AfcLoadFromFileDone);
    ShowReadOutcome(kTestPageLoad, result, resultDataModel);
}

void CTdscdmaAfcDockWidget::Slot_AfcDownloadToFlashDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_AfcDownloadToFlashDone, &CTdscdmaAfcDockWidget::Slot_AfcDownloadToFlashDone);
    ShowOutcome(kTestPageDownload, result);
}

void CTdscdmaAfcDockWidget::Slot_AfcSaveToFileDone(SEachItemOperationResult result)
{
    Closing(&CTdscdmaRadbenchCore::Signal_AfcSaveToFileDone, &CTdscdmaAfcDockWidget::Slot_AfcSaveToFileDone);
    ShowOutcome(kTestPageSave, result);
}
