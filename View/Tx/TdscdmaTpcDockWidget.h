#pragma once

#include <memory>

#include "CalDataDockWidget.h"

namespace Ui {
class CTdscdmaTpcDockWidget;
}

// The page "Tpc": the TX power control data of one band at a time, read
// from and written to the target, imported from and exported to a Cal/INI
// file. This form serves targets without structure version 2; the V3 form
// (CTdscdmaTpcDockWidgetV3) differs only by its model and one more group.
class CTdscdmaTpcDockWidget : public CCalDataDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaTpcDockWidget(QWidget *parent = nullptr);
    ~CTdscdmaTpcDockWidget() override;

    void RequestDataModel() override;

public slots:
    void Slot_TpcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_TpcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Slot_TpcSaveToFileDone(SEachItemOperationResult result);
    void Slot_TpcDownloadToFlashDone(SEachItemOperationResult result);
    void on_m_btnUpload_clicked();
    void on_m_btnLoad_clicked();
    void on_calDataIf_config_group1_memberProperty_band_currentTextChanged(QString arg1);
    void on_m_btnDownload_clicked();
    void on_m_btnSave_clicked();

protected:
    // For another form of the same page, which the derived class sets up
    // and binds (BindOperationWidgets).
    struct SOwnForm {};
    CTdscdmaTpcDockWidget(QWidget *parent, SOwnForm);

private:
    std::unique_ptr<Ui::CTdscdmaTpcDockWidget> m_ui;
};
