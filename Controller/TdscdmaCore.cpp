#include "TdscdmaCore.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QJsonDocument>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrent>

#include "ErrorCodeInfo.h"
#include "ItemInfo.h"
#include "JsonPath.h"
#include "Items/TdscdmaBBReg.h"
#include "Items/TdscdmaContRx.h"
#include "Items/TdscdmaContTx.h"
#include "Items/TdscdmaDpchTx.h"
#include "Items/TdscdmaRfInit.h"
#include "Items/TdscdmaRssi.h"
#include "Items/TdscdmaTestStop.h"
#include "Items/TdscdmaTadc.h"
#include "Items/TdscdmaTpcV3.h"
#include "RadbenchResources.h"
#include "TavoApp.h"

namespace {

const char *const kFailedQueryAdvice = "Please check the SW load stability or connection status of the target and tool.";

// Where the test pages keep their band list and UARFCN ranges, and where
// the calibration pages keep their band list.
const QString kRequestBand = "cmdIf.request.group1.memberProperty.band.trait.value";
const QString kRequestUarfcn = "cmdIf.request.group1.memberProperty.uarfcn.trait.valuePair";
const QString kConfigBand = "calDataIf.config.group1.memberProperty.band.trait.value";

constexpr int kTdscdmaWorldModeBit = 1;

// The channel of a continuous test's request, cut to 16 bits.
uint16_t Uarfcn(QJsonObject &request)
{
    return uint16_t(GetJsonValue(request, "cmdIf.request.group1.memberValue.uarfcn").toString().toUInt(nullptr, 10));
}

} // namespace

CTdscdmaCore *CTdscdmaCore::GetInstance()
{
    static CTdscdmaCore *const instance = [] {
        // The stored models must be readable before the controller's
        // members read the band plan.
        InitRadbenchResources();
        static CTdscdmaCore core;
        return &core;
    }();
    return instance;
}

CTdscdmaCore::CTdscdmaCore()
{
    // The controller answers queued to the user interface thread whichever
    // thread first asked for it.
    if (QCoreApplication::instance() && thread() != QCoreApplication::instance()->thread())
        moveToThread(QCoreApplication::instance()->thread());
    CreateItems();
}

CTdscdmaCore::~CTdscdmaCore()
{
    delete m_tpcObj;
    delete m_tpcV3Obj;
    delete m_tadcObj;
    delete m_testStopObj;
    delete m_contTxObj;
    delete m_rfInitObj;
    delete m_contRxObj;
    delete m_dpchTxObj;
    delete m_rssiObj;
    delete m_bbRegObj;
}

void CTdscdmaCore::CreateItems()
{
    m_tpcObj = new CTdscdmaTpc;
    m_tpcV3Obj = new CTdscdmaTpcV3;
    m_tadcObj = new CTdscdmaTadc;
    m_calItemMap = BuildCalItemMap();
    m_pageItemMap = BuildPageItemMap();
    m_testStopObj = new CTdscdmaTestStop;
    m_contTxObj = new CTdscdmaContTx;
    m_rfInitObj = new CTdscdmaRfInit;
    m_contRxObj = new CTdscdmaContRx;
    m_dpchTxObj = new CTdscdmaDpchTx;
    m_rssiObj = new CTdscdmaRssi;
    m_bbRegObj = new CTdscdmaBBReg;
}

QString CTdscdmaCore::GetCalItemName(int id) { return CalItemInfo(id).name; }

// ---- Target status ---------------------------------------------------------

