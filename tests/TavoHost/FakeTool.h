#pragma once
/*
 * A tool plug-in for the host's tests. It records every call it gets (read
 * them through the "calls" property), answers QueryLaunchRequirement as the
 * environment variable TAVO_FAKE_TOOL_ANSWER says, and shows a window that
 * stays disabled for a while after ShowTool, as a real tool does while it
 * prepares the target:
 *
 *   supported      can run, no database (the default)
 *   needdb         can run, needs the NVRAM database
 *   unsupported    cannot run; the reason is FakeTool::kUnsupportedReason
 *   never-enabled  can run, but its window never gets enabled
 *
 * Built three times: as it should be, with a foreign IID
 * (FAKE_TOOL_WRONG_IID) and with broken metadata (FAKE_TOOL_BAD_METADATA).
 */
#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include "FakeToolAnswers.h"
#include "TavoPluginInterface.h"

class CFakeTool : public QObject, public TavoPluginInterface {
    Q_OBJECT
#if defined(FAKE_TOOL_WRONG_IID)
    Q_PLUGIN_METADATA(IID "com.example.NotATool" FILE "FakeTool.json")
#elif defined(FAKE_TOOL_BAD_METADATA)
    Q_PLUGIN_METADATA(IID TavoPluginInterface_iid FILE "FakeToolBadMeta.json")
#else
    Q_PLUGIN_METADATA(IID TavoPluginInterface_iid FILE "FakeTool.json")
#endif
    Q_INTERFACES(TavoPluginInterface)
    Q_PROPERTY(QStringList calls READ Calls)

public:
    ~CFakeTool() override;

    QStringList Calls() const { return m_calls; }
    Q_INVOKABLE void ClearCalls() { m_calls.clear(); }

    QString GetPluginName() override;
    void ResetPlugin() override;
    void ShowTool() override;
    void HideTool() override;
    SPluginToolLaunchRequirement QueryLaunchRequirement() override;
    QString GetPluginOption() override { return QString(); }
    void DisablePages() override { Record(QStringLiteral("DisablePages")); }
    void EnablePages() override { Record(QStringLiteral("EnablePages")); }
    void Slot_PluginIsActivated(bool) override {}
    void Slot_PluginIsBusy(bool) override {}

signals:
    void Signal_PluginIsActivated(QString pluginName, bool isActivated);
    void Signal_PluginIsBusy(QString pluginName, bool isBusy);

private:
    static QString Answer();
    void Record(const QString &call) { m_calls << call; }

    QStringList m_calls;
    QPointer<QMainWindow> m_window;
};
