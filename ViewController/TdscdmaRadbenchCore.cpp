#include "TdscdmaRadbenchCore.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>

#include <memory>

#include "Interface/PoolRun.h"
#include "ItemInfo.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"

CTdscdmaRadbenchCore::CTdscdmaRadbenchCore(QObject *parent) : QObject(parent)
{
    static const int registered = qRegisterMetaType<ECalDataMovement>("ECalDataMovement");
    Q_UNUSED(registered);
    // Answers reach this object through the event queue.
    Platform::WatchEventQueueHandOffs();
}

template <typename Function, typename... Args>
void CTdscdmaRadbenchCore::Run(Function internal, Args... args)
{
    m_future = RunInPool(this, internal, std::move(args)...);
}

template <typename Sender, typename Base, typename... SignalArgs, typename Function>
void CTdscdmaRadbenchCore::ConnectOnce(Sender *sender, void (Base::*signal)(SignalArgs...), Function reply)
{
    auto connection = std::make_shared<QMetaObject::Connection>();
    *connection = connect(sender, signal, this, [connection, reply](SignalArgs... args) {
        QObject::disconnect(*connection);
        reply(args...);
    });
}

namespace {

// Work posted to the view controller's thread. Built whole before it is
// posted, so that nothing of it is written after the hand-off.
class CWorkEvent : public QEvent {
public:
    static QEvent::Type Kind()
    {
        static const QEvent::Type kind = QEvent::Type(QEvent::registerEventType());
        return kind;
    }

    explicit CWorkEvent(std::function<void()> work) : QEvent(Kind()), m_work(std::move(work)) {}
    void Run() const { m_work(); }

private:
    std::function<void()> m_work;
};

} // namespace

void CTdscdmaRadbenchCore::OnOwnThread(std::function<void()> work)
{
    auto *event = new CWorkEvent(std::move(work));
    Platform::HandOffRelease(Platform::EHandOff::EventQueue);
    QCoreApplication::postEvent(this, event);
}

void CTdscdmaRadbenchCore::customEvent(QEvent *event)
{
    if (event->type() == CWorkEvent::Kind())
        static_cast<CWorkEvent *>(event)->Run();
}

CTdscdmaRadbenchCore::Reply CTdscdmaRadbenchCore::Emitting(ResultSignal signal)
{
    return [this, signal](SEachItemOperationResult result, std::string) { emit(this->*signal)(result); };
}

CTdscdmaRadbenchCore::Reply CTdscdmaRadbenchCore::Emitting(ResultModelSignal signal)
{
    return [this, signal](SEachItemOperationResult result, std::string model) { emit(this->*signal)(result, model); };
}

// ---- The form's operations ---------------------------------------------------

void CTdscdmaRadbenchCore::SetUbin(bool enable) { Run(&CTdscdmaRadbenchCore::SetUbinInternal, enable); }

void CTdscdmaRadbenchCore::SetUbinInternal(bool enable)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    ConnectOnce(core, &CTdscdmaCore::Signal_SetUbinDone,
                [this](SEachItemOperationResult result) { emit Signal_SetUbinDone(result); });
    core->SetUbin(enable);
}

void CTdscdmaRadbenchCore::GetInitPageList() { Run(&CTdscdmaRadbenchCore::GetInitPageListInternal); }

void CTdscdmaRadbenchCore::GetInitPageListInternal()
{
    const QStringList pages = CTdscdmaCore::GetInstance()->GetInitPageList();
    OnOwnThread([this, pages] { emit Signal_GetInitPageListDone(pages); });
}

SRatSupportStatus CTdscdmaRadbenchCore::GetRatSupportStatus()
{
    return CTdscdmaCore::GetInstance()->GetRatSupportStatus();
}

bool CTdscdmaRadbenchCore::IsNeedDb() { return CTdscdmaCore::GetInstance()->IsNeedDb(); }

void CTdscdmaRadbenchCore::ResetCapability() { CTdscdmaCore::GetInstance()->ResetCapability(); }

