#include "TdscdmaPathlossDockWidget.h"

#include <QCoreApplication>

#include "PageRegistration.h"
#include "TdscdmaRadbenchCore.h"

RADBENCH_REGISTER_PAGE(CTdscdmaPathlossDockWidget)

CTdscdmaPathlossDockWidget::CTdscdmaPathlossDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaPathlossDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaPathlossDockWidget", "PathLoss"));
}

void CTdscdmaPathlossDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetPathlossDataModelDone, this,
            &CTdscdmaPathlossDockWidget::Slot_GetDataModelDone);
    m_viewController->GetPathlossDataModel();
}
