#pragma once

#include <QByteArray>
#include <QLoggingCategory>

#include <cstddef>
#include <cstdint>

// What every fuzzer does first, once: the tool's trace and its complaints
// about bad input off (they are the expected answer to most inputs and
// would drown the fuzzer's own output).
inline void QuietTool()
{
    QLoggingCategory::setFilterRules("*.debug=false\n*.warning=false\n*.critical=false");
}

inline QByteArray Bytes(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), int(size));
}
