#include "TdscdmaBBRegDockWidget.h"

#include <QCoreApplication>

#include "TdscdmaRadbenchCore.h"

CTdscdmaBBRegDockWidget::CTdscdmaBBRegDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaBBRegDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaBBRegDockWidget", "Baseband Register"));
}

void CTdscdmaBBRegDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetBBRegDataModelDone, this,
            &CTdscdmaBBRegDockWidget::Slot_GetDataModelDone);
    m_viewController->GetBBRegDataModel();
}
