#pragma once

#include <QFuture>
#include <QObject>
#include <QStringList>

#include <string>

#include "Interface/RatSupportStatus.h"
#include "SEachItemOperationResult.h"
#include "TavoTargetAccess.h"

class TIniFile;

// Stands between the user interface thread and the controllers. A form or a
// page calls an operation here, which returns at once; the work runs in the
// global thread pool and the outcome comes back as a signal of this object
// on the user interface thread. The connection to the shared controller
// exists only for one run, so only the instance that asked hears the answer.
class CTdscdmaRadbenchCore : public QObject {
    Q_OBJECT
public:
    explicit CTdscdmaRadbenchCore(QObject *parent = nullptr);

    // Operations of the form.
    void SetUbin(bool enable);
    void GetInitPageList();
    SRatSupportStatus GetRatSupportStatus();
    bool IsNeedDb();
    void ResetCapability();

    // Pages' models.
    void GetContTxDataModel();
    void GetTpcDataModel();
    void GetPathlossDataModel();
    void GetTadcDataModel();
    void GetContRxDataModel();
    void GetAfcDataModel();
    void GetDpchTxDataModel();
    void GetRssiDataModel();
    void GetBBRegDataModel();

    // Tests and stops.
    void ContTxTest(std::string model);
    void ContRxTest(std::string model);
    void DpchTxTest(std::string model);
    void RssiTest(std::string model);
    void TadcMeasure(std::string model);
    void AfcTest(std::string model);
    void ContTxTestStop(std::string model);
    void ContRxTestStop(std::string model);
    void TestStop();

    // Baseband registers.
    void RegRead(std::string model);
    void RegWrite(std::string model);

signals:
    void Signal_SetUbinDone(SEachItemOperationResult itemResult);
    void Signal_GetInitPageListDone(QStringList pageList);

    void Signal_GetContTxDataModelDone(std::string dataModel);
    void Signal_GetTpcDataModelDone(std::string dataModel);
    void Signal_GetPathlossDataModelDone(std::string dataModel);
    void Signal_GetTadcDataModelDone(std::string dataModel);
    void Signal_GetContRxDataModelDone(std::string dataModel);
    void Signal_GetAfcDataModelDone(std::string dataModel);
    void Signal_GetDpchTxDataModelDone(std::string dataModel);
    void Signal_GetRssiDataModelDone(std::string dataModel);
    void Signal_GetBBRegDataModelDone(std::string dataModel);

    void Signal_ContTxTestDone(SEachItemOperationResult result);
    void Signal_ContRxTestDone(SEachItemOperationResult result);
    void Signal_DpchTxTestDone(SEachItemOperationResult result);
    void Signal_RssiTestDone(SEachItemOperationResult result, std::string resultModel);
    void Signal_TadcMeasureDone(SEachItemOperationResult result, std::string resultModel);
    void Signal_AfcTestDone(SEachItemOperationResult result);
    void Signal_TestStopDone(SEachItemOperationResult result);
    void Signal_RegReadDone(SEachItemOperationResult result, std::string resultModel);
    void Signal_RegWriteDone(SEachItemOperationResult result, std::string resultModel);

private slots:
    void Slot_SetUbinDone(SEachItemOperationResult itemResult);
    void Slot_ContTxTestDone(SEachItemOperationResult result);
    void Slot_ContRxTestDone(SEachItemOperationResult result);
    void Slot_DpchTxTestDone(SEachItemOperationResult result);
    void Slot_RssiTestDone(SEachItemOperationResult result, std::string resultModel);
    void Slot_TadcMeasureDone(SEachItemOperationResult result, std::string resultModel);
    void Slot_AfcTestDone(SEachItemOperationResult result);
    void Slot_TestStopDone(SEachItemOperationResult itemResult);
    void Slot_RegReadDone(SEachItemOperationResult result, std::string resultModel);
    void Slot_RegWriteDone(SEachItemOperationResult result, std::string resultModel);

private:
    using ModelSignal = void (CTdscdmaRadbenchCore::*)(std::string);

    void SetUbinInternal(bool enable);
    void GetInitPageListInternal();
    void GetDataModelInternal(int pageItem, ModelSignal done);

    void ContTxTestInternal(std::string model);
    void ContRxTestInternal(std::string model);
    void DpchTxTestInternal(std::string model);
    void RssiTestInternal(std::string model);
    void TadcMeasureInternal(std::string model);
    void AfcTestInternal(std::string model);
    void TestStopInternal(QString item, std::string model);
    void RegReadInternal(std::string model);
    void RegWriteInternal(std::string model);

    // Starts `internal` in the global pool and keeps its handle.
    template <typename Function, typename... Args>
    void Run(Function internal, Args... args);
    // Connects the controller's test signal to `slot` for this run and
    // starts the test of `pageItem`.
    template <typename Slot>
    void StartTest(int pageItem, const std::string &model, Slot slot);
    // Ends a run: drops the connection of `controllerSignal` to `slot`.
    template <typename Signal, typename Slot>
    void EndRun(Signal controllerSignal, Slot slot);

    QFuture<void> m_future;
    TIniFile *m_calFile = nullptr;
    std::string m_dataModel;
    CTavoTargetAccess m_targetAccess;
};
