#include "TdscdmaRadbenchForm.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QHideEvent>
#include <QToolButton>
#include <QShowEvent>

#include "ErrorCodeInfo.h"
#include "Journal/WriteJournalDialog.h"
#include "MessageBoxMan.h"
#include "Safeguard/WriteSafeguard.h"
#include "ui_TdscdmaRadbenchForm.h"

namespace {

const char *const kTitle = "TDSCDMA Radbench";

} // namespace

CTdscdmaRadbenchForm::CTdscdmaRadbenchForm(QWidget *parent)
    : CAutoBindingDataModelForm(parent), m_ui(new Ui::CTdscdmaRadbenchForm)
{
    m_ui->setupUi(this);
    m_isInit = false;
    // Dock widgets alone fill the window.
    delete takeCentralWidget();

    RegisterOperationMetaTypes();

    // The journal of writes, at hand in the status bar (the pages take the
    // menu bar's place once they are built).
    auto *journal = new QToolButton(m_ui->statusbar);
    journal->setObjectName("m_btnWriteJournal");
    journal->setText("Write journal...");
    journal->setAutoRaise(true);
    m_ui->statusbar->addPermanentWidget(journal);
    connect(journal, &QToolButton::clicked, this, [this] {
        if (!m_journalDialog)
            m_journalDialog = new CWriteJournalDialog(this);
        m_journalDialog->Refresh();
        m_journalDialog->show();
        m_journalDialog->raise();
    });
}

CTdscdmaRadbenchForm::~CTdscdmaRadbenchForm() { delete m_ui; }

// ---- What the target allows ----------------------------------------------------

bool CTdscdmaRadbenchForm::CheckSupport(QString &reason)
{
    const SRatSupportStatus status = m_viewController.GetRatSupportStatus();
    if (status.status == SRatSupportStatus::SUPPORTED) {
        reason.clear();
        return true;
    }
    reason = status.reason;
    return false;
}

bool CTdscdmaRadbenchForm::IsNeedDb() { return m_viewController.IsNeedDb(); }

void CTdscdmaRadbenchForm::ResetForm()
{
    m_viewController.ResetCapability();
    RemoveAllPages();
    m_isInit = false;
}

// ---- Arming on show --------------------------------------------------------------

void CTdscdmaRadbenchForm::showEvent(QShowEvent *event)
{
    CAutoBindingDataModelForm::showEvent(event);
    // Writes to the target are backed up and journaled as the user chose
    // last, here or on the command line.
    CWriteSafeguard::Instance()->Configure(CWriteSafeguard::LoadSettings("plug-in"));
    emit Signal_PluginIsActivated(true);
    setEnabled(false);
    Slot_UpdateStatusbar("Please to wait the init Ubin flow...");
    connect(&m_viewController, &CTdscdmaRadbenchCore::Signal_SetUbinDone, this,
            &CTdscdmaRadbenchForm::Slot_InitUbinDone);
    m_viewController.SetUbin(true);
}

void CTdscdmaRadbenchForm::Slot_InitUbinDone(SEachItemOperationResult result)
{
    disconnect(&m_viewController, &CTdscdmaRadbenchCore::Signal_SetUbinDone, this,
               &CTdscdmaRadbenchForm::Slot_InitUbinDone);
    setEnabled(true);

    if (result.errorCode != ERROR_CODE_SUCCESS) {
        Slot_UpdateStatusbar("Init failed.");
        CMessageBoxMan box;
        box.ShowMessage(CMessageBoxMan::KIND_ERROR, kTitle, GetErrorCodeInfo(result.errorCode).message,
                        ResultInformativeText(result), QString(), -1);
        return;
    }

    Slot_UpdateStatusbar("Init Ubin and reset status successfully.");
    if (m_isInit)
        return;

    setEnabled(false);
    Slot_UpdateStatusbar("Please to wait the init flow of pages...");
    connect(&m_viewController, &CTdscdmaRadbenchCore::Signal_GetInitPageListDone, this,
            &CTdscdmaRadbenchForm::Slot_GetInitPageListDone);
    m_viewController.GetInitPageList();
    m_isInit = true;
}

void CTdscdmaRadbenchForm::Slot_GetInitPageListDone(QStringList pageList)
{
    disconnect(&m_viewController, &CTdscdmaRadbenchCore::Signal_GetInitPageListDone, this,
               &CTdscdmaRadbenchForm::Slot_GetInitPageListDone);
    InitPage(pageList);
}

// ---- Releasing on close ------------------------------------------------------------

void CTdscdmaRadbenchForm::closeEvent(QCloseEvent *event)
{
    QCloseEvent standIn;
    if (!event)
        event = &standIn;

    CAutoBindingDataModelForm::closeEvent(event);
    setEnabled(false);

    QEventLoop loop;
    connect(&m_viewController, &CTdscdmaRadbenchCore::Signal_SetUbinDone, this,
            &CTdscdmaRadbenchForm::Slot_DeInitSetUbinDone);
    connect(&m_viewController, &CTdscdmaRadbenchCore::Signal_SetUbinDone, &loop, &QEventLoop::quit);
    Slot_UpdateStatusbar("Please to wait the deinit Ubin flow...");
    m_viewController.SetUbin(false);
    loop.exec();

    event->accept();
    setEnabled(true);
}

void CTdscdmaRadbenchForm::Slot_DeInitSetUbinDone(SEachItemOperationResult result)
{
    disconnect(&m_viewController, &CTdscdmaRadbenchCore::Signal_SetUbinDone, this,
               &CTdscdmaRadbenchForm::Slot_DeInitSetUbinDone);
    if (result.errorCode != ERROR_CODE_SUCCESS) {
        Slot_UpdateStatusbar("Deinit Ubin failed.");
        CMessageBoxMan box;
        box.ShowMessage(CMessageBoxMan::KIND_ERROR, kTitle, "Deinit Ubin flow failed",
                        "Please check the SW stability and connection status.", QString(), -1);
        return;
    }
    Slot_UpdateStatusbar("Deinit Ubin flow successfuly.");
}

void CTdscdmaRadbenchForm::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    emit Signal_PluginIsActivated(false);
}

void CTdscdmaRadbenchForm::Slot_UpdateStatusbar(QString str) { m_ui->statusbar->showMessage(str); }
