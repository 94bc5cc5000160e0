#include "TdscdmaTpcDockWidgetV3.h"

#include "Chart/CalDataChart.h"
#include "PageRegistration.h"
#include "ui_TdscdmaTpcDockWidgetV3.h"

RADBENCH_REGISTER_PAGE(CTdscdmaTpcDockWidgetV3)

CTdscdmaTpcDockWidgetV3::CTdscdmaTpcDockWidgetV3(QWidget *parent)
    : CTdscdmaTpcDockWidget(parent, SOwnForm()), m_ui(new Ui::CTdscdmaTpcDockWidgetV3)
{
    m_ui->setupUi(this);
    BindOperationWidgets(m_ui->calDataIf_config_group1_memberProperty_band);
    AttachChart(CCalDataChart::ForTpc(
        m_ui->calDataIf_data_group5_memberProperty_paH, m_ui->calDataIf_data_group6_memberProperty_paH,
        {m_ui->calDataIf_data_group2_memberProperty_hysteresisStart0, m_ui->calDataIf_data_group2_memberProperty_hysteresisEnd0,
         m_ui->calDataIf_data_group2_memberProperty_hysteresisStart1, m_ui->calDataIf_data_group2_memberProperty_hysteresisEnd1},
        this));
}

CTdscdmaTpcDockWidgetV3::~CTdscdmaTpcDockWidgetV3() = default;
