#include "TdscdmaRadbenchCore.h"

#include <QThreadPool>
#include <QtConcurrent>

#include "ItemInfo.h"
#include "TdscdmaCore.h"

CTdscdmaRadbenchCore::CTdscdmaRadbenchCore(QObject *parent) : QObject(parent) {}

template <typename Function, typename... Args>
void CTdscdmaRadbenchCore::Run(Function internal, Args... args)
{
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, internal, args...);
}

template <typename Slot>
void CTdscdmaRadbenchCore::StartTest(int pageItem, const std::string &model, Slot slot)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    connect(core, &CTdscdmaCore::Signal_TestDone, this, slot);
    core->TestStart(GetPageItemName(pageItem), model);
}

template <typename Signal, typename Slot>
void CTdscdmaRadbenchCore::EndRun(Signal controllerSignal, Slot slot)
{
    disconnect(CTdscdmaCore::GetInstance(), controllerSignal, this, slot);
}

// ---- The form's operations ---------------------------------------------------

void CTdscdmaRadbenchCore::SetUbin(bool enable) { Run(&CTdscdmaRadbenchCore::SetUbinInternal, enable); }

void CTdscdmaRadbenchCore::SetUbinInternal(bool enable)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    connect(core, &CTdscdmaCore::Signal_SetUbinDone, this, &CTdscdmaRadbenchCore::Slot_SetUbinDone);
    core->SetUbin(enable);
}

void CTdscdmaRadbenchCore::Slot_SetUbinDone(SEachItemOperationResult itemResult)
{
    EndRun(&CTdscdmaCore::Signal_SetUbinDone, &CTdscdmaRadbenchCore::Slot_SetUbinDone);
    emit Signal_SetUbinDone(itemResult);
}

void CTdscdmaRadbenchCore::GetInitPageList() { Run(&CTdscdmaRadbenchCore::GetInitPageListInternal); }

void CTdscdmaRadbenchCore::GetInitPageListInternal()
{
    emit Signal_GetInitPageListDone(CTdscdmaCore::GetInstance()->GetInitPageList());
}

SRatSupportStatus CTdscdmaRadbenchCore::GetRatSupportStatus()
{
    return CTdscdmaCore::GetInstance()->GetRatSupportStatus();
}

bool CTdscdmaRadbenchCore::IsNeedDb() { return CTdscdmaCore::GetInstance()->IsNeedDb(); }

void CTdscdmaRadbenchCore::ResetCapability() { CTdscdmaCore::GetInstance()->ResetCapability(); }

// ---- Pages' models -------------------------------------------------------------

void CTdscdmaRadbenchCore::GetDataModelInternal(int pageItem, ModelSignal done)
{
    emit(this->*done)(CTdscdmaCore::GetInstance()->GetDataModel(GetPageItemName(pageItem)));
}

void CTdscdmaRadbenchCore::GetContTxDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_CONT_TX),
        &CTdscdmaRadbenchCore::Signal_GetContTxDataModelDone);
}

void CTdscdmaRadbenchCore::GetTpcDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_TPC),
        &CTdscdmaRadbenchCore::Signal_GetTpcDataModelDone);
}

void CTdscdmaRadbenchCore::GetPathlossDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_RX_PATHLOSS),
        &CTdscdmaRadbenchCore::Signal_GetPathlossDataModelDone);
}

void CTdscdmaRadbenchCore::GetTadcDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_TADC),
        &CTdscdmaRadbenchCore::Signal_GetTadcDataModelDone);
}

void CTdscdmaRadbenchCore::GetContRxDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_CONT_RX),
        &CTdscdmaRadbenchCore::Signal_GetContRxDataModelDone);
}

void CTdscdmaRadbenchCore::GetAfcDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_AFC_CONTROL),
        &CTdscdmaRadbenchCore::Signal_GetAfcDataModelDone);
}

void CTdscdmaRadbenchCore::GetDpchTxDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_DPCH_TX),
        &CTdscdmaRadbenchCore::Signal_GetDpchTxDataModelDone);
}

void CTdscdmaRadbenchCore::GetRssiDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_RSSI),
        &CTdscdmaRadbenchCore::Signal_GetRssiDataModelDone);
}

void CTdscdmaRadbenchCore::GetBBRegDataModel()
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, int(PAGE_ITEM_BB_REGISTER),
        &CTdscdmaRadbenchCore::Signal_GetBBRegDataModelDone);
}

// ---- Tests -------------------------------------------------------------------

void CTdscdmaRadbenchCore::ContTxTest(std::string model) { Run(&CTdscdmaRadbenchCore::ContTxTestInternal, model); }
void CTdscdmaRadbenchCore::ContRxTest(std::string model) { Run(&CTdscdmaRadbenchCore::ContRxTestInternal, model); }
void CTdscdmaRadbenchCore::DpchTxTest(std::string model) { Run(&CTdscdmaRadbenchCore::DpchTxTestInternal, model); }
void CTdscdmaRadbenchCore::RssiTest(std::string model) { Run(&CTdscdmaRadbenchCore::RssiTestInternal, model); }
void CTdscdmaRadbenchCore::TadcMeasure(std::string model) { Run(&CTdscdmaRadbenchCore::TadcMeasureInternal, model); }
void CTdscdmaRadbenchCore::AfcTest(std::string model) { Run(&CTdscdmaRadbenchCore::AfcTestInternal, model); }

void CTdscdmaRadbenchCore::ContTxTestInternal(std::string model)
{
    StartTest(PAGE_ITEM_CONT_TX, model, &CTdscdmaRadbenchCore::Slot_ContTxTestDone);
}

void CTdscdmaRadbenchCore::ContRxTestInternal(std::string model)
{
    StartTest(PAGE_ITEM_CONT_RX, model, &CTdscdmaRadbenchCore::Slot_ContRxTestDone);
}

