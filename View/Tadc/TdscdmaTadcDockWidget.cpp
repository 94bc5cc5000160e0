#include "TdscdmaTadcDockWidget.h"

#include <QCoreApplication>

#include "PageRegistration.h"
#include "TdscdmaRadbenchCore.h"

RADBENCH_REGISTER_PAGE(CTdscdmaTadcDockWidget)

CTdscdmaTadcDockWidget::CTdscdmaTadcDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaTadcDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaTadcDockWidget", "Temperature ADC"));
}

void CTdscdmaTadcDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetTadcDataModelDone, this,
            &CTdscdmaTadcDockWidget::Slot_GetDataModelDone);
    m_viewController->GetTadcDataModel();
}
