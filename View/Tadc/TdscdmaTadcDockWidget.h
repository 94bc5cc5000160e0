#pragma once

#include <memory>

#include "CalDataDockWidget.h"

namespace Ui {
class CTdscdmaTadcDockWidget;
}

// The page "Temperature ADC": the temperature ADC measured on the target
// (the mean of a count of measures), and the table of the eight ADC values
// at which the target's temperature steps lie, read, written, imported and
// exported. A test page of the request and response groups; its data
// movements run as on the pages of calibration data.
class CTdscdmaTadcDockWidget : public CCalDataDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaTadcDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaTadcDockWidget() override;

    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override;
    void DisableOperation() override;
    void EnableOperation() override;

public slots:
    void Slot_TadcMeasureDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_TadcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_TadcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_TadcDownloadToFlashDone(SEachItemOperationResult result);
    void Slot_TadcSaveToFileDone(SEachItemOperationResult result);
    void Slot_TriggerStopTest() override {}
    void on_m_btnFetch_clicked();
    void on_m_btnUploadFromFlash_clicked();
    void on_m_btnDownloadToFlash_clicked();
    void on_m_btnLoadFromFile_clicked();
    void on_m_btnSaveToFile_clicked();

private:
    // All five buttons at once.
    void SetOperationButtons(bool enabled);

    std::unique_ptr<Ui::CTdscdmaTadcDockWidget> m_ui;
};
