#include "HostWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTime>

#include "PluginHost.h"
#include "TavoSimControl.h"

CHostWindow::CHostWindow(CPluginHost *host, QWidget *parent)
    : QMainWindow(parent), m_host(host), m_log(new QPlainTextEdit(this)), m_stateLabel(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Tavo Host \u2014 simulated target"));
    resize(720, 420);

    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(10000);
    m_log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setCentralWidget(m_log);
    statusBar()->addPermanentWidget(m_stateLabel);

    BuildMenus();

    connect(m_host, &CPluginHost::Signal_Log, this, &CHostWindow::Slot_AppendLog);
    connect(m_host, &CPluginHost::Signal_StateChanged, this, &CHostWindow::UpdateState);
    connect(m_host, &CPluginHost::Signal_TargetChanged, this, &CHostWindow::UpdateTargetMenu);
    connect(m_host, &CPluginHost::Signal_LaunchRefused, this, &CHostWindow::ShowRefusal);
    UpdateState(m_host->StateText());
    UpdateTargetMenu();
}

void CHostWindow::BuildMenus()
{
    m_toolMenu = menuBar()->addMenu(QStringLiteral("&Tool"));
    m_toolMenu->addAction(QStringLiteral("&Open tool"), this, &CHostWindow::OpenTool);
    m_toolMenu->addAction(QStringLiteral("&Hide tool"), m_host, &CPluginHost::HideTool);
    m_toolMenu->addSeparator();
    m_toolMenu->addAction(QStringLiteral("&Disable pages"), m_host, &CPluginHost::DisablePages);
    m_toolMenu->addAction(QStringLiteral("&Enable pages"), m_host, &CPluginHost::EnablePages);

    m_targetMenu = menuBar()->addMenu(QStringLiteral("T&arget"));
    m_profileGroup = new QActionGroup(this);
    m_profileGroup->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    const QStringList profiles = TavoSim::BuiltInProfiles();
    for (const QString &profile : profiles) {
        QAction *action = m_targetMenu->addAction(profile);
        action->setCheckable(true);
        action->setData(profile);
        m_profileGroup->addAction(action);
        connect(action, &QAction::triggered, this, [this, profile] { ChooseProfile(profile); });
    }
    m_targetMenu->addSeparator();
    m_targetMenu->addAction(QStringLiteral("&Load profile file..."), this, &CHostWindow::LoadProfileFile);
    m_targetMenu->addAction(QStringLiteral("&Disconnect (reset tool)"), m_host, &CPluginHost::DisconnectTarget);
}

QAction *CHostWindow::ProfileAction(const QString &name) const
{
    const QList<QAction *> actions = m_profileGroup->actions();
    for (QAction *action : actions) {
        if (action->data().toString() == name)
            return action;
    }
    return nullptr;
}

QString CHostWindow::LogText() const
{
    return m_log->toPlainText();
}

void CHostWindow::Slot_AppendLog(const QString &line)
{
    m_log->appendPlainText(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz  ")) + line);
}

void CHostWindow::closeEvent(QCloseEvent *event)
{
    QMainWindow::closeEvent(event);
    if (event->isAccepted())
        emit Signal_Closed();
}

void CHostWindow::OpenTool()
{
    if (m_host->Launch() == CPluginHost::LaunchResult::NoTarget)
        statusBar()->showMessage(QStringLiteral("No target connected: choose a profile in the Target menu"));
}

void CHostWindow::ChooseProfile(const QString &profile)
{
    statusBar()->clearMessage();
    if (!m_host->ChangeTarget(profile))
        statusBar()->showMessage(m_host->LastError());
    UpdateTargetMenu();
}

void CHostWindow::LoadProfileFile()
{
    const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("Load target profile"), QString(),
                                                      QStringLiteral("Target profiles (*.json);;All files (*)"));
    if (!file.isEmpty())
        ChooseProfile(file);
}

void CHostWindow::UpdateTargetMenu()
{
    // A profile loaded from a file, or no target at all, leaves no built-in checked.
    QAction *current = ProfileAction(m_host->TargetProfile());
    const QList<QAction *> actions = m_profileGroup->actions();
    for (QAction *action : actions)
        action->setChecked(action == current);
    if (!m_host->IsTargetConnected())
        statusBar()->showMessage(QStringLiteral("Target disconnected"));
}

void CHostWindow::UpdateState(const QString &stateText)
{
    m_stateLabel->setText(stateText);
}

void CHostWindow::ShowRefusal(const QString &reason)
{
    const QString text = QStringLiteral("%1 cannot run on this target: %2").arg(m_host->PluginName(), reason);
    statusBar()->showMessage(text);
    if (!isVisible())
        return;
    // Not exec(): the plug-in keeps being served while the box is up.
    auto *box = new QMessageBox(QMessageBox::Information, QStringLiteral("Tool not supported"), text,
                                QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}
