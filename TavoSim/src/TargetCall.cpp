#include "TargetCall.h"

#include <QThread>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace TavoSim {

TargetCall::TargetCall(const char *name, int handle, qint64 timeoutMs, QStringList inputs)
    : m_name(QString::fromLatin1(name)), m_handle(handle), m_timeoutMs(timeoutMs), m_inputs(std::move(inputs))
{
}

TAVO_RESULT TargetCall::run(bool argumentsValid, const SimTarget::Work &work)
{
    SimTarget &target = SimTarget::instance();

    CallRecord record;
    record.name = m_name;
    record.handle = m_handle;
    record.timeoutMs = int(std::min<qint64>(m_timeoutMs, std::numeric_limits<int>::max()));
    record.args = m_inputs;
    const CallHistory::Ticket ticket = target.logCall(record);

    const TAVO_RESULT result = [&] {
        if (m_handle != 0 && m_handle != kNoHandle)
            return TAVO_RESULT(TAVO_ERR_NOT_CONNECTED);
        if (!argumentsValid)
            return TAVO_RESULT(TAVO_ERR_INVALID_ARGUMENT);
        const int latency = target.latency(m_name);
        if (m_timeoutMs >= 0 && latency > m_timeoutMs) {
            QThread::msleep(static_cast<unsigned long>(m_timeoutMs));
            return TAVO_RESULT(TAVO_ERR_TIMEOUT);
        }
        if (latency > 0)
            QThread::msleep(static_cast<unsigned long>(latency));
        return target.execute(ticket, m_name, m_inputs, work);
    }();

    target.logResult(ticket, result);
    return result;
}

void TargetCall::logLocal(const char *name, QStringList inputs)
{
    CallRecord record;
    record.name = QString::fromLatin1(name);
    record.args = std::move(inputs);
    SimTarget::instance().logCall(record);
}

QString Input(const char *name, const char *text)
{
    return QLatin1String(name) + QLatin1Char('=') + (text ? QString::fromUtf8(text) : QStringLiteral("null"));
}

QString RequestInput(const char *name, const void *request, uint32_t size, uint32_t taken)
{
    if (!request)
        return QLatin1String(name) + QStringLiteral("=null");
    const auto *bytes = static_cast<const uchar *>(request);
    const uint32_t shown = std::min(size, taken);
    QStringList parts;
    if (shown % 4 == 0) {
        for (uint32_t offset = 0; offset < shown; offset += 4)
            parts << QString::number(qFromLittleEndian<quint32>(bytes + offset));
    } else {
        parts << QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(bytes), int(shown)).toHex());
    }
    if (shown < size)
        parts << QStringLiteral("...");
    return QLatin1String(name) + QLatin1Char('=') + parts.join(QLatin1Char(','));
}

} // namespace TavoSim
