#pragma once
/*
 * The host's plug-in interface. A tool plug-in derives from QObject first and
 * from TavoPluginInterface second, declares the interface with Q_INTERFACES
 * and exports its instance through Q_PLUGIN_METADATA under TavoPluginInterface_iid.
 *
 * Signals a plug-in emits towards the host (declared in the plug-in's class,
 * since this class is no QObject):
 *   Signal_PluginIsActivated(QString pluginName, bool isActivated)
 *   Signal_PluginIsBusy(QString pluginName, bool isBusy)
 */
#include <QString>
#include <QtPlugin>

#include "TavoTargetAccess.h"

/* What a plug-in needs to run on the connected target. */
struct SPluginToolLaunchRequirement {
    bool isSupport = false;  /* the tool can run on the connected target */
    QString unsupportReason; /* why not; empty when isSupport is true */
    bool isNeedDb = false;   /* the tool needs the NVRAM database loaded by the host */
    bool isDbOptional = true;
    QString extraInfo;
};

class TavoPluginInterface {
public:
    virtual ~TavoPluginInterface() = default;

    /* Host commands a plug-in may take part in; the defaults accept and ignore them. */
    virtual bool HandleHostCommand(quint32 command, quint32 parameter) {
        Q_UNUSED(command);
        Q_UNUSED(parameter);
        return true;
    }
    virtual void NotifyHostState(quint32 state) { Q_UNUSED(state); }

    virtual QString GetPluginName() = 0;
    /* The target went away: forget everything learnt about it. */
    virtual void ResetPlugin() = 0;
    virtual void ShowTool() = 0;
    virtual void HideTool() = 0;
    /* Asked before ShowTool; runs on the caller's thread. */
    virtual SPluginToolLaunchRequirement QueryLaunchRequirement() = 0;
    virtual QString GetPluginOption() = 0;

    virtual void NotifyHostOption(quint32 option) { Q_UNUSED(option); }

    /* Lock the tool's pages against new operations, and release them. */
    virtual void DisablePages() = 0;
    virtual void EnablePages() = 0;

    virtual void Slot_PluginIsActivated(bool isActivated) = 0;
    virtual void Slot_PluginIsBusy(bool isBusy) = 0;

protected:
    CTavoTargetAccess m_targetAccess;
    QString m_hostText; /* filled by the host when it needs to; tools leave it alone */
};

#define TavoPluginInterface_iid "com.halvorex.Tavo.TavoToolPlugin"
Q_DECLARE_INTERFACE(TavoPluginInterface, TavoPluginInterface_iid)
