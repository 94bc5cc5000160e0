#pragma once

#include <QString>
#include <QTest>

#include "TavoSimControl.h"

// Puts the simulated target on a profile for the length of a scope, and
// makes sure no test leaves faults or latencies behind for the next one.
class SimScope {
public:
    explicit SimScope(const QString &profile = "default")
    {
        QString error;
        m_loaded = TavoSim::LoadProfile(profile, &error);
        if (!m_loaded)
            qWarning("cannot load profile %s: %s", qPrintable(profile), qPrintable(error));
    }
    ~SimScope() { TavoSim::Reset(); }

    bool IsLoaded() const { return m_loaded; }

    SimScope(const SimScope &) = delete;
    SimScope &operator=(const SimScope &) = delete;

private:
    bool m_loaded = false;
};
