#include "TdscdmaAfcDockWidget.h"

#include <QCoreApplication>

#include "PageRegistration.h"
#include "TdscdmaRadbenchCore.h"

RADBENCH_REGISTER_PAGE(CTdscdmaAfcDockWidget)

CTdscdmaAfcDockWidget::CTdscdmaAfcDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaAfcDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaAfcDockWidget", "AFC Control"));
}

void CTdscdmaAfcDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetAfcDataModelDone, this,
            &CTdscdmaAfcDockWidget::Slot_GetDataModelDone);
    m_viewController->GetAfcDataModel();
}