SRatSupportStatus CTdscdmaCore::GetRatSupportStatus()
{
    SRatSupportStatus &rat = m_ratStatus;
    rat = SRatSupportStatus();

    auto decide = [&rat](int status, const QString &reason, const QString &advice = QString()) {
        rat.status = status;
        rat.reason = reason;
        rat.advice = advice;
        return rat;
    };
    auto undetermined = [&decide](const QString &reason) {
        return decide(SRatSupportStatus::NOT_DETERMINED, reason, kFailedQueryAdvice);
    };

    // A connection that cannot name its modem is taken for a non-C2K one:
    // the capability queries below then tell what the target is.
    const int handle = m_targetAccess.GetHandle();
    int modemIndex = 0;
    int service = TAVO_MD_SRV_NONE;
    if (TavoConn_GetMdActiveIdx(handle, &modemIndex) == TAVO_OK &&
        TavoConn_GetMdSrv(handle, modemIndex, &service) == TAVO_OK && service == TAVO_MD_SRV_C2K)
        return decide(SRatSupportStatus::NOT_SUPPORTED, "It is C2K modem now.");

    bool worldModeSaysSupported = false;

    const SCapabilityQueryStatus mmrf = m_mmrfCapObj.GetQueryStatus();
    if (mmrf.isApiSupported) {
        if (!mmrf.isSuccess)
            return undetermined("We cannot get its support status: Failed to get multi-RAT world mode ID info.");
        if (m_mmrfCapObj.IsWorldModeValid()) {
            if (!CapabilityRecord::IsBitSet(m_mmrfCapObj.GetWorldMode(), kTdscdmaWorldModeBit))
                return decide(SRatSupportStatus::NOT_SUPPORTED,
                              "Not support this RAT from SW multi-RAT world mode ID info.");
            worldModeSaysSupported = true;
        }
    }

    if (!worldModeSaysSupported) {
        const SCapabilityQueryStatus gsm = m_gsmCapObj.GetQueryStatus();
        if (gsm.isApiSupported) {
            if (!gsm.isSuccess)
                return undetermined("We cannot get its support status: Failed to get GSM world mode ID info.");
            if (m_gsmCapObj.IsWorldModeValid()) {
                if (!CapabilityRecord::IsBitSet(m_gsmCapObj.GetWorldMode(), kTdscdmaWorldModeBit))
                    return decide(SRatSupportStatus::NOT_SUPPORTED,
                                  "Not support this RAT from SW GSM world mode ID info.");
                worldModeSaysSupported = true;
            }
        }
    }

    if (!worldModeSaysSupported) {
        const SCapabilityQueryStatus chip = m_tdscdmaCapObj.GetChipIdQueryStatus();
        if (!chip.isApiSupported)
            return decide(SRatSupportStatus::NOT_SUPPORTED, "Not Support due to without any this RAT info from SW.");
        if (!chip.isSuccess)
            return undetermined("We cannot get its support status: Failed to get RF ID info.");
        if (m_tdscdmaCapObj.GetRfChipId() == 0)
            return decide(SRatSupportStatus::NOT_DETERMINED, "Support this RAT but its RF ID is unknown status.",
                          "Please check the SW load stability or tool version.");
    }

    const SCapabilityQueryStatus capability = m_tdscdmaCapObj.GetCapabilityQueryStatus();
    if (capability.isApiSupported && !capability.isSuccess)
        return undetermined("Support this RAT but it failed to get its capability info.");
    return decide(SRatSupportStatus::SUPPORTED, "Support");
}

void CTdscdmaCore::ResetCapability()
{
    CTdscdmaCapability::ResetTdscdmaCapability();
    CGsmRfCapability::ResetGsmRfCapability();
    CMmrfCapability::ResetMmrfCapability();
    CLteRfCapability::ResetLteRfCapability();
    CFddRfCapability::ResetFddRfCapability();
}

bool CTdscdmaCore::IsNeedDb()
{
    const bool allByL1 = m_mmrfCapObj.IsAfcByL1() && m_mmrfCapObj.IsTadcByL1() &&
                         m_tdscdmaCapObj.IsNvramVerValid() && m_tdscdmaCapObj.GetNvramVerNum() == 2;
    return !allByL1;
}

QStringList CTdscdmaCore::GetInitPageList()
{
    QStringList pages{"CTdscdmaAfcDockWidget"};
    if (!m_mmrfCapObj.IsTadcByL1())
        pages << "CTdscdmaTadcDockWidget";
    pages << "CTdscdmaRssiDockWidget"
          << "CTdscdmaPathlossDockWidget"
          << "CTdscdmaContRxDockWidget"
          << "CTdscdmaContTxDockWidget"
          << "CTdscdmaDpchTxDockWidget"
          << "CTdscdmaBBRegDockWidget";
    pages << (m_tdscdmaCapObj.GetNvramVerNum() == 2 ? "CTdscdmaTpcDockWidgetV3" : "CTdscdmaTpcDockWidget");
    return pages;
}

// ---- Arming ----------------------------------------------------------------

void CTdscdmaCore::SetUbin(bool enable)
{
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::SetUbinInternal, enable);
}