// ---- Pages' models -------------------------------------------------------------

void CTdscdmaRadbenchCore::GetDataModel(int pageItem) { FetchModel(pageItem, nullptr); }

void CTdscdmaRadbenchCore::FetchModel(int pageItem, ModelSignal done)
{
    Run(&CTdscdmaRadbenchCore::GetDataModelInternal, pageItem, done);
}

void CTdscdmaRadbenchCore::GetDataModelInternal(int pageItem, ModelSignal done)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    const std::string model = core->GetDataModel(core->GetPageItemName(pageItem));
    OnOwnThread([this, model, pageItem, done] {
        emit Signal_GetDataModelDone(model, pageItem);
        if (done)
            emit(this->*done)(model);
    });
}

void CTdscdmaRadbenchCore::GetContTxDataModel()
{
    FetchModel(PAGE_ITEM_CONT_TX, &CTdscdmaRadbenchCore::Signal_GetContTxDataModelDone);
}

void CTdscdmaRadbenchCore::GetTpcDataModel() { FetchModel(PAGE_ITEM_TPC, &CTdscdmaRadbenchCore::Signal_GetTpcDataModelDone); }

void CTdscdmaRadbenchCore::GetPathlossDataModel()
{
    FetchModel(PAGE_ITEM_RX_PATHLOSS, &CTdscdmaRadbenchCore::Signal_GetPathlossDataModelDone);
}

void CTdscdmaRadbenchCore::GetTadcDataModel() { FetchModel(PAGE_ITEM_TADC, &CTdscdmaRadbenchCore::Signal_GetTadcDataModelDone); }

void CTdscdmaRadbenchCore::GetContRxDataModel()
{
    FetchModel(PAGE_ITEM_CONT_RX, &CTdscdmaRadbenchCore::Signal_GetContRxDataModelDone);
}

void CTdscdmaRadbenchCore::GetAfcDataModel()
{
    FetchModel(PAGE_ITEM_AFC_CONTROL, &CTdscdmaRadbenchCore::Signal_GetAfcDataModelDone);
}

void CTdscdmaRadbenchCore::GetDpchTxDataModel()
{
    FetchModel(PAGE_ITEM_DPCH_TX, &CTdscdmaRadbenchCore::Signal_GetDpchTxDataModelDone);
}

void CTdscdmaRadbenchCore::GetRssiDataModel() { FetchModel(PAGE_ITEM_RSSI, &CTdscdmaRadbenchCore::Signal_GetRssiDataModelDone); }

void CTdscdmaRadbenchCore::GetBBRegDataModel()
{
    FetchModel(PAGE_ITEM_BB_REGISTER, &CTdscdmaRadbenchCore::Signal_GetBBRegDataModelDone);
}

// ---- Tests -------------------------------------------------------------------

void CTdscdmaRadbenchCore::Test(int pageItem, std::string model) { RunTest(pageItem, std::move(model), nullptr); }

void CTdscdmaRadbenchCore::RunTest(int pageItem, std::string model, Reply reply)
{
    Run(&CTdscdmaRadbenchCore::TestInternal, pageItem, std::move(model), std::move(reply));
}

void CTdscdmaRadbenchCore::TestInternal(int pageItem, std::string model, Reply reply)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    ConnectOnce(core, &CTdscdmaCore::Signal_TestDone,
                [this, pageItem, reply](SEachItemOperationResult result, std::string resultModel) {
                    emit Signal_TestDone(result, resultModel, pageItem);
                    if (reply)
                        reply(result, resultModel);
                });
    core->TestStart(core->GetPageItemName(pageItem), model);
}

void CTdscdmaRadbenchCore::ContTxTest(std::string model)
{
    RunTest(PAGE_ITEM_CONT_TX, model, Emitting(&CTdscdmaRadbenchCore::Signal_ContTxTestDone));
}

