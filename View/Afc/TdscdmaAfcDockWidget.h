#pragma once

#include <memory>

#include "CalDataDockWidget.h"

namespace Ui {
class CTdscdmaAfcDockWidget;
}

// The page "AFC Control": the target's AFC test at a chosen DAC, the AFC
// calibration data read, written, imported and exported, and a calculator
// that gives those data from two measured frequency errors, in the page
// alone. A test page of the request and response groups; its data movements
// run as on the pages of calibration data.
class CTdscdmaAfcDockWidget : public CCalDataDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaAfcDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaAfcDockWidget() override;

    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override;
    void EnableOperation() override;

public slots:
    void Slot_AfcTestStopDone(SEachItemOperationResult result);
    void Slot_AfcTestDone(SEachItemOperationResult result);
    void Slot_AfcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_AfcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_AfcDownloadToFlashDone(SEachItemOperationResult result);
    void Slot_AfcSaveToFileDone(SEachItemOperationResult result);
    void Slot_TriggerStopTest() override;
    void on_m_start_clicked();
    void on_m_stop_clicked();
    void on_m_btnCalculate_clicked();
    void on_m_btnRead_clicked();
    void on_m_btnWrite_clicked();
    void on_m_btnImport_clicked();
    void on_m_btnExport_clicked();

private:
    // All seven buttons at once.
    void SetOperationButtons(bool enabled);

    std::unique_ptr<Ui::CTdscdmaAfcDockWidget> m_ui;
};
