#include "TdscdmaCore.h"

#include <QCoreApplication>
#include <QFile>

#include "Descriptors/TdscdmaItemCatalog.h"
#include "ErrorCodeInfo.h"
#include "Interface/PoolRun.h"
#include "ModelUpdateResult.h"
#include "RadbenchLog.h"
#include "RadbenchResources.h"
#include "TavoApp.h"

namespace {

const char *const kFailedQueryAdvice = "Please check the SW load stability or connection status of the target and tool.";

constexpr int kTdscdmaWorldModeBit = 1;

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
    CreateItems();
}

CTdscdmaCore::~CTdscdmaCore()
{
    // Page items refer to objects of calibration items: they go first.
    m_pageItemMap.Clear();
}

void CTdscdmaCore::CreateItems()
{
    STdscdmaItemCatalog catalog = STdscdmaItemCatalog::Create();
    for (auto &item : catalog.calItems)
        AddCalItem(std::move(item));
    for (auto &item : catalog.pageItems)
        AddPageItem(std::move(item));
}

QString CTdscdmaCore::GetCalItemName(int id)
{
    if (const CCalItemDescriptor *item = m_calItemMap.ById(id))
        return item->Name();
    return id >= 0 && id <= CAL_ITEM_END ? CalItemInfo(id).name : QString();
}

QString CTdscdmaCore::GetPageItemName(int id) const
{
    const CPageItemDescriptor *item = m_pageItemMap.ById(id);
    return item ? item->Name() : QString();
}

// ---- Target status ---------------------------------------------------------

SRatSupportStatus CTdscdmaCore::GetRatSupportStatus()
{
    const SRatSupportStatus status = DetermineRatSupportStatus();
    std::lock_guard<std::mutex> lock(m_stateLock);
    m_ratStatus = status;
    return status;
}