void CTdscdmaRadbenchCore::ContRxTest(std::string model)
{
    RunTest(PAGE_ITEM_CONT_RX, model, Emitting(&CTdscdmaRadbenchCore::Signal_ContRxTestDone));
}

void CTdscdmaRadbenchCore::DpchTxTest(std::string model)
{
    RunTest(PAGE_ITEM_DPCH_TX, model, Emitting(&CTdscdmaRadbenchCore::Signal_DpchTxTestDone));
}

void CTdscdmaRadbenchCore::RssiTest(std::string model)
{
    RunTest(PAGE_ITEM_RSSI, model, Emitting(&CTdscdmaRadbenchCore::Signal_RssiTestDone));
}

void CTdscdmaRadbenchCore::TadcMeasure(std::string model)
{
    RunTest(PAGE_ITEM_TADC, model, Emitting(&CTdscdmaRadbenchCore::Signal_TadcMeasureDone));
}

void CTdscdmaRadbenchCore::AfcTest(std::string model)
{
    RunTest(PAGE_ITEM_AFC_CONTROL, model, Emitting(&CTdscdmaRadbenchCore::Signal_AfcTestDone));
}

// ---- Stops -------------------------------------------------------------------

void CTdscdmaRadbenchCore::ContTxTestStop(std::string model)
{
    Run(&CTdscdmaRadbenchCore::TestStopInternal, CTdscdmaCore::GetInstance()->GetPageItemName(PAGE_ITEM_CONT_TX),
        model);
}

void CTdscdmaRadbenchCore::ContRxTestStop(std::string model)
{
    Run(&CTdscdmaRadbenchCore::TestStopInternal, CTdscdmaCore::GetInstance()->GetPageItemName(PAGE_ITEM_CONT_RX),
        model);
}

void CTdscdmaRadbenchCore::TestStop() { Run(&CTdscdmaRadbenchCore::TestStopInternal, QString(), std::string()); }

void CTdscdmaRadbenchCore::TestStopInternal(QString item, std::string model)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    ConnectOnce(core, &CTdscdmaCore::Signal_TestStopDone,
                [this](SEachItemOperationResult result) { emit Signal_TestStopDone(result); });
    if (item.isEmpty())
        core->TestStop();
    else
        core->TestStopByItem(item, model);
}

// ---- Baseband registers ----------------------------------------------------------

void CTdscdmaRadbenchCore::RegRead(std::string model) { Run(&CTdscdmaRadbenchCore::RegReadInternal, model); }
void CTdscdmaRadbenchCore::RegWrite(std::string model) { Run(&CTdscdmaRadbenchCore::RegWriteInternal, model); }

void CTdscdmaRadbenchCore::RegReadInternal(std::string model)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    ConnectOnce(core, &CTdscdmaCore::Signal_RegReadDone,
                [this](SEachItemOperationResult result, std::string resultModel) {
                    emit Signal_RegReadDone(result, resultModel);
                });
    core->RegRead(model);
}

void CTdscdmaRadbenchCore::RegWriteInternal(std::string model)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    ConnectOnce(core, &CTdscdmaCore::Signal_RegWriteDone,
                [this](SEachItemOperationResult result, std::string resultModel) {
                    emit Signal_RegWriteDone(result, resultModel);
                });
    core->RegWrite(model);
}

// ---- Calibration data ------------------------------------------------------------

void CTdscdmaRadbenchCore::StartCalData(ECalDataMovement movement, int calItem, std::string model, QString path)
{
    RunCalData(movement, calItem, std::move(model), std::move(path), nullptr);
}

void CTdscdmaRadbenchCore::RunCalData(ECalDataMovement movement, int calItem, std::string model, QString path,
                                      Reply reply)
{
    Run(&CTdscdmaRadbenchCore::CalDataInternal, movement, calItem, std::move(model), std::move(path),
        std::move(reply));
}

