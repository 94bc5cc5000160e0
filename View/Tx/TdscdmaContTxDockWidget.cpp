#include "TdscdmaContTxDockWidget.h"

#include <QCoreApplication>

#include "TdscdmaRadbenchCore.h"

CTdscdmaContTxDockWidget::CTdscdmaContTxDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaContTxDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaContTxDockWidget", "Continuous TX"));
}

void CTdscdmaContTxDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetContTxDataModelDone, this,
            &CTdscdmaContTxDockWidget::Slot_GetDataModelDone);
    m_viewController->GetContTxDataModel();
}
