#include "TdscdmaContRxDockWidget.h"

#include <QCoreApplication>

#include "TdscdmaRadbenchCore.h"

CTdscdmaContRxDockWidget::CTdscdmaContRxDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaContRxDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaContRxDockWidget", "Continuous RX"));
}

void CTdscdmaContRxDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetContRxDataModelDone, this,
            &CTdscdmaContRxDockWidget::Slot_GetDataModelDone);
    m_viewController->GetContRxDataModel();
}
