#pragma once

#include <memory>

#include "CalDataDockWidget.h"

namespace Ui {
class CTdscdmaPathlossDockWidget;
}

// The page "PathLoss": the RX path loss of one band at a time, per gain
// mode by sub-band and by temperature, read from and written to the target,
// imported from and exported to a Cal/INI file. One form serves every item
// generation; the controller picks the model.
class CTdscdmaPathlossDockWidget : public CCalDataDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaPathlossDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaPathlossDockWidget() override;

    void RequestDataModel() override;

public slots:
    void Slot_PathlossUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_PathlossLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_PathlossSaveToFileDone(SEachItemOperationResult result);
    void on_m_btnUpload_clicked();
    void on_m_btnLoad_clicked();
    void on_m_btnDownload_clicked();
    void on_m_btnSave_clicked();
    void Slot_PathlossDownloadToFlashDone(SEachItemOperationResult result);
    void on_calDataIf_config_group1_memberProperty_band_currentTextChanged(QString arg1);
    // "Reset" of a tab: its losses show 0 (the UARFCN row stays); nothing
    // reaches the item before a Write, an Export or a band change.
    void on_pushButton_clicked();
    void on_pushButton_2_clicked();

private:
    std::unique_ptr<Ui::CTdscdmaPathlossDockWidget> m_ui;
};
