#pragma once

#include <QHash>

#include <functional>
#include <map>
#include <mutex>
#include <set>

#include "CallHistory.h"
#include "FaultTable.h"
#include "PersistentNvram.h"
#include "TargetProfile.h"
#include "TargetState.h"

namespace TavoSim {

/*
 * The simulated target: its profile, its state, the armed faults, the
 * latencies and the call log, all behind one mutex. Every member function
 * locks for itself and may be called from any thread. Nothing sleeps while
 * holding the lock: latencies are served by TargetCall before it comes here.
 * The lock is a std::mutex, which ThreadSanitizer sees; the locks of the
 * system's Qt are not instrumented and would hide it.
 */
class SimTarget
{
public:
    static SimTarget &instance();

    /* The work of a call, done under the lock. */
    using Work = std::function<TAVO_RESULT(const TargetProfile &, TargetState &)>;

    /* Runs a call that has reached the target (logged as `ticket`, with its
     * logged `inputs`): a fault that fires answers instead, a catalogued
     * command the profile does not offer answers TAVO_ERR_NOT_SUPPORTED,
     * anything else does its work. */
    TAVO_RESULT execute(CallHistory::Ticket ticket, const QString &call, const QStringList &inputs, const Work &work);

    /* ---- Profile ---- */
    /* Makes `profile` the current one and resets the target to it. */
    void useProfile(const TargetProfile &profile);
    /* Makes `profile` the current one and keeps the target's state (see
     * PatchProfile): the records of the LIDs in `reseededLids` come from the
     * profile, and so do those it adds or resizes; the others stay. The
     * profile's faults are armed too when `armProfileFaults`. */
    void patchProfile(const TargetProfile &profile, const QStringList &reseededLids, bool armProfileFaults);
    TargetProfile profile() const;
    void reset();

    /* ---- Faults and latency ---- */
    void armFault(const Fault &fault);
    void clearFaults();
    void setLatency(const QString &call, int ms);
    /* The latency of `call`: its own, else the one of "*", else 0. */
    int latency(const QString &call) const;

    /* ---- Texts ---- */
    void setResultText(TAVO_RESULT result, const QString &text);
    /* The override of the text of `result`, or null. */
    const char *resultTextOverride(TAVO_RESULT result) const;
    /* A pointer to a copy of `text` that stays valid as long as the library
     * is loaded; equal texts share one copy. */
    const char *intern(const QByteArray &text);

    /* ---- Call log ---- */
    /* Logs a call on its arrival, with the integrity record it falls in. */
    CallHistory::Ticket logCall(CallRecord record);
    void logResult(CallHistory::Ticket ticket, TAVO_RESULT result);
    QVector<CallRecord> callLog() const;
    int callCount(const QString &call) const;
    void clearCallLog();

    /* ---- State ---- */
    TargetState state() const;
    void setDatabaseLoaded(bool loaded);
    /* The carrier's frequency error of the running AFC test, in Hz, as an
     * instrument measures it (see FrequencyError); NaN when none runs. */
    double measureFrequencyError();
    /* The target's temperature now, in degrees Celsius, and the ADC value
     * its sensor's table gives for it without noise (see Thermal). */
    double temperature();
    quint16 temperatureAdc();

    /* ---- NVRAM file ---- */
    /* Keeps the NVRAM's writes in `path` (empty: no longer), laying what the
     * file holds over the records held now. */
    bool setNvramFile(const QString &path, QString *error);
    QString nvramFile() const;

private:
    SimTarget();
    void resetLocked();
    const char *internLocked(const QByteArray &text);

    mutable std::mutex m_mutex;
    TargetProfile m_profile;
    TargetState m_state;
    FaultTable m_faults;
    QHash<QString, int> m_latencies;
    CallHistory m_log;
    std::map<TAVO_RESULT, const char *> m_textOverrides;
    std::set<QByteArray> m_texts; /* nodes never move: their data stays put */
    PersistentNvram m_nvramFile;
};

} // namespace TavoSim
