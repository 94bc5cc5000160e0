#include "TdscdmaDpchTxDockWidget.h"

#include <QCoreApplication>

#include "TdscdmaRadbenchCore.h"

CTdscdmaDpchTxDockWidget::CTdscdmaDpchTxDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    setObjectName("CTdscdmaDpchTxDockWidget");
    setWindowTitle(QCoreApplication::translate("CTdscdmaDpchTxDockWidget", "DPCH TX"));
}

void CTdscdmaDpchTxDockWidget::RequestDataModel()
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetDpchTxDataModelDone, this,
            &CTdscdmaDpchTxDockWidget::Slot_GetDataModelDone);
    m_viewController->GetDpchTxDataModel();
}
