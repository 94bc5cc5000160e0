#include "TdscdmaRadbenchPluginInterface.h"

#include <QThreadPool>

#include "AutoBindingDataModelDockWidget.h"
#include "Platform/PortableCriticalSection.h"
#include "RadbenchLog.h"

// The plug-in's one lock lives as long as the library is loaded; naming it
// here keeps it in the library.
__attribute__((used)) static CLockableObject *const s_pluginLock = &g_pluginCriticalSection;

TdscdmaRadbenchPluginInterface::TdscdmaRadbenchPluginInterface() : m_form(nullptr)
{
    connect(&m_form, &CTdscdmaRadbenchForm::Signal_PluginIsActivated, this,
            &TdscdmaRadbenchPluginInterface::Slot_PluginIsActivated);
    connect(&m_form, &CTdscdmaRadbenchForm::Signal_PluginIsBusy, this,
            &TdscdmaRadbenchPluginInterface::Slot_PluginIsBusy);
}

TdscdmaRadbenchPluginInterface::~TdscdmaRadbenchPluginInterface()
{
    // No work of the tool may outlive its code: the host may unload the
    // library right after this.
    QThreadPool::globalInstance()->waitForDone();
}

QString TdscdmaRadbenchPluginInterface::GetPluginName() { return "TDSCDMA Radbench"; }

void TdscdmaRadbenchPluginInterface::ResetPlugin() { m_form.ResetForm(); }

void TdscdmaRadbenchPluginInterface::ShowTool()
{
    m_form.setVisible(true);
    m_form.show();
}

void TdscdmaRadbenchPluginInterface::HideTool() { m_form.hide(); }

SPluginToolLaunchRequirement TdscdmaRadbenchPluginInterface::QueryLaunchRequirement()
{
    SPluginToolLaunchRequirement requirement;
    qCDebug(lcView) << "TdscdmaRadbenchPluginInterface::QueryLaunchRequirement ()";

    QString reason;
    if (m_form.CheckSupport(reason)) {
        requirement.isSupport = true;
        requirement.isNeedDb = m_form.IsNeedDb();
    } else {
        requirement.unsupportReason = reason;
    }

    qCDebug(lcView) << "TdscdmaRadbenchPluginInterface::QueryLaunchRequirement () isSupport " << requirement.isSupport
                    << " isNeedDb " << requirement.isNeedDb;
    return requirement;
}

QString TdscdmaRadbenchPluginInterface::GetPluginOption() { return QString(); }

void TdscdmaRadbenchPluginInterface::DisablePages()
{
    for (CAutoBindingDataModelDockWidget *page : m_form.Pages())
        page->DisableOperation();
}

void TdscdmaRadbenchPluginInterface::EnablePages()
{
    for (CAutoBindingDataModelDockWidget *page : m_form.Pages())
        page->EnableOperation();
}

void TdscdmaRadbenchPluginInterface::Slot_PluginIsActivated(bool isActivated)
{
    emit Signal_PluginIsActivated(GetPluginName(), isActivated);
}

void TdscdmaRadbenchPluginInterface::Slot_PluginIsBusy(bool isBusy)
{
    emit Signal_PluginIsBusy(GetPluginName(), isBusy);
}
