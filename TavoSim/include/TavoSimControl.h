#pragma once
/*
 * Control of the simulated target behind the TavoCore stand-in.
 *
 * This is not part of the target library's API: the plug-in never includes
 * it. The host stand-in uses it to choose a target profile and to load the
 * NVRAM database; tests use it to set the scene, inject faults and read what
 * the target was asked to do. Every function is safe to call from any thread.
 */
#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include "TavoCore.h"

namespace TavoSim {

/* One call made to the library, in the order of arrival. */
struct CallRecord {
    QString name;      /* the library function, e.g. "AST_UBIN_MODE_SETUP_r" */
    int handle = -1;   /* -1 for calls that take no handle */
    int timeoutMs = -1; /* -1 for calls that take no time-out */
    QStringList args;  /* the remaining arguments as "name=value" (inputs only) */
    TAVO_RESULT result = TAVO_OK;
    /* The call's place among the calls that reached the target since the last
     * ClearCallLog (or Reset), from 1: what a "*" fault counts. 0 for calls
     * that did not reach it (text calls, refused handles or arguments,
     * time-outs). */
    int targetIndex = 0;
    /* The integrity record of calibration writes open when the call arrived:
     * n for the n-th record opened since the last Reset, 0 when none was
     * open. A start is logged outside the record it opens, its stop inside. */
    int integrityScope = 0;
};

/* A fault to arm. It takes the calls named `call`, or every call that reaches
 * the target when `call` is "*", whose logged inputs (CallRecord::args)
 * include every "name=value" of `args`; an empty `args` takes them all. Of
 * the calls it takes, the first `skip` pass normally, then `count` answer
 * `result` (-1: all of them). For example:
 *   {"TAVO_NVRAM_Write_r", {"lid=NVRAM_EF_IMEI_IMEISV_LID", "record=2"}, TAVO_ERR_FAILED, 1}
 *   {"TAVO_QueryAPISupported_r", {"apiName=TAVO_MISC_CalDataIntegrity_StartRec_Ex_r"}}
 *   {"*", {}, TAVO_ERR_FAILED, 1, n - 1}   the n-th call from now fails once */
struct Fault {
    QString call;
    QStringList args;
    TAVO_RESULT result = TAVO_ERR_FAILED;
    int count = -1;
    int skip = 0;
};

/* Names of the profiles built into the library, sorted. "default" is a fully
 * capable TD-SCDMA target. */
TAVO_API QStringList BuiltInProfiles();

/* Loads a profile, given as a built-in name or as the path of a JSON file, and
 * resets the target to it (see Reset). On failure the current profile stays
 * and *error (if given) says why. */
TAVO_API bool LoadProfile(const QString &nameOrPath, QString *error = nullptr);
/* Same, from an already parsed profile object (named "custom" when it has
 * no "name"). */
TAVO_API bool LoadProfileObject(const QJsonObject &profile, QString *error = nullptr);
/* What PatchProfile does with what the target went through so far. */
enum class Patch {
    KeepState, /* the target goes on as it is; only what the profile describes changes */
    Reset      /* the target is reset to the patched profile, as by LoadProfileObject */
};
/* Lays `patch` over the current profile: nested objects merge key by key,
 * any other value replaces the old one. Handy to change one switch of a
 * built-in profile:
 *   PatchProfile({{"multiRat", QJsonObject{{"afcByL1", true}}}});
 * To drop a section, edit CurrentProfile() and load it instead.
 *
 * By default (Patch::KeepState) the answers, the offered commands and the
 * database change, and the target keeps its state: the NVRAM's records,
 * the database loaded or not, Ubin, the radio and its registers, the
 * integrity record, the armed faults, latencies, result texts and the call
 * log. NVRAM records keep their bytes where the patched profile still has
 * the LID, the record number and the size; the LIDs the patch names in
 * "nvram.records", and records that are new or of a new size, take the
 * patched profile's contents (with the NVRAM file laid over them). The
 * faults the patch lists are armed now, besides those armed already. With
 * Patch::Reset the target is reset to the patched profile (see Reset). On
 * failure nothing changes. */
TAVO_API bool PatchProfile(const QJsonObject &patch, QString *error = nullptr);
TAVO_API bool PatchProfile(const QJsonObject &patch, Patch mode, QString *error = nullptr);
/* The name of the current profile (its "name" key, else the built-in name or
 * the file's base name). */
TAVO_API QString CurrentProfileName();
TAVO_API QJsonObject CurrentProfile();

/* Back to the state the current profile describes: only the profile's own
 * faults armed, no latencies, empty call log, the library's own result texts,
 * target state as after power-on (integrity record closed, and the records
 * numbered from 1 again), database unloaded. */
TAVO_API void Reset();

/* ---- Faults and latency --------------------------------------------------- */

/* Arms a fault (see Fault). Skips count from now on, and only the calls
 * the fault takes count. When several faults take a call, the one armed
 * first that no longer skips answers; the others that still skip count it. Any name is taken,
 * also of calls the library does not have yet. A call that fails on its
 * handle or arguments, or runs into its time-out, never reaches the target
 * and neither counts nor uses up a fault; text calls never reach it. */
TAVO_API void InjectFault(const Fault &fault);
/* The same for every call named `call`, whatever its inputs. */
TAVO_API void InjectFault(const QString &call, TAVO_RESULT result, int count = -1, int skip = 0);
/* Shorthands. */
TAVO_API void FailAlways(const QString &call, TAVO_RESULT result = TAVO_ERR_FAILED);
TAVO_API void FailOnce(const QString &call, TAVO_RESULT result = TAVO_ERR_FAILED);
TAVO_API void ClearFaults();

/* Delays every later `call` by `ms` before it answers; "*" delays all calls
 * that have none of their own; 0 removes the delay. A delay longer than the
 * call's time-out ends at the time-out with TAVO_ERR_TIMEOUT. Text calls are
 * never delayed. */
TAVO_API void SetLatency(const QString &call, int ms);

/* Replaces the text that TAVO_GetResultText gives for `result` (may be empty);
 * a null QString restores the library's own text. Every text the library has
 * given out stays valid as long as the library is loaded. */
TAVO_API void SetResultText(TAVO_RESULT result, const QString &text);

/* ---- Call log --------------------------------------------------------------- */

/* The latest calls (up to 100000), also text and query calls. */
TAVO_API QVector<CallRecord> CallLog();
/* The names of the logged calls, in order; handy for compact assertions. */
TAVO_API QStringList CallNames();
/* How often `call` was made since the last ClearCallLog (or Reset). */
TAVO_API int CallCount(const QString &call);
TAVO_API void ClearCallLog();

/* ---- Target state ------------------------------------------------------------ */

TAVO_API bool IsUbinEnabled();

/* What the radio does: "idle", or "tx", "rx", "dpch", "afc" followed by a
 * blank and the channel, e.g. "tx 9550". */
TAVO_API QString RadioActivity();

/* What an instrument measures while the AFC test runs: the carrier's error
 * in Hz. It follows the profile's crystal ("crystal": "onFrequencyDac",
 * "slope" in Hz per DAC step at 900 MHz, "noise" in Hz) along a straight
 * line over the DAC of the test, scaled to the channel's frequency (channel
 * N is N / 5 MHz), each measure with its own noise within +-noise. NaN when
 * no AFC test runs. */
TAVO_API double FrequencyError();

/* The target's temperature now, in degrees Celsius. It follows the profile's
 * "tadc" section: the ambient "temperature"; while the radio transmits
 * (continuous TX, DPCH TX, the AFC test) a rise of "heating" degrees per
 * second of wall time, up to "maxRise"; otherwise a fall back toward ambient
 * at the same rate. Power-on (Reset, a profile load) is at ambient. */
TAVO_API double Temperature();
/* The ADC value the sensor gives for Temperature() without noise: the
 * profile's "adcTable" of [degrees, ADC] points, linear between them, the
 * end values beyond them. Each measure of the temperature ADC calls adds its
 * own noise within +-"noise" steps to it. */
TAVO_API quint16 TemperatureAdc();

/* A baseband register as the target holds it now. */
TAVO_API quint16 Register(quint16 address);

/* The NVRAM database the host loads when the tool asks for one. */
TAVO_API void LoadDatabase();
TAVO_API void UnloadDatabase();
TAVO_API bool IsDatabaseLoaded();

/* ---- NVRAM ---------------------------------------------------------------- */

/* Keeps what is written to the target's NVRAM in the file at `path`, so that
 * it is still there after the process restarts, as on a real target. The
 * file's records are laid over the NVRAM at once and after every Reset and
 * profile load; a missing file is made by the first write. An empty path
 * stops keeping (the NVRAM stays as it is). On failure (*error says why)
 * nothing changes. A write the file cannot keep fails. */
TAVO_API bool SetNvramFile(const QString &path, QString *error = nullptr);
TAVO_API QString NvramFile();

/* Record `number` (from 1) of `lid` as the target holds it, raw; empty when
 * the target has no such record. */
TAVO_API QByteArray NvramRecord(const QString &lid, int number = 1);

/* Whether an integrity record of calibration writes is open (started and not
 * stopped). */
TAVO_API bool IsCalDataIntegrityOpen();

} // namespace TavoSim
