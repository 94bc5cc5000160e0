#pragma once
/* Asking the simulated target for its answers the way the plug-in does, and
 * reading the raw bytes back by offset, independently of the library. */

#include <QByteArray>
#include <QString>

#include "TavoApp.h"
#include "TavoCore.h"

namespace TargetAnswers {

/* What an output buffer holds before a call; a call that fails must leave it so. */
constexpr char kUntouched = '\x5a';

struct Answer
{
    TAVO_RESULT result = -1;
    QByteArray bytes;
    bool untouched() const { return bytes.count(kUntouched) == bytes.size(); }
};

inline quint32 u32At(const QByteArray &b, int offset)
{
    const auto *p = reinterpret_cast<const uchar *>(b.constData()) + offset;
    return quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
}

/* A valid capability word carrying `value`. */
constexpr quint32 validWord(quint32 value) { return value << 2 | 1u; }

/* Records by the names the tests use: "chipId" (u16 chip, u16 RF chip),
 * "capability" (u32 flags, u32 bands), "rfCapability", "multiRat", "lte",
 * "gsmEx3", "gsmEx2". */
inline Answer fetch(const QString &record)
{
    Answer a;
    auto buffer = [&](int size) {
        a.bytes = QByteArray(size, kUntouched);
        return a.bytes.data();
    };
    if (record == QLatin1String("chipId")) {
        auto *ids = reinterpret_cast<uint16_t *>(buffer(4));
        a.result = AST_CAL_get_chipid_r(0, 10000, ids, ids + 1);
    } else if (record == QLatin1String("capability")) {
        auto *w = reinterpret_cast<uint32_t *>(buffer(8));
        a.result = AST_CAL_get_capability_r(0, 10000, w, w + 1);
    } else if (record == QLatin1String("rfCapability")) {
        a.result = AST_GetRfCapability_r(0, 10000, buffer(48), 48);
    } else if (record == QLatin1String("multiRat")) {
        const uint32_t req[2] = {4, 132};
        a.result = TAVO_MMRf_GetRfCapability_r(0, 10000, req, sizeof req, buffer(144), 144);
    } else if (record == QLatin1String("lte")) {
        const uint32_t req[2] = {56, 180};
        a.result = TAVO_ERf_GetRfCapability_r(0, 10000, req, sizeof req, buffer(248), 248);
    } else if (record == QLatin1String("gsmEx3")) {
        const uint32_t req[2] = {2, 112};
        a.result = TAVO_Rf_QueryMSCapabilityEx3_r(0, 10000, req, sizeof req, buffer(124), 124);
    } else if (record == QLatin1String("gsmEx2")) {
        a.result = TAVO_Rf_QueryMSCapabilityEx2_r(0, 10000, buffer(8), 8);
    }
    return a;
}

} // namespace TargetAnswers