void CTdscdmaCore::SetUbinInternal(bool enable)
{
    SEachItemOperationResult result;
    if (m_tdscdmaCapObj.IsUbinSupported()) {
        const bool done = enable ? m_ubinObj.EnableUbin() : m_ubinObj.DisableUbin();
        if (!done)
            result.errorCode = enable ? ERROR_CODE_UBIN_INIT : ERROR_CODE_UBIN_DEINIT;
    }
    if (enable && result.errorCode == ERROR_CODE_SUCCESS) {
        result.errorCode = m_rfInitObj->ResetTl1();
        if (result.errorCode != ERROR_CODE_SUCCESS)
            result.errorMessage = "TDSCDMA reset command failed.";
    }
    emit Signal_SetUbinDone(result);
}

// ---- Page models -------------------------------------------------------------

QJsonObject CTdscdmaCore::FittedDataModel(int pageItem, const QString &pageName)
{
    struct SFit {
        QString resource;
        QString bandPath; // empty: the model has no band list
        QString freqPath;
        bool uplink;
        bool bandGroups;
    };
    const bool version2 = m_tdscdmaCapObj.GetNvramVerNum() == 2;
    SFit fit;
    switch (pageItem) {
    case PAGE_ITEM_AFC_CONTROL:
        fit = {":/TdscdmaAfc.json", kRequestBand, kRequestUarfcn, true, false};
        break;
    case PAGE_ITEM_CONT_TX:
        fit = {":/TdscdmaContTx.json", kRequestBand, kRequestUarfcn, true, false};
        break;
    case PAGE_ITEM_TPC:
        fit = version2 ? SFit{":/TdscdmaTpcV3.json", kConfigBand,
                              "calDataIf.data.group7.memberProperty.uarfcn.trait.valuePair", true, true}
                       : SFit{":/TdscdmaTpc.json", kConfigBand,
                              "calDataIf.data.group6.memberProperty.uarfcn.trait.valuePair", true, true};
        break;
    case PAGE_ITEM_RX_PATHLOSS:
        fit = {m_tdscdmaCapObj.IsPathlossV3() ? ":/TdscdmaPathlossV3.json" : ":/TdscdmaPathloss.json", kConfigBand,
               "calDataIf.data.group1.memberProperty.uarfcn.trait.valuePair", false, true};
        break;
    case PAGE_ITEM_TADC:
        fit = {":/TdscdmaTadc.json", QString(), QString(), false, false};
        break;
    case PAGE_ITEM_CONT_RX:
        fit = {":/TdscdmaContRx.json", kRequestBand, kRequestUarfcn, true, false};
        break;
    case PAGE_ITEM_DPCH_TX:
        fit = {":/TdscdmaDpchTx.json", kRequestBand, kRequestUarfcn, true, false};
        break;
    case PAGE_ITEM_RSSI:
        fit = {":/TdscdmaRssi.json", kRequestBand, kRequestUarfcn, false, false};
        break;
    default:
        fit = {":/TdscdmaBBReg.json", QString(), QString(), false, false};
        break;
    }

    QFile file(fit.resource);
    QJsonObject model;
    if (!ReadDataModel(file, model))
        m_errorMessage = "CTdscdmaCore::GetDataModel: cannon get the data Model->" + pageName;

    if (!fit.bandPath.isEmpty())
        m_capUpdater.UpdateBandFreqInDataModel(model, {SBandPathDir{fit.bandPath, fit.uplink}},
                                               {SFreqPathDir{fit.freqPath, fit.uplink}}, fit.bandGroups);
    switch (pageItem) {
    case PAGE_ITEM_TPC:
        if (version2)
            m_capUpdater.UpdateTpcV3DefaultSupport(model);
        else
            m_capUpdater.UpdateTpcDefaultSupport(m_tpcObj, model);
        break;
    case PAGE_ITEM_RX_PATHLOSS:
        if (!m_tdscdmaCapObj.IsPathlossV3())
            m_capUpdater.UpdatePathlossDefaultEnableStatus(model);
        break;
    case PAGE_ITEM_TADC:
        m_capUpdater.UpdateTadcCaption(m_tadcObj, model);
        break;
    case PAGE_ITEM_DPCH_TX:
        m_capUpdater.UpdateDpchTxDefaultSupport(model);
        break;
    case PAGE_ITEM_RSSI:
        m_capUpdater.UpdateRssiModeList(model);
        break;
    default:
        break;
    }
    return model;
}

