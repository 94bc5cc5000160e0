#pragma once

#include <QFuture>
#include <QJsonObject>
#include <QObject>
#include <QStringList>

#include <functional>
#include <string>

#include "Interface/CalDataMovement.h"
#include "Interface/RatSupportStatus.h"
#include "SEachItemOperationResult.h"

class TIniFile;

// Stands between the user interface thread and the controllers. A form or a
// page calls an operation here, which returns at once; the work runs in the
// global thread pool and the outcome comes back as a signal of this object
// on the user interface thread.
//
// Every request goes one generic way, by the id of its page item or
// calibration item: GetDataModel, Test, StartCalData. A run connects to the
// controller's done signal for that run only and carries its own state (the
// page's model, the Cal/INI file) in that connection, so only the instance
// that asked hears the answer and no two runs share anything. The named
// operations (ContTxTest, TpcUploadFromFlashStart...) are the same requests
// for the tool's own pages, answering with their own signals besides the
// generic one.
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

    // The model of a page item, fitted to the target: Signal_GetDataModelDone.
    void GetDataModel(int pageItem);
    void GetContTxDataModel();
    void GetTpcDataModel();
    void GetPathlossDataModel();
    void GetTadcDataModel();
    void GetContRxDataModel();
    void GetAfcDataModel();
    void GetDpchTxDataModel();
    void GetRssiDataModel();
    void GetBBRegDataModel();

    // The test of a page item with the page's model: Signal_TestDone.
    void Test(int pageItem, std::string model);
    void ContTxTest(std::string model);
    void ContRxTest(std::string model);
    void DpchTxTest(std::string model);
    void RssiTest(std::string model);
    void TadcMeasure(std::string model);
    void AfcTest(std::string model);
    // Stops: Signal_TestStopDone.
    void ContTxTestStop(std::string model);
    void ContRxTestStop(std::string model);
    void TestStop();

    // Baseband registers.
    void RegRead(std::string model);
    void RegWrite(std::string model);

    // A movement of a calibration item's data, with the page's model (and
    // the Cal/INI file at `path` for a load or save): Signal_CalDataDone. An
    // upload or load answers the model filled with the item's data of the
    // band it shows; a download or save first stores the model's values in
    // the item.
    void StartCalData(ECalDataMovement movement, int calItem, std::string model, QString path = QString());
    void TpcUploadFromFlashStart(std::string model);
    void TpcLoadFromFileStart(QString path, std::string model);
    void TpcDownloadToFlashStart(std::string model);
    void TpcSaveToFileStart(QString path, std::string model);
    void PathlossUploadFromFlashStart(std::string model);
    void PathlossLoadFromFileStart(QString path, std::string model);
    void PathlossDownloadToFlashStart(std::string model);
    void PathlossSaveToFileStart(QString path, std::string model);
    void TadcUploadFromFlashStart(std::string model);
    void TadcLoadFromFileStart(QString path, std::string model);
    void TadcDownloadToFlashStart(std::string model);
    void TadcSaveToFileStart(QString path, std::string model);
    void AfcUploadFromFlashStart(std::string model);
    void AfcLoadFromFileStart(QString path, std::string model);
    void AfcDownloadToFlashStart(std::string model);
    void AfcSaveToFileStart(QString path, std::string model);

    // The band a page shows, between its model and the item, on the caller's
    // thread: when the user turns to another band.
    void SetTpcCalibrationData(std::string model);
    std::string GetTpcCalibrationData(std::string model);
    void SetPathlossCalibrationData(std::string model);
    std::string GetPathlossCalibrationData(std::string model);
    // The same with the models as they stand, without a way through text.
    void SetTpcCalibrationData(const QJsonObject &model);
    QJsonObject GetTpcCalibrationData(const QJsonObject &model);
    void SetPathlossCalibrationData(const QJsonObject &model);
    QJsonObject GetPathlossCalibrationData(const QJsonObject &model);

