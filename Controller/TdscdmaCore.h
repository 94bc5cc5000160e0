#pragma once

#include <memory>

#include "Interface/CoreInterface.h"
#include "ItemInfo.h"
#include "Interface/PageItemDescriptor.h"
#include "Items/TdscdmaBBReg.h"
#include "Items/TdscdmaRfInit.h"
#include "Items/TdscdmaTestStop.h"
#include "Items/TdscdmaUbinMode.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelCapUpdater.h"
#include "TdscdmaDataModelResponseBuilder.h"

// The one controller of everything TD-SCDMA: pages' models, tests and
// stops, the target's arming, and the movements of calibration data. A
// process-wide singleton; long operations run in the global thread pool and
// end in a signal.
//
// What the controller offers comes from its items: a descriptor for each
// calibration item and each page item (Descriptors/TdscdmaItemCatalog).
// The controller itself names no item: the page list, the models, the tests
// and stops, the item lists and the movements all go through descriptors.
class CTdscdmaCore : public IRfCoreCalDataOperation, public IRfTest {
    Q_OBJECT
public:
    static CTdscdmaCore *GetInstance();
    ~CTdscdmaCore() override;

    // IRfTest
    QStringList GetInitPageList() override;
    std::string GetDataModel(QString pageName) override;
    void TestStart(QString item, std::string request) override;
    void TestStop() override;

    // IRfCoreCalDataOperation
    void UploadFromFlashInternal(SCalDataRun run) override;
    void SaveToFileInternal(SCalDataRun run) override;
    void LoadFromFileInternal(SCalDataRun run) override;
    void DownloadToFlashInternal(SCalDataRun run) override;
    void ResetCapability() override;
    SRatSupportStatus GetRatSupportStatus() override;

    virtual void CreateItems();
    // The name of the calibration item of `id`, or of the row of the item table.
    virtual QString GetCalItemName(int id);
    virtual void TestStopByItem(QString item, std::string request);

    // Arms (true) or releases (false) the target; ends in Signal_SetUbinDone.
    void SetUbin(bool enable);
    // Baseband register access; ends in Signal_RegReadDone or Signal_RegWriteDone.
    void RegRead(std::string request);
    void RegWrite(std::string request);
    // False only when the target serves all calibration data over layer 1.
    bool IsNeedDb();

    // The band data of the calibration pages between their models and the items.
    void SetTpcCalibrationData(std::string model) { SetCalibrationData(GetCalItemName(CAL_ITEM_TPC), model); }
    std::string GetTpcCalibrationData(std::string model) { return GetCalibrationData(GetCalItemName(CAL_ITEM_TPC), model); }
    void SetPathlossCalibrationData(std::string model) { SetCalibrationData(GetCalItemName(CAL_ITEM_RX_PATH_LOSS), model); }
    std::string GetPathlossCalibrationData(std::string model)
    {
        return GetCalibrationData(GetCalItemName(CAL_ITEM_RX_PATH_LOSS), model);
    }
    void SetTpcCalibrationData(const QJsonObject &model) { SetCalibrationData(GetCalItemName(CAL_ITEM_TPC), model); }
    QJsonObject GetTpcCalibrationData(const QJsonObject &model)
    {
        return GetCalibrationData(GetCalItemName(CAL_ITEM_TPC), model);
    }
    void SetPathlossCalibrationData(const QJsonObject &model)
    {
        SetCalibrationData(GetCalItemName(CAL_ITEM_RX_PATH_LOSS), model);
    }
    QJsonObject GetPathlossCalibrationData(const QJsonObject &model)
    {
        return GetCalibrationData(GetCalItemName(CAL_ITEM_RX_PATH_LOSS), model);
    }
    void SetTadcCalibrationData(std::string model) { SetCalibrationData(GetCalItemName(CAL_ITEM_TADC), model); }
    std::string GetTadcCalibrationData(std::string model) { return GetCalibrationData(GetCalItemName(CAL_ITEM_TADC), model); }
    void SetAfcCalibrationData(std::string model) { SetCalibrationData(GetCalItemName(CAL_ITEM_AFC), model); }
    std::string GetAfcCalibrationData(std::string model) { return GetCalibrationData(GetCalItemName(CAL_ITEM_AFC), model); }

    // Adds a page item after the others (its page comes last in the page
    // list); a page item of the same id leaves (and is given back).
    std::unique_ptr<CPageItemDescriptor> AddPageItem(std::unique_ptr<CPageItemDescriptor> item)
    {
        return m_pageItemMap.Add(std::move(item));
    }
    // Takes the page item of `id` away, if there is one.
    std::unique_ptr<CPageItemDescriptor> TakePageItem(int id) { return m_pageItemMap.Take(id); }
    // The id of a page item's name; a name the controller does not know gives 0.
    int PageItemId(const QString &name) const { return m_pageItemMap.IdOf(name); }
    // The page items of the connected target that have a test, in the order
    // of the page list, and what kind of test an item has.
    QStringList GetTestItems();
    CPageItemDescriptor::ETestKind GetTestKind(const QString &item);
    // The name of the page item of `id`; empty when there is none.
    QString GetPageItemName(int id) const;

signals:
    void Signal_TestDone(SEachItemOperationResult itemResult, std::string resultModel);
    void Signal_TestStopDone(SEachItemOperationResult itemResult);
    void Signal_SetUbinDone(SEachItemOperationResult itemResult);
    void Signal_RegReadDone(SEachItemOperationResult itemResult, std::string resultModel);
    void Signal_RegWriteDone(SEachItemOperationResult itemResult, std::string resultModel);

protected:
    bool IsTargetServed() override;

private:
    CTdscdmaCore();

    SRatSupportStatus DetermineRatSupportStatus();
    void SetUbinInternal(bool enable);
    void TestInternal(QString item, std::string request);
    void TestStopInternal(QString item, std::string request);
    void RegReadInternal(std::string request);
    void RegWriteInternal(std::string request);

    // The controller's page items by name and id, in the order of the page list.
    CItemRegistry<CPageItemDescriptor> m_pageItemMap;
    CTdscdmaUbinMode m_ubinObj;
    CTdscdmaTestStop m_testStopObj;
    CTdscdmaRfInit m_rfInitObj;
    CTdscdmaBBReg m_bbRegObj;
    CTdscdmaDataModelCapUpdater m_capUpdater;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
};
