#pragma once

#include <memory>

#include "TdscdmaTpcDockWidget.h"

namespace Ui {
class CTdscdmaTpcDockWidgetV3;
}

// The page "Tpc" on targets with structure version 2: the TPC page with the
// V3 model, whose group "TX Power Setting" comes fourth.
class CTdscdmaTpcDockWidgetV3 : public CTdscdmaTpcDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CTdscdmaTpcDockWidgetV3(QWidget *parent = nullptr);
    ~CTdscdmaTpcDockWidgetV3() override;

private:
    std::unique_ptr<Ui::CTdscdmaTpcDockWidgetV3> m_ui;
};
