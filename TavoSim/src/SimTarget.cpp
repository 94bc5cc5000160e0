#include "SimTarget.h"

#include <QtGlobal>

#include <algorithm>
#include <limits>

#include "CommandCatalog.h"
#include "Radio.h"
#include "Thermal.h"

namespace TavoSim {

SimTarget &SimTarget::instance()
{
    static SimTarget target;
    return target;
}

SimTarget::SimTarget()
{
    QString error;
    if (std::optional<TargetProfile> profile = TargetProfile::load(QStringLiteral("default"), &error))
        m_profile = *profile;
    else
        qWarning("TavoSim: the built-in default profile does not load: %s", qPrintable(error));
    resetLocked();
}

TAVO_RESULT SimTarget::execute(CallHistory::Ticket ticket, const QString &call, const QStringList &inputs,
                               const Work &work)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_log.reached(ticket);
    if (const std::optional<TAVO_RESULT> fault = m_faults.take(call, inputs))
        return *fault;
    if (CommandCatalog::contains(call) && !m_profile.offers(call))
        return TAVO_ERR_NOT_SUPPORTED;
    return work(m_profile, m_state);
}

void SimTarget::useProfile(const TargetProfile &profile)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_profile = profile;
    resetLocked();
}

void SimTarget::patchProfile(const TargetProfile &profile, const QStringList &reseededLids, bool armProfileFaults)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    NvramRecords records = profile.nvram;
    if (m_nvramFile.isOpen())
        m_nvramFile.layOver(records);
    for (auto lid = records.begin(); lid != records.end(); ++lid) {
        const auto held = m_state.nvram.constFind(lid.key());
        if (held == m_state.nvram.constEnd() || reseededLids.contains(lid.key()))
            continue;
        for (int i = 0; i < std::min(lid->size(), held->size()); ++i) {
            if (held->at(i).size() == lid->at(i).size())
                (*lid)[i] = held->at(i);
        }
    }
    Thermal::advance(m_profile, m_state); /* the heat so far, at the old profile's rate */
    m_profile = profile;
    m_state.nvram = records;
    if (armProfileFaults) {
        for (const Fault &fault : qAsConst(m_profile.faults))
            m_faults.arm(fault);
    }
}

TargetProfile SimTarget::profile() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_profile;
}

void SimTarget::reset()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    resetLocked();
}

void SimTarget::resetLocked()
{
    m_state = TargetState();
    m_state.nvram = m_profile.nvram;
    if (m_nvramFile.isOpen()) {
        m_nvramFile.layOver(m_state.nvram);
        m_state.nvramFile = &m_nvramFile;
    }
    m_faults.clear();
    for (const Fault &fault : qAsConst(m_profile.faults))
        m_faults.arm(fault);
    m_latencies.clear();
    m_log.clear();
    m_textOverrides.clear();
}

void SimTarget::armFault(const Fault &fault)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_faults.arm(fault);
}

void SimTarget::clearFaults()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_faults.clear();
}

void SimTarget::setLatency(const QString &call, int ms)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (ms > 0)
        m_latencies.insert(call, ms);
    else
        m_latencies.remove(call);
}

int SimTarget::latency(const QString &call) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto own = m_latencies.constFind(call);
    if (own != m_latencies.constEnd())
        return *own;
    return m_latencies.value(QStringLiteral("*"));
}

void SimTarget::setResultText(TAVO_RESULT result, const QString &text)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (text.isNull())
        m_textOverrides.erase(result);
    else
        m_textOverrides[result] = internLocked(text.toUtf8());
}

const char *SimTarget::resultTextOverride(TAVO_RESULT result) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_textOverrides.find(result);
    return it == m_textOverrides.end() ? nullptr : it->second;
}

const char *SimTarget::intern(const QByteArray &text)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return internLocked(text);
}

const char *SimTarget::internLocked(const QByteArray &text)
{
    return m_texts.insert(text).first->constData();
}

CallHistory::Ticket SimTarget::logCall(CallRecord record)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    record.integrityScope = m_state.integrityOpen ? m_state.integrityRecords : 0;
    return m_log.append(record);
}

void SimTarget::logResult(CallHistory::Ticket ticket, TAVO_RESULT result)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_log.setResult(ticket, result);
}

QVector<CallRecord> SimTarget::callLog() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    /* A block of its own: Qt tells a shared block by a relaxed load, so an
     * append here after the caller let go of a shared copy would race with
     * the caller's last reads. */
    QVector<CallRecord> copy = m_log.records();
    copy.detach();
    return copy;
}

int SimTarget::callCount(const QString &call) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_log.count(call);
}

void SimTarget::clearCallLog()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_log.clear();
}

TargetState SimTarget::state() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_state;
}

void SimTarget::setDatabaseLoaded(bool loaded)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_state.databaseLoaded = loaded;
}

double SimTarget::measureFrequencyError()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state.radio.activity != RadioState::Afc)
        return std::numeric_limits<double>::quiet_NaN();
    const double noise = m_profile.crystalNoise * Radio::noise(++m_state.frequencyMeasures);
    const double megahertz = m_state.radio.uarfcn / 5.0;
    return m_profile.crystalSlope * megahertz / 900.0 * (m_state.radio.afcDac - m_profile.crystalOnFrequencyDac) + noise;
}

double SimTarget::temperature()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return Thermal::temperature(m_profile, m_state);
}

quint16 SimTarget::temperatureAdc()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return Thermal::adcWord(Thermal::adcAt(m_profile, Thermal::temperature(m_profile, m_state)));
}

bool SimTarget::setNvramFile(const QString &path, QString *error)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_nvramFile.open(path, error))
        return false;
    m_state.nvramFile = m_nvramFile.isOpen() ? &m_nvramFile : nullptr;
    m_nvramFile.layOver(m_state.nvram);
    return true;
}

QString SimTarget::nvramFile() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_nvramFile.path();
}

} // namespace TavoSim
