#pragma once

#include "AutoBindingDataModelForm.h"
#include "SEachItemOperationResult.h"
#include "TdscdmaRadbenchCore.h"

class CWriteJournalDialog;

namespace Ui {
class CTdscdmaRadbenchForm;
}

// The tool's main window. Arms the target for tests whenever it is shown,
// builds the pages the target supports on the first show, and releases the
// target when it is closed. Every step goes through its own view controller.
class CTdscdmaRadbenchForm : public CAutoBindingDataModelForm {
    Q_OBJECT
public:
    explicit CTdscdmaRadbenchForm(QWidget *parent = nullptr);
    ~CTdscdmaRadbenchForm() override;

    bool CheckSupport(QString &reason) override;
    bool IsNeedDb() override;
    void ResetForm() override;

    // The event may be null; a local close event then stands in.
    void closeEvent(QCloseEvent *event) override;

signals:
    void Signal_PluginIsActivated(bool isActivated);

public slots:
    void Slot_GetInitPageListDone(QStringList pageList) override;
    void Slot_UpdateStatusbar(QString str) override;
    void Slot_InitUbinDone(SEachItemOperationResult result);
    void Slot_DeInitSetUbinDone(SEachItemOperationResult result);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    bool m_isInit = false;
    // The journal of writes, made when first asked for.
    CWriteJournalDialog *m_journalDialog = nullptr;
    CTdscdmaRadbenchCore m_viewController;
    Ui::CTdscdmaRadbenchForm *m_ui;
};
