#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>

// The TPC data of one band as curves: for each PA mode (high, middle, low)
// the VGA DAC words and the powers measured at them, point by point as the
// table holds them, and the hysteresis of the two switch points between
// neighbouring modes (high/middle, middle/low).
struct STpcCurves {
    static constexpr int kModes = 3;
    static const std::array<const char *, kModes> kModeNames;

    std::array<QVector<double>, kModes> dac;
    std::array<QVector<double>, kModes> power;
    std::array<double, kModes - 1> hysteresisStart{};
    std::array<double, kModes - 1> hysteresisEnd{};
};

// The RX path loss of one band as curves: the loss of each gain mode over
// the sub-bands' channels.
struct SPathlossCurves {
    QVector<double> channels;
    // One curve per mode, one loss per channel.
    QVector<QVector<double>> losses;
    QStringList modes;
};

// A value that does not look like a real calibration: the points it
// concerns, as (curve, point) of the curves checked, and what is wrong.
struct SCalFault {
    enum class EKind { PowerNotRising, ShortOverlap, LossJump, DacNotRising };

    EKind kind = EKind::PowerNotRising;
    QVector<QPair<int, int>> points;
    QString text;
};
