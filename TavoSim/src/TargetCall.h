#pragma once

#include <QStringList>

#include <type_traits>

#include "SimTarget.h"

namespace TavoSim {

/*
 * The common entry of every library call. A call family builds one with the
 * call's name, handle, time-out and inputs, and hands its work to run():
 *
 *   1. the call goes into the log with its inputs;
 *   2. a handle other than 0 answers TAVO_ERR_NOT_CONNECTED, and arguments the
 *      family found invalid answer TAVO_ERR_INVALID_ARGUMENT; neither reaches
 *      the target;
 *   3. the latency of the call passes, outside the lock; a latency beyond the
 *      call's time-out ends the wait at the time-out with TAVO_ERR_TIMEOUT;
 *   4. a fault that fires answers its result with no side effect;
 *   5. a catalogued command the profile does not offer answers
 *      TAVO_ERR_NOT_SUPPORTED;
 *   6. otherwise the work runs, under the lock, and its result is the answer.
 *
 * The answer is written into the call's log record too.
 */
class TargetCall
{
public:
    static constexpr int kNoHandle = -1;

    /* A call without a time-out (the connection calls) passes -1; a call
     * without a handle (the database calls) passes kNoHandle. */
    TargetCall(const char *name, int handle, qint64 timeoutMs, QStringList inputs = QStringList());

    TAVO_RESULT run(bool argumentsValid, const SimTarget::Work &work);

    /* Logs a call that takes neither handle nor time-out and never reaches
     * the target (the text calls). */
    static void logLocal(const char *name, QStringList inputs);

private:
    QString m_name;
    int m_handle;
    qint64 m_timeoutMs;
    QStringList m_inputs;
};

/* ---- Inputs as "name=value" ---- */

template <typename T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
QString Input(const char *name, T value)
{
    return QLatin1String(name) + QLatin1Char('=') + QString::number(value);
}

QString Input(const char *name, const char *text);

/* The value behind an input pointer, or "null". */
template <typename T>
QString Input(const char *name, const T *value)
{
    return value ? Input(name, *value) : QLatin1String(name) + QStringLiteral("=null");
}

/* A request record of `size` bytes, of which the command takes `taken`: the
 * bytes it takes (never more than `size`), as 32-bit words ("4,132") when
 * they are whole words, else in hex, followed by "..." when the caller gave
 * more; "null" for a null pointer. Only the bytes both sides agree on are
 * read, so a wrong size never reads past the caller's buffer. */
QString RequestInput(const char *name, const void *request, uint32_t size, uint32_t taken);

} // namespace TavoSim
