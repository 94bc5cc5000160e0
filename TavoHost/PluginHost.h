#pragma once
/*
 * Holds the one tool plug-in the host runs and drives it the way the
 * workbench does: load it, ask whether it can run on the connected target,
 * load the NVRAM database it asks for, show it, and reset it when the target
 * changes. Everything worth knowing goes out through Signal_Log.
 */
#include <QObject>
#include <QJsonObject>
#include <QPointer>
#include <memory>

#include "TavoPluginInterface.h"

class QPluginLoader;

class CPluginHost : public QObject {
    Q_OBJECT
public:
    enum class LaunchResult { Shown, Unsupported, NoPlugin, NoTarget };

    explicit CPluginHost(QObject *parent = nullptr);
    ~CPluginHost() override;

    /* ---- The plug-in ---------------------------------------------------- */

    /* Loads the plug-in at `path`. On failure nothing stays loaded and
     * LastError() says why. */
    bool LoadPlugin(const QString &path);
    /* Loads the first tool plug-in in `folder` (by file name) that loads;
     * the others are named in the log. */
    bool LoadPluginFromFolder(const QString &folder);
    /* Deletes the plug-in's instance (and so its windows). Must run before
     * QApplication goes: left to itself, Qt deletes the instance from a global
     * destructor after the application is gone. */
    void UnloadPlugin();

    bool IsLoaded() const { return m_plugin != nullptr; }
    TavoPluginInterface *Plugin() const { return m_plugin; }
    QObject *PluginObject() const { return m_instance; }
    /* What GetPluginName() answered. */
    QString PluginName() const { return m_pluginName; }
    /* MetaData "name": the title of the tool's window. */
    QString ToolWindowTitle() const;
    QJsonObject LoaderMetaData() const { return m_loaderMetaData; }
    QString LastError() const { return m_lastError; }

    bool IsActivated() const { return m_isActivated; }
    bool IsBusy() const { return m_isBusy; }
    /* "<plug-in name>: active/inactive, busy/idle" */
    QString StateText() const;

    /* ---- The target ----------------------------------------------------- */

    /* Keeps the target's NVRAM in `path` from now on (start-up). */
    bool KeepNvramIn(const QString &path);
    /* Connects to the profile without touching the plug-in (start-up). */
    bool ConnectTarget(const QString &profile);
    /* The target changed: resets the plug-in, connects to `profile` and
     * launches the tool again. Returns false when the profile did not load
     * (the previous target stays, and the tool is launched on it again). */
    bool ChangeTarget(const QString &profile);
    /* The target went away: resets the plug-in and unloads the database. */
    void DisconnectTarget();
    bool IsTargetConnected() const { return m_targetConnected; }
    /* The profile as given to ConnectTarget (a built-in name or a path);
     * empty while disconnected. */
    QString TargetProfile() const { return m_targetProfile; }

    /* ---- The tool ------------------------------------------------------- */

    /* Asks QueryLaunchRequirement; when the tool can run, loads or unloads
     * the NVRAM database as asked and calls ShowTool. When it cannot, the
     * tool is not shown (and hidden if it was), and Signal_LaunchRefused
     * carries the reason. */
    LaunchResult Launch();
    SPluginToolLaunchRequirement LastRequirement() const { return m_requirement; }
    void HideTool();
    void DisablePages();
    void EnablePages();

signals:
    void Signal_Log(const QString &line);
    void Signal_StateChanged(const QString &stateText);
    void Signal_ActivationChanged(bool isActivated);
    void Signal_LaunchRefused(const QString &reason);
    void Signal_TargetChanged();

private slots:
    void Slot_PluginIsActivated(const QString &pluginName, bool isActivated);
    void Slot_PluginIsBusy(const QString &pluginName, bool isBusy);

private:
    bool Fail(const QString &error);
    void Log(const QString &line);
    void SetState(bool isActivated, bool isBusy);

    std::unique_ptr<QPluginLoader> m_loader;
    QPointer<QObject> m_instance;
    TavoPluginInterface *m_plugin = nullptr;
    QJsonObject m_loaderMetaData;
    QString m_pluginName;
    QString m_lastError;

    bool m_isActivated = false;
    bool m_isBusy = false;
    bool m_toolShown = false;
    bool m_targetConnected = false;
    QString m_targetProfile;
    SPluginToolLaunchRequirement m_requirement;
};
