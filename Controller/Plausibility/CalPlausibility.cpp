#include "CalPlausibility.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

#include "JsonPath.h"

const std::array<const char *, STpcCurves::kModes> STpcCurves::kModeNames{"PA_H", "PA_M", "PA_L"};

namespace {

// Two values a table shows alike are equal: no fault stands on rounding.
constexpr double kEpsilon = 1e-6;

const std::array<const char *, STpcCurves::kModes> kModeMembers{"paH", "paM", "paL"};

QString Number(double value) { return QString::number(value, 'g', 8); }

bool IsCalibrated(const QVector<double> &dac)
{
    return std::any_of(dac.cbegin(), dac.cend(), [](double word) { return word != 0.0; });
}

// The data group of a model named `name`.
QJsonObject Group(const QJsonObject &model, const QString &name)
{
    const QJsonObject groups = GetJsonValueConst(model, "calDataIf.data").toObject();
    for (const QJsonValue &group : groups) {
        if (group.toObject().value("groupName").toString() == name)
            return group.toObject();
    }
    return {};
}

// The values of a member of a table group, as numbers.
QVector<double> Values(const QJsonObject &group, const QString &member)
{
    QVector<double> values;
    const QJsonValue value = GetJsonValueConst(group, "memberProperty." + member + ".trait.defaultValue");
    for (const QJsonValue &entry : value.toArray())
        values << (entry.isString() ? entry.toString().toDouble() : entry.toDouble());
    return values;
}

double Value(const QJsonObject &group, const QString &member)
{
    const QJsonValue value = GetJsonValueConst(group, "memberProperty." + member + ".trait.defaultValue");
    return value.isString() ? value.toString().toDouble() : value.toDouble();
}

} // namespace

QVector<SCalFault> CCalPlausibility::CheckTpc(const STpcCurves &curves)
{
    QVector<SCalFault> faults;
    for (int mode = 0; mode < STpcCurves::kModes; ++mode) {
        const QVector<double> &dac = curves.dac[size_t(mode)];
        const QVector<double> &power = curves.power[size_t(mode)];
        if (!IsCalibrated(dac))
            continue;
        const QString name = STpcCurves::kModeNames[size_t(mode)];
        for (int point = 1; point < std::min(dac.size(), power.size()); ++point) {
            QString text;
            SCalFault::EKind kind = SCalFault::EKind::DacNotRising;
            if (dac[point] <= dac[point - 1]) {
                text = QString("%1: DAC word %2 of point %3 is not above %4 of point %5")
                           .arg(name, Number(dac[point]))
                           .arg(point)
                           .arg(Number(dac[point - 1]))
                           .arg(point - 1);
            } else if (power[point] <= power[point - 1] + kEpsilon) {
                kind = SCalFault::EKind::PowerNotRising;
                text = QString("%1: power %2 dBm at DAC %3 does not rise above %4 dBm at DAC %5")
                           .arg(name, Number(power[point]), Number(dac[point]), Number(power[point - 1]),
                                Number(dac[point - 1]));
            }
            if (!text.isEmpty())
                faults.append({kind, {{mode, point}}, text});
        }
    }
    // Neighbouring modes: the stronger one's lowest power must lie below the
    // weaker one's highest by the switch point's hysteresis.
    for (int pair = 0; pair + 1 < STpcCurves::kModes; ++pair) {
        const int strong = pair, weak = pair + 1;
        const QVector<double> &strongPower = curves.power[size_t(strong)];
        const QVector<double> &weakPower = curves.power[size_t(weak)];
        if (!IsCalibrated(curves.dac[size_t(strong)]) || !IsCalibrated(curves.dac[size_t(weak)]) ||
            strongPower.isEmpty() || weakPower.isEmpty())
            continue;
        const auto lowest = std::min_element(strongPower.cbegin(), strongPower.cend());
        const auto highest = std::max_element(weakPower.cbegin(), weakPower.cend());
        const double overlap = *highest - *lowest;
        const double hysteresis = std::abs(curves.hysteresisEnd[size_t(pair)] - curves.hysteresisStart[size_t(pair)]);
        if (overlap + kEpsilon >= hysteresis)
            continue;
        faults.append({SCalFault::EKind::ShortOverlap,
                       {{strong, int(lowest - strongPower.cbegin())}, {weak, int(highest - weakPower.cbegin())}},
                       QString("%1 and %2 overlap by %3 dB, less than the hysteresis of %4 dB")
                           .arg(STpcCurves::kModeNames[size_t(strong)], STpcCurves::kModeNames[size_t(weak)],
                                Number(overlap), Number(hysteresis))});
    }
    return faults;
}

QVector<SCalFault> CCalPlausibility::CheckPathloss(const SPathlossCurves &curves, double maxJump)
{
    QVector<SCalFault> faults;
    for (int mode = 0; mode < curves.losses.size(); ++mode) {
        const QVector<double> &loss = curves.losses[mode];
        int previous = -1;
        for (int point = 0; point < std::min(loss.size(), curves.channels.size()); ++point) {
            if (curves.channels[point] == 0.0)
                continue;
            if (previous >= 0) {
                const double jump = std::abs(loss[point] - loss[previous]);
                if (jump > maxJump + kEpsilon)
                    faults.append({SCalFault::EKind::LossJump,
                                   {{mode, point}},
                                   QString("%1 jumps %2 dB from UARFCN %3 to %4, more than %5 dB")
                                       .arg(curves.modes.value(mode), Number(jump), Number(curves.channels[previous]),
                                            Number(curves.channels[point]), Number(maxJump))});
            }
            previous = point;
        }
    }
    return faults;
}

bool CCalPlausibility::TpcFromModel(const QJsonObject &model, STpcCurves &curves)
{
    const QJsonObject dac = Group(model, "VGA DAC"), power = Group(model, "Power (dBm)");
    const QJsonObject hysteresis = Group(model, "Hysteresis");
    if (dac.isEmpty() || power.isEmpty())
        return false;
    for (int mode = 0; mode < STpcCurves::kModes; ++mode) {
        curves.dac[size_t(mode)] = Values(dac, kModeMembers[size_t(mode)]);
        curves.power[size_t(mode)] = Values(power, kModeMembers[size_t(mode)]);
    }
    for (int pair = 0; pair + 1 < STpcCurves::kModes; ++pair) {
        curves.hysteresisStart[size_t(pair)] = Value(hysteresis, QString("hysteresisStart%1").arg(pair));
        curves.hysteresisEnd[size_t(pair)] = Value(hysteresis, QString("hysteresisEnd%1").arg(pair));
    }
    return true;
}

bool CCalPlausibility::PathlossFromModel(const QJsonObject &model, SPathlossCurves &curves)
{
    const QJsonObject main = Group(model, "RX Main");
    if (main.isEmpty())
        return false;
    const QJsonObject properties = main.value("memberProperty").toObject();
    curves = SPathlossCurves();
    curves.channels = Values(main, "uarfcn");
    for (const QJsonValue &member : main.value("memberList").toArray()) {
        const QJsonObject property = properties.value(member.toString()).toObject();
        if (member.toString() == "uarfcn" || property.value("defaultSupport").toInt(0) != 1)
            continue;
        curves.modes << property.value("caption").toString();
        curves.losses << Values(main, member.toString());
    }
    return true;
}