signals:
    void Signal_SetUbinDone(SEachItemOperationResult itemResult);
    void Signal_GetInitPageListDone(QStringList pageList);

    void Signal_GetDataModelDone(std::string dataModel, int pageItem);
    void Signal_GetContTxDataModelDone(std::string dataModel);
    void Signal_GetTpcDataModelDone(std::string dataModel);
    void Signal_GetPathlossDataModelDone(std::string dataModel);
    void Signal_GetTadcDataModelDone(std::string dataModel);
    void Signal_GetContRxDataModelDone(std::string dataModel);
    void Signal_GetAfcDataModelDone(std::string dataModel);
    void Signal_GetDpchTxDataModelDone(std::string dataModel);
    void Signal_GetRssiDataModelDone(std::string dataModel);
    void Signal_GetBBRegDataModelDone(std::string dataModel);

    void Signal_TestDone(SEachItemOperationResult result, std::string resultModel, int pageItem);
    void Signal_ContTxTestDone(SEachItemOperationResult result);
    void Signal_ContRxTestDone(SEachItemOperationResult result);
    void Signal_DpchTxTestDone(SEachItemOperationResult result);
    void Signal_RssiTestDone(SEachItemOperationResult result, std::string resultModel);
    void Signal_TadcMeasureDone(SEachItemOperationResult result, std::string resultModel);
    void Signal_AfcTestDone(SEachItemOperationResult result);
    void Signal_TestStopDone(SEachItemOperationResult result);
    void Signal_RegReadDone(SEachItemOperationResult result, std::string resultModel);
    void Signal_RegWriteDone(SEachItemOperationResult result, std::string resultModel);

    void Signal_CalDataDone(SEachItemOperationResult result, std::string resultDataModel, int calItem,
                            ECalDataMovement movement);
    // How far a movement of this object's has come: `finished` of `total`
    // items done, the last one's result (empty at the start, 0 of `total`).
    void Signal_CalDataProgress(int finished, int total, SEachItemOperationResult itemResult);
    void Signal_TpcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_TpcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_TpcDownloadToFlashDone(SEachItemOperationResult result);
    void Signal_TpcSaveToFileDone(SEachItemOperationResult result);
    void Signal_PathlossUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_PathlossLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_PathlossDownloadToFlashDone(SEachItemOperationResult result);
    void Signal_PathlossSaveToFileDone(SEachItemOperationResult result);
    void Signal_TadcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_TadcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_TadcDownloadToFlashDone(SEachItemOperationResult result);
    void Signal_TadcSaveToFileDone(SEachItemOperationResult result);
    void Signal_AfcUploadFromFlashDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_AfcLoadFromFileDone(SEachItemOperationResult result, std::string resultDataModel);
    void Signal_AfcDownloadToFlashDone(SEachItemOperationResult result);
    void Signal_AfcSaveToFileDone(SEachItemOperationResult result);

protected:
    void customEvent(QEvent *event) override;

private:
    // What a run answers, on the user interface thread: the result and, for
    // tests with a result and for uploads and loads, a model.
    using Reply = std::function<void(SEachItemOperationResult, std::string)>;
    using ModelSignal = void (CTdscdmaRadbenchCore::*)(std::string);
    using ResultSignal = void (CTdscdmaRadbenchCore::*)(SEachItemOperationResult);
    using ResultModelSignal = void (CTdscdmaRadbenchCore::*)(SEachItemOperationResult, std::string);

    void SetUbinInternal(bool enable);
    void GetInitPageListInternal();
    void GetDataModelInternal(int pageItem, ModelSignal done);
    void TestInternal(int pageItem, std::string model, Reply reply);
    void TestStopInternal(QString item, std::string model);
    void RegReadInternal(std::string model);
    void RegWriteInternal(std::string model);
    void CalDataInternal(ECalDataMovement movement, int calItem, std::string model, QString path, Reply reply);

    void FetchModel(int pageItem, ModelSignal done);
    void RunTest(int pageItem, std::string model, Reply reply);
    void RunCalData(ECalDataMovement movement, int calItem, std::string model, QString path, Reply reply);
    // A reply that emits a page's own signal, with or without the model.
    Reply Emitting(ResultSignal signal);
    Reply Emitting(ResultModelSignal signal);

    // Runs `work` on this object's thread (the user interface thread), after
    // what the calling pool thread did.
    void OnOwnThread(std::function<void()> work);
    // Starts `internal` in the global pool and keeps its handle.
    template <typename Function, typename... Args>
    void Run(Function internal, Args... args);
    // Connects `signal` of `sender` for its next emission only: that one
    // reaches `reply` on this object's thread, and the connection ends.
    template <typename Sender, typename Base, typename... SignalArgs, typename Function>
    void ConnectOnce(Sender *sender, void (Base::*signal)(SignalArgs...), Function reply);

    QFuture<void> m_future;
};
