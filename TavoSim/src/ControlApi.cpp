/* The TavoSim control API: thin forwarding to the simulated target. */

#include "TavoSimControl.h"

#include "Radio.h"
#include "SimTarget.h"

namespace TavoSim {

namespace {

bool useLoaded(std::optional<TargetProfile> profile, const QString &problem, QString *error)
{
    if (!profile) {
        if (error)
            *error = problem;
        return false;
    }
    SimTarget::instance().useProfile(*profile);
    return true;
}

/* `base` with `patch` laid over it: objects merge key by key, anything else
 * replaces. */
QJsonObject merged(QJsonObject base, const QJsonObject &patch)
{
    for (auto it = patch.constBegin(); it != patch.constEnd(); ++it) {
        const QJsonValue old = base.value(it.key());
        if (it.value().isObject() && old.isObject())
            base.insert(it.key(), merged(old.toObject(), it.value().toObject()));
        else
            base.insert(it.key(), it.value());
    }
    return base;
}

} // namespace

QStringList BuiltInProfiles()
{
    return TargetProfile::builtInNames();
}

bool LoadProfile(const QString &nameOrPath, QString *error)
{
    QString problem;
    std::optional<TargetProfile> profile = TargetProfile::load(nameOrPath, &problem);
    return useLoaded(std::move(profile), problem, error);
}

bool LoadProfileObject(const QJsonObject &profile, QString *error)
{
    QString problem;
    std::optional<TargetProfile> parsed = TargetProfile::fromJson(profile, QStringLiteral("custom"), &problem);
    return useLoaded(std::move(parsed), problem, error);
}

bool PatchProfile(const QJsonObject &patch, QString *error)
{
    return PatchProfile(patch, Patch::KeepState, error);
}

bool PatchProfile(const QJsonObject &patch, Patch mode, QString *error)
{
    const TargetProfile current = SimTarget::instance().profile();
    QString problem;
    std::optional<TargetProfile> parsed = TargetProfile::fromJson(merged(current.json, patch), current.name, &problem);
    if (!parsed || mode == Patch::Reset)
        return useLoaded(std::move(parsed), problem, error);
    const QStringList reseeded =
        patch.value(QStringLiteral("nvram")).toObject().value(QStringLiteral("records")).toObject().keys();
    SimTarget::instance().patchProfile(*parsed, reseeded, patch.contains(QStringLiteral("faults")));
    return true;
}

QString CurrentProfileName()
{
    return SimTarget::instance().profile().name;
}

QJsonObject CurrentProfile()
{
    return SimTarget::instance().profile().json;
}

void Reset()
{
    SimTarget::instance().reset();
}

void InjectFault(const Fault &fault)
{
    SimTarget::instance().armFault(fault);
}

void InjectFault(const QString &call, TAVO_RESULT result, int count, int skip)
{
    InjectFault({call, {}, result, count, skip});
}

void FailAlways(const QString &call, TAVO_RESULT result)
{
    InjectFault(call, result, -1, 0);
}

void FailOnce(const QString &call, TAVO_RESULT result)
{
    InjectFault(call, result, 1, 0);
}

void ClearFaults()
{
    SimTarget::instance().clearFaults();
}

void SetLatency(const QString &call, int ms)
{
    SimTarget::instance().setLatency(call, ms);
}

void SetResultText(TAVO_RESULT result, const QString &text)
{
    SimTarget::instance().setResultText(result, text);
}

QVector<CallRecord> CallLog()
{
    return SimTarget::instance().callLog();
}

QStringList CallNames()
{
    QStringList names;
    for (const CallRecord &record : SimTarget::instance().callLog())
        names << record.name;
    return names;
}

int CallCount(const QString &call)
{
    return SimTarget::instance().callCount(call);
}

void ClearCallLog()
{
    SimTarget::instance().clearCallLog();
}

bool IsUbinEnabled()
{
    return SimTarget::instance().state().ubinEnabled;
}

QString RadioActivity()
{
    static const char *const names[] = {"idle", "tx", "rx", "dpch", "afc"};
    const RadioState radio = SimTarget::instance().state().radio;
    if (radio.activity == RadioState::Idle)
        return QStringLiteral("idle");
    return QLatin1String(names[radio.activity]) + QLatin1Char(' ') + QString::number(radio.uarfcn);
}

double FrequencyError() { return SimTarget::instance().measureFrequencyError(); }

double Temperature() { return SimTarget::instance().temperature(); }

quint16 TemperatureAdc() { return SimTarget::instance().temperatureAdc(); }

quint16 Register(quint16 address)
{
    return Radio::registerValue(SimTarget::instance().state(), address);
}

void LoadDatabase()
{
    SimTarget::instance().setDatabaseLoaded(true);
}

void UnloadDatabase()
{
    SimTarget::instance().setDatabaseLoaded(false);
}

bool IsDatabaseLoaded()
{
    return SimTarget::instance().state().databaseLoaded;
}

bool SetNvramFile(const QString &path, QString *error)
{
    return SimTarget::instance().setNvramFile(path, error);
}

QString NvramFile()
{
    return SimTarget::instance().nvramFile();
}

QByteArray NvramRecord(const QString &lid, int number)
{
    const QVector<QByteArray> records = SimTarget::instance().state().nvram.value(lid);
    return number >= 1 && number <= records.size() ? records.at(number - 1) : QByteArray();
}

bool IsCalDataIntegrityOpen()
{
    return SimTarget::instance().state().integrityOpen;
}

} // namespace TavoSim