SRatSupportStatus CTdscdmaCore::DetermineRatSupportStatus()
{
    SRatSupportStatus rat;

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
    if (IsC2kModem())
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

bool CTdscdmaCore::IsTargetServed()
{
    return GetRatSupportStatus().status != SRatSupportStatus::NOT_SUPPORTED;
}

void CTdscdmaCore::ResetCapability() { ForgetTarget(); }

bool CTdscdmaCore::IsNeedDb()
{
    const bool allByL1 = m_mmrfCapObj.IsAfcByL1() && m_mmrfCapObj.IsTadcByL1() &&
                         m_tdscdmaCapObj.IsNvramVerValid() && m_tdscdmaCapObj.GetNvramVerNum() == FTA_AST_TL1_NVRAM_VERSION_TWO;
    return !allByL1;
}

QStringList CTdscdmaCore::GetInitPageList()
{
    QStringList pages;
    for (const auto &item : m_pageItemMap.Items()) {
        const QString page = item->PageClass();
        if (!page.isEmpty())
            pages << page;
    }
    return pages;
}

QStringList CTdscdmaCore::GetTestItems()
{
    QStringList items;
    for (const auto &item : m_pageItemMap.Items()) {
        if (item->TestKind() != CPageItemDescriptor::ETestKind::None && !item->PageClass().isEmpty())
            items << item->Name();
    }
    return items;
}

CPageItemDescriptor::ETestKind CTdscdmaCore::GetTestKind(const QString &item)
{
    // (ByName takes an unknown name for page 0.)
    CPageItemDescriptor *page = m_pageItemMap.ByName(item);
    return page && page->Name() == item ? page->TestKind() : CPageItemDescriptor::ETestKind::None;
}

// ---- Arming ----------------------------------------------------------------

void CTdscdmaCore::SetUbin(bool enable) { RunInPool(this, &CTdscdmaCore::SetUbinInternal, enable); }

void CTdscdmaCore::SetUbinInternal(bool enable)
{
    SEachItemOperationResult result;
    if (m_tdscdmaCapObj.IsUbinSupported()) {
        const bool done = enable ? m_ubinObj.EnableUbin() : m_ubinObj.DisableUbin();
        if (!done)
            result.errorCode = enable ? ERROR_CODE_UBIN_INIT : ERROR_CODE_UBIN_DEINIT;
    }
    if (enable && result.errorCode == ERROR_CODE_SUCCESS) {
        result.errorCode = m_rfInitObj.ResetTl1();
        if (result.errorCode != ERROR_CODE_SUCCESS)
            result.errorMessage = "TDSCDMA reset command failed.";
    }
    HandOverToReceivers();
    emit Signal_SetUbinDone(result);
}

// ---- Page models -------------------------------------------------------------

std::string CTdscdmaCore::GetDataModel(QString pageName)
{
    try {
        CPageItemDescriptor *page = m_pageItemMap.ByName(pageName);
        const SPageModel fit = page ? page->Model() : SPageModel();
        QFile file(fit.resource);
        QJsonObject model;
        if (!ReadDataModel(file, model))
            SetErrorMessage("CTdscdmaCore::GetDataModel: cannon get the data Model->" + pageName);
        if (!fit.bandPath.isEmpty())
            m_capUpdater.UpdateBandFreqInDataModel(model, {SBandPathDir{fit.bandPath, fit.uplink}},
                                                   {SFreqPathDir{fit.freqPath, fit.uplink}}, fit.bandGroups);
        if (fit.update)
            fit.update(m_capUpdater, model);
        return ModelText(model);
    } catch (...) {
        SetErrorMessage("CTdscdmaCore::GetDataModel: unexpected exception");
        return std::string();
    }
}

// ---- Tests -----------------------------------------------------------------

void CTdscdmaCore::TestStart(QString item, std::string request)
{
    qCDebug(lcController) << "CTdscdmaCore::Start--> " << item;
    RunInPool(this, &CTdscdmaCore::TestInternal, item, request);
}

void CTdscdmaCore::TestInternal(QString item, std::string request)
{
    STestRun run;
    run.item = item;
    run.request = ParseModel(request);
    try {
        if (CPageItemDescriptor *page = m_pageItemMap.ByName(item))
            page->Test(run);
    } catch (...) {
    }
    SetErrorMessage(run.errorMessage);
    qCDebug(lcController) << "CTdscdmaCore::TestInternal Done--> " << item;
    HandOverToReceivers();
    emit Signal_TestDone(SEachItemOperationResult{item, run.code, run.errorMessage}, run.resultModel);
}

void CTdscdmaCore::TestStop() { RunInPool(this, &CTdscdmaCore::TestStopInternal, QString(), std::string()); }

void CTdscdmaCore::TestStopByItem(QString item, std::string request)
{
    RunInPool(this, &CTdscdmaCore::TestStopInternal, item, request);
}

void CTdscdmaCore::TestStopInternal(QString item, std::string request)
{
    STestRun run;
    run.item = item;
    run.request = ParseModel(request);
    try {
        // An empty item, and every item without a stop of its own, takes the common stop.
        CPageItemDescriptor *page = item.isEmpty() ? nullptr : m_pageItemMap.ByName(item);
        if (!page || !page->Stop(run)) {
            run.code = m_testStopObj.Stop();
            run.errorMessage = m_testStopObj.GetErrorMessage();
        }
    } catch (...) {
        run.code = ERROR_CODE_NOT_EXECUTED;
    }
    SetErrorMessage(run.errorMessage);
    HandOverToReceivers();
    emit Signal_TestStopDone(SEachItemOperationResult{item, run.code, run.errorMessage});
}

// ---- Baseband registers --------------------------------------------------------

void CTdscdmaCore::RegRead(std::string request) { RunInPool(this, &CTdscdmaCore::RegReadInternal, request); }

void CTdscdmaCore::RegWrite(std::string request) { RunInPool(this, &CTdscdmaCore::RegWriteInternal, request); }

void CTdscdmaCore::RegReadInternal(std::string request)
{
    const QJsonObject model = ParseModel(request);
    uint16_t value = 0;
    const int code = m_bbRegObj.Read(m_cmdBuilder.GetRegReadAddr(model), value);
    const std::string resultModel = code == ERROR_CODE_SUCCESS ? m_responseBuilder.UpdateRegisterResult(model, value)
                                                               : std::string();
    HandOverToReceivers();
    emit Signal_RegReadDone(SEachItemOperationResult{QString(), code, QString()}, resultModel);
}

void CTdscdmaCore::RegWriteInternal(std::string request)
{
    const QJsonObject model = ParseModel(request);
    const int code = m_bbRegObj.Write(m_cmdBuilder.GetRegWriteCmd(model));
    HandOverToReceivers();
    emit Signal_RegWriteDone(SEachItemOperationResult{QString(), code, QString()},
                             code == ERROR_CODE_SUCCESS ? request : std::string());
}

// ---- Calibration data --------------------------------------------------------

void CTdscdmaCore::UploadFromFlashInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CTdscdmaCore] UploadFromFlashInternal() " << run.m_operateItems.size();
    RunMovement(run);
    qCDebug(lcController) << "[CTdscdmaCore] UploadFromFlashInternal()---";
}

void CTdscdmaCore::DownloadToFlashInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CTdscdmaCore] DownloadToFlashInternal() " << run.m_operateItems.size();
    RunMovement(run);
    qCDebug(lcController) << "[CTdscdmaCore] DownloadToFlashInternal()---";
}

void CTdscdmaCore::LoadFromFileInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CTdscdmaCore] LoadFromFileInternal() " << run.m_operateItems.size();
    RunMovement(run);
    qCDebug(lcController) << "[CTdscdmaCore] LoadFromFileInternal() ---";
}

void CTdscdmaCore::SaveToFileInternal(SCalDataRun run)
{
    qCDebug(lcController) << "[CTdscdmaCore] SaveToFileInternal() " << run.m_operateItems.size();
    RunMovement(run);
    qCDebug(lcController) << "[CTdscdmaCore] SaveToFileInternal() ---";
}
