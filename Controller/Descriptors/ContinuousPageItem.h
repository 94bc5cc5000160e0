#pragma once

#include <cstdint>

#include "Interface/PageItemDescriptor.h"

// A continuous test ("Continuous TX", "Continuous RX"): the target transmits
// or receives on the request's channel until the stop, which turns it off on
// that channel. `Operation` switches the test by its `on` and `off`.
template <typename Operation>
class CContinuousPageItem : public CPageItemDescriptor {
public:
    using Switch = int (Operation::*)(uint16_t uarfcn);

    CContinuousPageItem(int id, const QString &name, const QString &pageClass, const QString &resource, Switch on,
                        Switch off)
        : CPageItemDescriptor(id, name, pageClass, SPageModel::ForTestPage(resource, true)), m_on(on), m_off(off)
    {
    }

    void Test(STestRun &run) override { Turn(m_on, run); }
    ETestKind TestKind() const override { return ETestKind::Held; }

    bool Stop(STestRun &run) override
    {
        Turn(m_off, run);
        return true;
    }

private:
    void Turn(Switch turn, STestRun &run)
    {
        run.code = (m_operation.*turn)(RequestUarfcn(run.request));
        run.errorMessage = m_operation.GetErrorMessage();
    }

    Operation m_operation;
    const Switch m_on;
    const Switch m_off;
};
