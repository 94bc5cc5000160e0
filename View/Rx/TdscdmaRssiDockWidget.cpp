#include "TdscdmaRssiDockWidget.h"

#include <QCoreApplication>

#include "TdscdmaRadbenchCore.h"

CTdscdmaRssiDockWidget::CTdscdmaRssiDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaRssiDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaRssiDockWidget", "RSSI"));
}

void CTdscdmaRssiDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetRssiDataModelDone, this,
            &CTdscdmaRssiDockWidget::Slot_GetDataModelDone);
    m_viewController->GetRssiDataModel();
}