std::string CTdscdmaCore::GetDataModel(QString pageName)
{
    try {
        const QJsonObject model = FittedDataModel(PageItemId(pageName), pageName);
        return QJsonDocument(model).toJson(QJsonDocument::Compact).toStdString();
    } catch (...) {
        m_errorMessage = "CTdscdmaCore::GetDataModel: unexpected exception";
        return std::string();
    }
}

// ---- Tests -----------------------------------------------------------------

void CTdscdmaCore::TestStart(QString item, std::string request)
{
    qDebug() << "CTdscdmaCore::Start--> " << item;
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::TestInternal, item, request);
    m_errorMessage.clear();
}

void CTdscdmaCore::TestInternal(QString item, std::string request)
{
    int code = ERROR_CODE_NOT_EXECUTED;
    std::string resultModel;
    try {
        QJsonObject requestModel = QJsonDocument::fromJson(QByteArray::fromStdString(request)).object();
        switch (PageItemId(item)) {
        case PAGE_ITEM_CONT_TX:
            code = m_contTxObj->TxOn(Uarfcn(requestModel));
            break;
        case PAGE_ITEM_CONT_RX:
            code = m_contRxObj->RxOn(Uarfcn(requestModel));
            break;
        case PAGE_ITEM_DPCH_TX:
            code = m_dpchTxObj->Start(m_cmdBuilder.GetDpchTxCmd(requestModel));
            break;
        case PAGE_ITEM_RSSI:
            code = RssiTest(requestModel, resultModel);
            break;
        default: // pages whose test has no operation end as not executed
            break;
        }
    } catch (...) {
    }
    const SEachItemOperationResult result{item, code, m_errorMessage};
    qDebug() << "CTdscdmaCore::TestInternal Done--> " << item;
    emit Signal_TestDone(result, resultModel);
}

void CTdscdmaCore::TestStop()
{
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::TestStopInternal, QString(),
                                 std::string());
    m_errorMessage.clear();
}

void CTdscdmaCore::TestStopByItem(QString item, std::string request)
{
    m_future =
        QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::TestStopInternal, item, request);
    m_errorMessage.clear();
}

void CTdscdmaCore::TestStopInternal(QString item, std::string request)
{
    int code = ERROR_CODE_NOT_EXECUTED;
    QString message;
    try {
        const int id = item.isEmpty() ? -1 : PageItemId(item);
        if (id == PAGE_ITEM_CONT_TX || id == PAGE_ITEM_CONT_RX) {
            // The target stops a continuous test on the channel it runs on.
            QJsonObject requestModel = QJsonDocument::fromJson(QByteArray::fromStdString(request)).object();
            IGeneralOperation *operation = id == PAGE_ITEM_CONT_TX ? static_cast<IGeneralOperation *>(m_contTxObj)
                                                                   : m_contRxObj;
            code = id == PAGE_ITEM_CONT_TX ? m_contTxObj->TxOff(Uarfcn(requestModel))
                                           : m_contRxObj->RxOff(Uarfcn(requestModel));
            message = operation->GetErrorMessage();
        } else {
            code = m_testStopObj->Stop();
            message = m_testStopObj->GetErrorMessage();
        }
    } catch (...) {
        code = ERROR_CODE_NOT_EXECUTED;
    }
    emit Signal_TestStopDone(SEachItemOperationResult{item, code, message});
}

int CTdscdmaCore::RssiTest(const QJsonObject &request, std::string &resultModel)
{
    const SRssiCmd cmd = m_cmdBuilder.GetRssiCmd(request);
    SRssiResult result;
    const bool extended = m_tdscdmaCapObj.IsAgcExSupported();
    const int code = extended ? m_rssiObj->MeasureEx(cmd, result) : m_rssiObj->Measure(cmd, result);
    if (code != ERROR_CODE_SUCCESS) {
        m_errorMessage = m_rssiObj->GetErrorMessage();
        return code;
    }
    resultModel = m_responseBuilder.UpdateRssiResult(request, extended, result);
    return code;
}

// ---- Baseband registers --------------------------------------------------------

