#pragma once

#include <QJsonObject>
#include <QVector>

#include "CalCurves.h"

// What a real calibration fault looks like, found in calibration data: a
// PA mode's power that does not rise with its DAC word, neighbouring PA
// modes whose power ranges do not overlap by their switch point's
// hysteresis, a path loss that jumps between neighbouring channels. The
// check informs; it never stops a write.
class CCalPlausibility {
public:
    // The largest change of a path loss between neighbouring sub-bands, in dB,
    // that a real front end shows.
    static constexpr double kDefaultLossJump = 3.0;

    // A PA mode whose DAC words are all 0 is not calibrated and not checked.
    static QVector<SCalFault> CheckTpc(const STpcCurves &curves);
    // Channels of 0 are unused sub-bands and not checked.
    static QVector<SCalFault> CheckPathloss(const SPathlossCurves &curves, double maxJump = kDefaultLossJump);

    // The curves of a calibration page's model as the controller answers it
    // (the values in each member's trait.defaultValue); false when the model
    // has no such data.
    static bool TpcFromModel(const QJsonObject &model, STpcCurves &curves);
    static bool PathlossFromModel(const QJsonObject &model, SPathlossCurves &curves);
};
