#include "TdscdmaTpcDockWidget.h"

#include <QCoreApplication>

#include "PageRegistration.h"
#include "TdscdmaRadbenchCore.h"

RADBENCH_REGISTER_PAGE(CTdscdmaTpcDockWidget)

CTdscdmaTpcDockWidget::CTdscdmaTpcDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaTpcDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaTpcDockWidget", "TPC Profile"));
}

void CTdscdmaTpcDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetTpcDataModelDone, this,
            &CTdscdmaTpcDockWidget::Slot_GetDataModelDone);
    m_viewController->GetTpcDataModel();
}
