#include "PluginHost.h"

#include <QCoreApplication>
#include <QEvent>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>

#include "PluginLocator.h"
#include "TavoSimControl.h"

namespace {

QString YesNo(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString Quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

CPluginHost::CPluginHost(QObject *parent) : QObject(parent) {}

CPluginHost::~CPluginHost()
{
    // Whoever listens may be gone already.
    blockSignals(true);
    UnloadPlugin();
}

bool CPluginHost::Fail(const QString &error)
{
    m_lastError = error;
    Log(error);
    return false;
}

void CPluginHost::Log(const QString &line)
{
    emit Signal_Log(line);
}

bool CPluginHost::LoadPlugin(const QString &path)
{
    UnloadPlugin();
    m_lastError.clear();

    const QFileInfo file(path);
    if (!file.exists())
        return Fail(QStringLiteral("Cannot load plug-in %1: no such file").arg(path));
    const QString absolutePath = file.absoluteFilePath();

    auto loader = std::make_unique<QPluginLoader>(absolutePath);
    const QJsonObject metaData = loader->metaData();
    if (metaData.isEmpty())
        return Fail(QStringLiteral("Cannot load plug-in %1: not a Qt plug-in (%2)")
                        .arg(absolutePath, loader->errorString()));
    const QString problems = CPluginLocator::CheckMetaData(metaData);
    if (!problems.isEmpty())
        return Fail(QStringLiteral("Rejected plug-in %1: %2").arg(absolutePath, problems));

    // The code stays mapped after unload, so that objects the plug-in leaves
    // behind (and its own static destructors at exit) still find it.
    loader->setLoadHints(loader->loadHints() | QLibrary::PreventUnloadHint);
    QObject *instance = loader->instance();
    if (!instance)
        return Fail(QStringLiteral("Cannot load plug-in %1: %2").arg(absolutePath, loader->errorString()));
    auto *plugin = qobject_cast<TavoPluginInterface *>(instance);
    if (!plugin) {
        loader->unload();
        return Fail(QStringLiteral("Rejected plug-in %1: %2 does not implement TavoPluginInterface "
                                   "(Q_INTERFACES missing?)")
                        .arg(absolutePath, metaData.value(QLatin1String("className")).toString()));
    }

    m_loader = std::move(loader);
    m_instance = instance;
    m_plugin = plugin;
    m_loaderMetaData = metaData;

    Log(QStringLiteral("Plug-in loaded: %1").arg(absolutePath));
    Log(QStringLiteral("  %1").arg(CPluginLocator::Describe(metaData)));

    // The interface is no QObject, so its signals can only be reached by name.
    const bool activatedConnected =
        connect(instance, SIGNAL(Signal_PluginIsActivated(QString, bool)), this,
                SLOT(Slot_PluginIsActivated(QString, bool)));
    const bool busyConnected = connect(instance, SIGNAL(Signal_PluginIsBusy(QString, bool)), this,
                                       SLOT(Slot_PluginIsBusy(QString, bool)));
    if (!activatedConnected)
        Log(QStringLiteral("  Warning: the plug-in has no signal Signal_PluginIsActivated(QString,bool)"));
    if (!busyConnected)
        Log(QStringLiteral("  Warning: the plug-in has no signal Signal_PluginIsBusy(QString,bool)"));

    m_pluginName = m_plugin->GetPluginName();
    Log(QStringLiteral("  GetPluginName(): %1").arg(Quoted(m_pluginName)));
    if (m_pluginName != ToolWindowTitle())
        Log(QStringLiteral("  Note: GetPluginName() differs from MetaData name %1, "
                           "which is the title the tool window is looked up by")
                .arg(Quoted(ToolWindowTitle())));
    const QString option = m_plugin->GetPluginOption();
    if (!option.isEmpty())
        Log(QStringLiteral("  GetPluginOption(): %1").arg(Quoted(option)));

    SetState(false, false);
    return true;
}

bool CPluginHost::LoadPluginFromFolder(const QString &folder)
{
    m_lastError.clear();
    const CPluginLocator::SScan scan = CPluginLocator::Scan(folder);
    for (const QString &line : scan.skipped)
        Log(QStringLiteral("Skipped %1").arg(line));
    if (scan.candidates.isEmpty())
        return Fail(QStringLiteral("No tool plug-in (IID %1) in %2")
                        .arg(QLatin1String(TavoPluginInterface_iid), QDir::toNativeSeparators(folder)));

    QStringList failures;
    for (int i = 0; i < scan.candidates.size(); ++i) {
        if (LoadPlugin(scan.candidates.at(i).path)) {
            for (int j = i + 1; j < scan.candidates.size(); ++j)
                Log(QStringLiteral("Ignored %1: one tool plug-in at a time (choose with --plugin)")
                        .arg(scan.candidates.at(j).path));
            return true;
        }
        failures << m_lastError;
    }
    return Fail(QStringLiteral("No usable tool plug-in in %1:\n  %2")
                    .arg(QDir::toNativeSeparators(folder), failures.join(QLatin1String("\n  "))));
}

void CPluginHost::UnloadPlugin()
{
    if (!m_loader)
        return;
    const QString path = m_loader->fileName();
    if (m_instance)
        disconnect(m_instance, nullptr, this, nullptr);
    m_plugin = nullptr;
    if (!m_loader->unload())
        Log(QStringLiteral("Unloading %1 failed: %2").arg(path, m_loader->errorString()));
    // Objects the plug-in handed to deleteLater() would otherwise wait for an
    // event loop that may never run again.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_loader.reset();
    m_instance = nullptr;
    m_loaderMetaData = QJsonObject();
    m_pluginName.clear();
    m_toolShown = false;
    Log(QStringLiteral("Plug-in unloaded: %1").arg(path));
    SetState(false, false);
}

QString CPluginHost::ToolWindowTitle() const
{
    return m_loaderMetaData.value(QLatin1String("MetaData")).toObject().value(QLatin1String("name")).toString();
}

QString CPluginHost::StateText() const
{
    if (!m_plugin)
        return QStringLiteral("No plug-in loaded");
    return QStringLiteral("%1: %2, %3")
        .arg(m_pluginName, m_isActivated ? QStringLiteral("active") : QStringLiteral("inactive"),
             m_isBusy ? QStringLiteral("busy") : QStringLiteral("idle"));
}

void CPluginHost::SetState(bool isActivated, bool isBusy)
{
    const bool activationChanged = isActivated != m_isActivated;
    m_isActivated = isActivated;
    m_isBusy = isBusy;
    if (activationChanged)
        emit Signal_ActivationChanged(m_isActivated);
    emit Signal_StateChanged(StateText());
}

void CPluginHost::Slot_PluginIsActivated(const QString &pluginName, bool isActivated)
{
    Log(QStringLiteral("Signal_PluginIsActivated(%1, %2)").arg(Quoted(pluginName), YesNo(isActivated)));
    SetState(isActivated, m_isBusy);
}

void CPluginHost::Slot_PluginIsBusy(const QString &pluginName, bool isBusy)
{
    Log(QStringLiteral("Signal_PluginIsBusy(%1, %2)").arg(Quoted(pluginName), YesNo(isBusy)));
    SetState(m_isActivated, isBusy);
}

bool CPluginHost::KeepNvramIn(const QString &path)
{
    QString error;
    if (!TavoSim::SetNvramFile(path, &error)) {
        m_lastError = QStringLiteral("Cannot keep the target's NVRAM: %1").arg(error);
        Log(m_lastError);
        return false;
    }
    Log(QStringLiteral("Target NVRAM kept in %1").arg(Quoted(path)));
    return true;
}

bool CPluginHost::ConnectTarget(const QString &profile)
{
    QString error;
    if (!TavoSim::LoadProfile(profile, &error)) {
        m_lastError = QStringLiteral("Cannot load target profile %1: %2").arg(Quoted(profile), error);
        Log(m_lastError);
        return false;
    }
    m_targetConnected = true;
    m_targetProfile = profile;
    const QString name = TavoSim::CurrentProfileName();
    Log(name == profile ? QStringLiteral("Target profile: %1").arg(name)
                        : QStringLiteral("Target profile: %1 (%2)").arg(name, profile));
    emit Signal_TargetChanged();
    return true;
}

bool CPluginHost::ChangeTarget(const QString &profile)
{
    if (m_plugin) {
        Log(QStringLiteral("ResetPlugin()"));
        m_plugin->ResetPlugin();
    }
    const bool connected = ConnectTarget(profile);
    if (m_plugin && m_targetConnected)
        Launch();
    return connected;
}

void CPluginHost::DisconnectTarget()
{
    if (m_plugin) {
        Log(QStringLiteral("ResetPlugin()"));
        m_plugin->ResetPlugin();
    }
    TavoSim::UnloadDatabase();
    m_targetConnected = false;
    m_targetProfile.clear();
    Log(QStringLiteral("Target disconnected"));
    emit Signal_TargetChanged();
}

CPluginHost::LaunchResult CPluginHost::Launch()
{
    if (!m_plugin) {
        Log(QStringLiteral("No plug-in loaded"));
        return LaunchResult::NoPlugin;
    }
    if (!m_targetConnected) {
        Log(QStringLiteral("No target connected: choose a profile in the Target menu"));
        return LaunchResult::NoTarget;
    }

    m_requirement = m_plugin->QueryLaunchRequirement();
    Log(QStringLiteral("QueryLaunchRequirement(): isSupport=%1, unsupportReason=%2, isNeedDb=%3, "
                       "isDbOptional=%4, extraInfo=%5")
            .arg(YesNo(m_requirement.isSupport), Quoted(m_requirement.unsupportReason),
                 YesNo(m_requirement.isNeedDb), YesNo(m_requirement.isDbOptional),
                 Quoted(m_requirement.extraInfo)));

    if (!m_requirement.isSupport) {
        const QString reason = m_requirement.unsupportReason.isEmpty()
                                   ? QStringLiteral("(the plug-in gave no reason)")
                                   : m_requirement.unsupportReason;
        Log(QStringLiteral("Tool not supported on this target: %1").arg(reason));
        if (m_toolShown)
            HideTool();
        emit Signal_LaunchRefused(reason);
        return LaunchResult::Unsupported;
    }

    if (m_requirement.isNeedDb) {
        TavoSim::LoadDatabase();
        Log(QStringLiteral("NVRAM database loaded"));
    } else {
        TavoSim::UnloadDatabase();
        Log(QStringLiteral("NVRAM database unloaded"));
    }

    Log(QStringLiteral("ShowTool()"));
    m_toolShown = true;
    m_plugin->ShowTool();
    return LaunchResult::Shown;
}

void CPluginHost::HideTool()
{
    if (!m_plugin)
        return;
    Log(QStringLiteral("HideTool()"));
    m_toolShown = false;
    m_plugin->HideTool();
}

void CPluginHost::DisablePages()
{
    if (!m_plugin)
        return;
    Log(QStringLiteral("DisablePages()"));
    m_plugin->DisablePages();
}

void CPluginHost::EnablePages()
{
    if (!m_plugin)
        return;
    Log(QStringLiteral("EnablePages()"));
    m_plugin->EnablePages();
}