void CTdscdmaCore::RegRead(std::string request)
{
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::RegReadInternal, request);
    m_errorMessage.clear();
}

void CTdscdmaCore::RegWrite(std::string request)
{
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::RegWriteInternal, request);
    m_errorMessage.clear();
}

void CTdscdmaCore::RegReadInternal(std::string request)
{
    const QJsonObject model = QJsonDocument::fromJson(QByteArray::fromStdString(request)).object();
    uint16_t value = 0;
    const int code = m_bbRegObj->Read(m_cmdBuilder.GetRegReadAddr(model), value);
    const std::string resultModel = code == ERROR_CODE_SUCCESS ? m_responseBuilder.UpdateRegisterResult(model, value)
                                                               : std::string();
    emit Signal_RegReadDone(SEachItemOperationResult{QString(), code, QString()}, resultModel);
}

void CTdscdmaCore::RegWriteInternal(std::string request)
{
    const QJsonObject model = QJsonDocument::fromJson(QByteArray::fromStdString(request)).object();
    const int code = m_bbRegObj->Write(m_cmdBuilder.GetRegWriteCmd(model));
    emit Signal_RegWriteDone(SEachItemOperationResult{QString(), code, QString()},
                             code == ERROR_CODE_SUCCESS ? request : std::string());
}

// ---- Calibration data --------------------------------------------------------

QStringList CTdscdmaCore::GetSupportItem()
{
    if (GetRatSupportStatus().status == SRatSupportStatus::NOT_SUPPORTED)
        return {};
    QStringList items;
    if (!m_mmrfCapObj.IsAfcByL1())
        items << GetCalItemName(CAL_ITEM_AFC);
    items << GetCalItemName(CAL_ITEM_RX_PATH_LOSS) << GetCalItemName(CAL_ITEM_TPC);
    if (!m_mmrfCapObj.IsTadcByL1())
        items << GetCalItemName(CAL_ITEM_TADC);
    if (m_mmrfCapObj.IsSelfCalSupported(1))
        items << GetCalItemName(CAL_ITEM_SELF_CAL);
    return items;
}

QStringList CTdscdmaCore::GetSupportItemFromFile(TIniFile *file)
{
    // Each item tells whether a file holds its data; with no item able to
    // read a file yet, no file offers any.
    Q_UNUSED(file);
    return {};
}

void CTdscdmaCore::UploadFromFlash(QStringList items)
{
    m_errorMessage.clear();
    m_operateItems = items;
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::UploadFromFlashInternal);
}

void CTdscdmaCore::DownloadToFlash(QStringList items)
{
    m_errorMessage.clear();
    m_operateItems = items;
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::DownloadToFlashInternal);
}

void CTdscdmaCore::LoadFromFile(TIniFile *file, QStringList items)
{
    m_errorMessage.clear();
    m_operateItems = items;
    m_calFile = file;
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::LoadFromFileInternal);
}

void CTdscdmaCore::SaveToFile(TIniFile *file, QStringList items)
{
    m_errorMessage.clear();
    m_operateItems = items;
    m_calFile = file;
    m_future = QtConcurrent::run(QThreadPool::globalInstance(), this, &CTdscdmaCore::SaveToFileInternal);
}

void CTdscdmaCore::EndMovementWithoutItems()
{
    ResetItemResults();
    for (const QString &item : qAsConst(m_operateItems)) {
        AddItemResult(item, ERROR_CODE_NOT_EXECUTED, QString());
        emit Signal_FinishItemCount(m_itemResults.size(), m_itemResults.last());
    }
}

void CTdscdmaCore::UploadFromFlashInternal()
{
    EndMovementWithoutItems();
    emit Signal_UploadFromFlashDone(m_isAllSuccess, m_itemResults);
}

void CTdscdmaCore::DownloadToFlashInternal()
{
    EndMovementWithoutItems();
    emit Signal_DownloadToFlashDone(m_isAllSuccess, m_itemResults);
}

void CTdscdmaCore::LoadFromFileInternal()
{
    EndMovementWithoutItems();
    emit Signal_LoadFromFileDone(m_isAllSuccess, m_itemResults);
}

void CTdscdmaCore::SaveToFileInternal()
{
    EndMovementWithoutItems();
    emit Signal_SaveToFileDone(m_isAllSuccess, m_itemResults);
}
