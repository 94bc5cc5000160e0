#pragma once

#include <QObject>

#include "TavoPluginInterface.h"
#include "TdscdmaRadbenchForm.h"

// The object the host talks to: answers whether the tool can run on the
// connected target, shows and hides the tool's window, resets the tool when
// the target goes away, and tells the host when the tool is active or busy.
class TdscdmaRadbenchPluginInterface : public QObject, public TavoPluginInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.halvorex.Tavo.TavoToolPlugin" FILE "TdscdmaRadbench.json")
    Q_INTERFACES(TavoPluginInterface)
public:
    TdscdmaRadbenchPluginInterface();
    ~TdscdmaRadbenchPluginInterface() override;

    QString GetPluginName() override;
    void ResetPlugin() override;
    void ShowTool() override;
    void HideTool() override;
    SPluginToolLaunchRequirement QueryLaunchRequirement() override;
    QString GetPluginOption() override;
    void DisablePages() override;
    void EnablePages() override;

    CTdscdmaRadbenchForm &Form() { return m_form; }

public slots:
    void Slot_PluginIsActivated(bool isActivated) override;
    void Slot_PluginIsBusy(bool isBusy) override;

signals:
    void Signal_PluginIsActivated(QString pluginName, bool isActivated);
    void Signal_PluginIsBusy(QString pluginName, bool isBusy);

private:
    CTdscdmaRadbenchForm m_form;
};
