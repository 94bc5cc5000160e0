#pragma once

#include <QJsonObject>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

#include "SEachItemOperationResult.h"

class CTdscdmaCore;

// The radio tests of the test pages and the baseband registers without a
// window: a page's request built from its model's defaults and the user's
// values, the test run and (for a test that holds the target) stopped, and
// the answer read back from the model as the page would show it.
class CRadioSession {
public:
    // A member's caption and the value the target answered.
    using Shown = QVector<QPair<QString, QString>>;

    struct SOutcome {
        SEachItemOperationResult result;
        // The stop of a test that holds the target (code 0 when none was needed).
        SEachItemOperationResult stop;
        bool stopped = false;
        Shown shown;

        bool IsSuccess() const { return result.IsSuccess() && stop.IsSuccess(); }
    };

    CRadioSession();
    // Releases the target if it was armed.
    ~CRadioSession();

    // Arms the target as the window does when it opens.
    SEachItemOperationResult Arm();

    // The tests of the connected target's pages, in the order of the pages.
    QStringList Tests();

    // The request of `item`'s page: each member at its default, then the
    // "member=value" pairs over them. False and `error` for a member the
    // page does not have or a value outside its list or range.
    bool BuildRequest(const QString &item, const QStringList &assignments, QJsonObject &request, QString &error);

    // Runs `item`'s test; a test that holds the target runs for `holdMs`,
    // then stops.
    SOutcome Run(const QString &item, const QJsonObject &request, int holdMs);

    // A baseband register: its value into `value`.
    SEachItemOperationResult ReadRegister(quint16 address, quint16 &value);
    SEachItemOperationResult WriteRegister(quint16 address, quint16 value);

private:
    CTdscdmaCore *m_core;
    bool m_armed = false;
};