void CTdscdmaRadbenchCore::CalDataInternal(ECalDataMovement movement, int calItem, std::string model, QString path,
                                           Reply reply)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    const SCalDataRoute route = core->CalDataRoute(core->GetCalItemName(calItem));
    IRfCoreCalDataOperation *controller = route.controller;
    const bool toTarget = movement == ECalDataMovement::DownloadToFlash || movement == ECalDataMovement::SaveToFile;
    if (toTarget)
        controller->SetCalibrationData(route.item, model);

    // The run's file lives until its done signal has been handled.
    std::shared_ptr<TIniFile> file;
    if (movement == ECalDataMovement::LoadFromFile || movement == ECalDataMovement::SaveToFile)
        file = std::make_shared<TIniFile>(path);

    // The controller reports the progress of every movement: this run's
    // are those of its item, and the start.
    const QStringList items{route.item};
    auto progress = std::make_shared<QMetaObject::Connection>();
    *progress = connect(controller, &IRfCoreCalDataOperation::Signal_FinishItemCount, this,
                        [this, items](int finished, SEachItemOperationResult itemResult) {
                            if (finished == 0 || items.contains(itemResult.itemName))
                                emit Signal_CalDataProgress(finished, items.size(), itemResult);
                        });

    auto done = [this, movement, calItem, model, file, route, toTarget, progress,
                 reply](bool isAllSuccess, QVector<SEachItemOperationResult> itemResult) {
        Q_UNUSED(isAllSuccess);
        QObject::disconnect(*progress);
        // The run has one item: its result is the page's.
        SEachItemOperationResult result =
            itemResult.value(0, SEachItemOperationResult{route.item, ERROR_CODE_NOT_EXECUTED, QString()});
        // What the item wrote is only in memory until the file is saved: a
        // file that cannot be written fails the export, whatever the item gave.
        if (movement == ECalDataMovement::SaveToFile && !file->Save() && result.errorCode == ERROR_CODE_SUCCESS)
            result = SEachItemOperationResult{route.item, ERROR_CODE_FILE_NOT_OPERABLE,
                                              "Cannot write the file " + QDir::toNativeSeparators(file->Path())};
        const std::string answer = toTarget ? std::string() : route.controller->GetCalibrationData(route.item, model);
        emit Signal_CalDataDone(result, answer, calItem, movement);
        if (reply)
            reply(result, answer);
    };

    switch (movement) {
    case ECalDataMovement::UploadFromFlash:
        ConnectOnce(controller, &IRfCoreCalDataOperation::Signal_UploadFromFlashDone, done);
        controller->UploadFromFlash(items);
        break;
    case ECalDataMovement::DownloadToFlash:
        ConnectOnce(controller, &IRfCoreCalDataOperation::Signal_DownloadToFlashDone, done);
        controller->DownloadToFlash(items);
        break;
    case ECalDataMovement::LoadFromFile:
        ConnectOnce(controller, &IRfCoreCalDataOperation::Signal_LoadFromFileDone, done);
        controller->LoadFromFile(file.get(), items);
        break;
    case ECalDataMovement::SaveToFile:
        ConnectOnce(controller, &IRfCoreCalDataOperation::Signal_SaveToFileDone, done);
        controller->SaveToFile(file.get(), items);
        break;
    }
}

void CTdscdmaRadbenchCore::TpcUploadFromFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::UploadFromFlash, CAL_ITEM_TPC, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_TpcUploadFromFlashDone));
}

void CTdscdmaRadbenchCore::TpcLoadFromFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::LoadFromFile, CAL_ITEM_TPC, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_TpcLoadFromFileDone));
}

void CTdscdmaRadbenchCore::TpcDownloadToFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::DownloadToFlash, CAL_ITEM_TPC, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_TpcDownloadToFlashDone));
}

void CTdscdmaRadbenchCore::TpcSaveToFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::SaveToFile, CAL_ITEM_TPC, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_TpcSaveToFileDone));
}

