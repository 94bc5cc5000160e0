#include "TdscdmaTpcDockWidgetV3.h"

#include "PageRegistration.h"
#include "ui_TdscdmaTpcDockWidgetV3.h"

RADBENCH_REGISTER_PAGE(CTdscdmaTpcDockWidgetV3)

CTdscdmaTpcDockWidgetV3::CTdscdmaTpcDockWidgetV3(QWidget *parent)
    : CTdscdmaTpcDockWidget(parent, SOwnForm()), m_ui(new Ui::CTdscdmaTpcDockWidgetV3)
{
    m_ui->setupUi(this);
    BindOperationWidgets(m_ui->calDataIf_config_group1_memberProperty_band);
}

CTdscdmaTpcDockWidgetV3::~CTdscdmaTpcDockWidgetV3() = default;
