#include "TdscdmaTpcDockWidgetV3.h"

#include <QCoreApplication>

#include "PageRegistration.h"
#include "TdscdmaRadbenchCore.h"

RADBENCH_REGISTER_PAGE(CTdscdmaTpcDockWidgetV3)

CTdscdmaTpcDockWidgetV3::CTdscdmaTpcDockWidgetV3(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaTpcDockWidgetV3");
    setWindowTitle(QCoreApplication::translate("CTdscdmaTpcDockWidgetV3", "TPC Profile"));
}

void CTdscdmaTpcDockWidgetV3::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetTpcDataModelDone, this,
            &CTdscdmaTpcDockWidgetV3::Slot_GetDataModelDone);
    m_viewController->GetTpcDataModel();
}