void CTdscdmaRadbenchCore::PathlossUploadFromFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::UploadFromFlash, CAL_ITEM_RX_PATH_LOSS, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_PathlossUploadFromFlashDone));
}

void CTdscdmaRadbenchCore::PathlossLoadFromFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::LoadFromFile, CAL_ITEM_RX_PATH_LOSS, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_PathlossLoadFromFileDone));
}

void CTdscdmaRadbenchCore::PathlossDownloadToFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::DownloadToFlash, CAL_ITEM_RX_PATH_LOSS, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_PathlossDownloadToFlashDone));
}

void CTdscdmaRadbenchCore::PathlossSaveToFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::SaveToFile, CAL_ITEM_RX_PATH_LOSS, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_PathlossSaveToFileDone));
}

void CTdscdmaRadbenchCore::TadcUploadFromFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::UploadFromFlash, CAL_ITEM_TADC, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_TadcUploadFromFlashDone));
}

void CTdscdmaRadbenchCore::TadcLoadFromFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::LoadFromFile, CAL_ITEM_TADC, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_TadcLoadFromFileDone));
}

void CTdscdmaRadbenchCore::TadcDownloadToFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::DownloadToFlash, CAL_ITEM_TADC, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_TadcDownloadToFlashDone));
}

void CTdscdmaRadbenchCore::TadcSaveToFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::SaveToFile, CAL_ITEM_TADC, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_TadcSaveToFileDone));
}

void CTdscdmaRadbenchCore::AfcUploadFromFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::UploadFromFlash, CAL_ITEM_AFC, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_AfcUploadFromFlashDone));
}

void CTdscdmaRadbenchCore::AfcLoadFromFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::LoadFromFile, CAL_ITEM_AFC, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_AfcLoadFromFileDone));
}

void CTdscdmaRadbenchCore::AfcDownloadToFlashStart(std::string model)
{
    RunCalData(ECalDataMovement::DownloadToFlash, CAL_ITEM_AFC, model, QString(),
               Emitting(&CTdscdmaRadbenchCore::Signal_AfcDownloadToFlashDone));
}

void CTdscdmaRadbenchCore::AfcSaveToFileStart(QString path, std::string model)
{
    RunCalData(ECalDataMovement::SaveToFile, CAL_ITEM_AFC, model, path,
               Emitting(&CTdscdmaRadbenchCore::Signal_AfcSaveToFileDone));
}

// ---- Band changes ---------------------------------------------------------------

void CTdscdmaRadbenchCore::SetTpcCalibrationData(std::string model)
{
    CTdscdmaCore::GetInstance()->SetTpcCalibrationData(model);
}

std::string CTdscdmaRadbenchCore::GetTpcCalibrationData(std::string model)
{
    return CTdscdmaCore::GetInstance()->GetTpcCalibrationData(model);
}

void CTdscdmaRadbenchCore::SetPathlossCalibrationData(std::string model)
{
    CTdscdmaCore::GetInstance()->SetPathlossCalibrationData(model);
}

std::string CTdscdmaRadbenchCore::GetPathlossCalibrationData(std::string model)
{
    return CTdscdmaCore::GetInstance()->GetPathlossCalibrationData(model);
}

void CTdscdmaRadbenchCore::SetTpcCalibrationData(const QJsonObject &model)
{
    CTdscdmaCore::GetInstance()->SetTpcCalibrationData(model);
}

QJsonObject CTdscdmaRadbenchCore::GetTpcCalibrationData(const QJsonObject &model)
{
    return CTdscdmaCore::GetInstance()->GetTpcCalibrationData(model);
}

void CTdscdmaRadbenchCore::SetPathlossCalibrationData(const QJsonObject &model)
{
    CTdscdmaCore::GetInstance()->SetPathlossCalibrationData(model);
}

QJsonObject CTdscdmaRadbenchCore::GetPathlossCalibrationData(const QJsonObject &model)
{
    return CTdscdmaCore::GetInstance()->GetPathlossCalibrationData(model);
}