void CTdscdmaRadbenchCore::DpchTxTestInternal(std::string model)
{
    StartTest(PAGE_ITEM_DPCH_TX, model, &CTdscdmaRadbenchCore::Slot_DpchTxTestDone);
}

void CTdscdmaRadbenchCore::RssiTestInternal(std::string model)
{
    StartTest(PAGE_ITEM_RSSI, model, &CTdscdmaRadbenchCore::Slot_RssiTestDone);
}

void CTdscdmaRadbenchCore::TadcMeasureInternal(std::string model)
{
    StartTest(PAGE_ITEM_TADC, model, &CTdscdmaRadbenchCore::Slot_TadcMeasureDone);
}

void CTdscdmaRadbenchCore::AfcTestInternal(std::string model)
{
    StartTest(PAGE_ITEM_AFC_CONTROL, model, &CTdscdmaRadbenchCore::Slot_AfcTestDone);
}

void CTdscdmaRadbenchCore::Slot_ContTxTestDone(SEachItemOperationResult result)
{
    EndRun(&CTdscdmaCore::Signal_TestDone, &CTdscdmaRadbenchCore::Slot_ContTxTestDone);
    emit Signal_ContTxTestDone(result);
}

void CTdscdmaRadbenchCore::Slot_ContRxTestDone(SEachItemOperationResult result)
{
    EndRun(&CTdscdmaCore::Signal_TestDone, &CTdscdmaRadbenchCore::Slot_ContRxTestDone);
    emit Signal_ContRxTestDone(result);
}

void CTdscdmaRadbenchCore::Slot_DpchTxTestDone(SEachItemOperationResult result)
{
    EndRun(&CTdscdmaCore::Signal_TestDone, &CTdscdmaRadbenchCore::Slot_DpchTxTestDone);
    emit Signal_DpchTxTestDone(result);
}

void CTdscdmaRadbenchCore::Slot_RssiTestDone(SEachItemOperationResult result, std::string resultModel)
{
    EndRun(&CTdscdmaCore::Signal_TestDone, &CTdscdmaRadbenchCore::Slot_RssiTestDone);
    emit Signal_RssiTestDone(result, resultModel);
}

void CTdscdmaRadbenchCore::Slot_TadcMeasureDone(SEachItemOperationResult result, std::string resultModel)
{
    EndRun(&CTdscdmaCore::Signal_TestDone, &CTdscdmaRadbenchCore::Slot_TadcMeasureDone);
    emit Signal_TadcMeasureDone(result, resultModel);
}

void CTdscdmaRadbenchCore::Slot_AfcTestDone(SEachItemOperationResult result)
{
    EndRun(&CTdscdmaCore::Signal_TestDone, &CTdscdmaRadbenchCore::Slot_AfcTestDone);
    emit Signal_AfcTestDone(result);
}

// ---- Stops -------------------------------------------------------------------

void CTdscdmaRadbenchCore::ContTxTestStop(std::string model)
{
    Run(&CTdscdmaRadbenchCore::TestStopInternal, GetPageItemName(PAGE_ITEM_CONT_TX), model);
}

void CTdscdmaRadbenchCore::ContRxTestStop(std::string model)
{
    Run(&CTdscdmaRadbenchCore::TestStopInternal, GetPageItemName(PAGE_ITEM_CONT_RX), model);
}

void CTdscdmaRadbenchCore::TestStop() { Run(&CTdscdmaRadbenchCore::TestStopInternal, QString(), std::string()); }

void CTdscdmaRadbenchCore::TestStopInternal(QString item, std::string model)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    connect(core, &CTdscdmaCore::Signal_TestStopDone, this, &CTdscdmaRadbenchCore::Slot_TestStopDone);
    if (item.isEmpty())
        core->TestStop();
    else
        core->TestStopByItem(item, model);
}

void CTdscdmaRadbenchCore::Slot_TestStopDone(SEachItemOperationResult itemResult)
{
    EndRun(&CTdscdmaCore::Signal_TestStopDone, &CTdscdmaRadbenchCore::Slot_TestStopDone);
    emit Signal_TestStopDone(itemResult);
}

// ---- Baseband registers ----------------------------------------------------------

void CTdscdmaRadbenchCore::RegRead(std::string model) { Run(&CTdscdmaRadbenchCore::RegReadInternal, model); }
void CTdscdmaRadbenchCore::RegWrite(std::string model) { Run(&CTdscdmaRadbenchCore::RegWriteInternal, model); }

void CTdscdmaRadbenchCore::RegReadInternal(std::string model)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    connect(core, &CTdscdmaCore::Signal_RegReadDone, this, &CTdscdmaRadbenchCore::Slot_RegReadDone);
    core->RegRead(model);
}

void CTdscdmaRadbenchCore::RegWriteInternal(std::string model)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    connect(core, &CTdscdmaCore::Signal_RegWriteDone, this, &CTdscdmaRadbenchCore::Slot_RegWriteDone);
    core->RegWrite(model);
}

void CTdscdmaRadbenchCore::Slot_RegReadDone(SEachItemOperationResult result, std::string resultModel)
{
    EndRun(&CTdscdmaCore::Signal_RegReadDone, &CTdscdmaRadbenchCore::Slot_RegReadDone);
    emit Signal_RegReadDone(result, resultModel);
}

void CTdscdmaRadbenchCore::Slot_RegWriteDone(SEachItemOperationResult result, std::string resultModel)
{
    EndRun(&CTdscdmaCore::Signal_RegWriteDone, &CTdscdmaRadbenchCore::Slot_RegWriteDone);
    emit Signal_RegWriteDone(result, resultModel);
}
