#pragma once

#include <QMap>

#include "Interface/CoreInterface.h"
#include "Items/TdscdmaUbinMode.h"
#include "TdscdmaCoreCmdBuilder.h"
#include "TdscdmaDataModelCapUpdater.h"
#include "TdscdmaDataModelResponseBuilder.h"

class CTdscdmaBBReg;
class CTdscdmaContRx;
class CTdscdmaContTx;
class CTdscdmaDpchTx;
class CTdscdmaRfInit;
class CTdscdmaRssi;
class CTdscdmaTestStop;
class CTdscdmaTadc;
class CTdscdmaTpc;
class CTdscdmaTpcV3;

// The one controller of everything TD-SCDMA: pages' models, tests and
// stops, the target's arming, and the movements of calibration data. A
// process-wide singleton; long operations run in the global thread pool and
// end in a signal.
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
    void UploadFromFlashInternal() override;
    void SaveToFileInternal() override;
    void LoadFromFileInternal() override;
    void DownloadToFlashInternal() override;
    QStringList GetSupportItem() override;
    QStringList GetSupportItemFromFile(TIniFile *file) override;
    void UploadFromFlash(QStringList items) override;
    void DownloadToFlash(QStringList items) override;
    void LoadFromFile(TIniFile *file, QStringList items) override;
    void SaveToFile(TIniFile *file, QStringList items) override;
    void ResetCapability() override;
    SRatSupportStatus GetRatSupportStatus() override;

    virtual void CreateItems();
    virtual QString GetCalItemName(int id);
    virtual void TestStopByItem(QString item, std::string request);

    // Arms (true) or releases (false) the target; ends in Signal_SetUbinDone.
    void SetUbin(bool enable);
    // Baseband register access; ends in Signal_RegReadDone or Signal_RegWriteDone.
    void RegRead(std::string request);
    void RegWrite(std::string request);
    // False only when the target serves all calibration data over layer 1.
    bool IsNeedDb();

    int PageItemId(const QString &name) const { return m_pageItemMap.value(name, 0); }
    int CalItemId(const QString &name) const { return m_calItemMap.value(name, 0); }

signals:
    void Signal_TestDone(SEachItemOperationResult itemResult, std::string resultModel);
    void Signal_TestStopDone(SEachItemOperationResult itemResult);
    void Signal_SetUbinDone(SEachItemOperationResult itemResult);
    void Signal_RegReadDone(SEachItemOperationResult itemResult, std::string resultModel);
    void Signal_RegWriteDone(SEachItemOperationResult itemResult, std::string resultModel);

private:
    CTdscdmaCore();

    void SetUbinInternal(bool enable);
    void TestInternal(QString item, std::string request);
    void TestStopInternal(QString item, std::string request);
    void RegReadInternal(std::string request);
    void RegWriteInternal(std::string request);
    // The RSSI measure of a request; the answer goes into `resultModel`.
    int RssiTest(const QJsonObject &request, std::string &resultModel);
    // Every item of the running movement ends with the code of a movement
    // that did not run, and the movement's done signal is returned.
    void EndMovementWithoutItems();

    // The stored model of a page, fitted to the target.
    QJsonObject FittedDataModel(int pageItem, const QString &pageName);

    QMap<QString, int> m_calItemMap;
    CTdscdmaTpc *m_tpcObj = nullptr;
    CTdscdmaTpcV3 *m_tpcV3Obj = nullptr;
    CTdscdmaTadc *m_tadcObj = nullptr;
    CTdscdmaUbinMode m_ubinObj;
    QMap<QString, int> m_pageItemMap;
    CTdscdmaTestStop *m_testStopObj = nullptr;
    CTdscdmaContTx *m_contTxObj = nullptr;
    CTdscdmaRfInit *m_rfInitObj = nullptr;
    CTdscdmaContRx *m_contRxObj = nullptr;
    CTdscdmaDpchTx *m_dpchTxObj = nullptr;
    CTdscdmaRssi *m_rssiObj = nullptr;
    CTdscdmaBBReg *m_bbRegObj = nullptr;
    CTdscdmaDataModelCapUpdater m_capUpdater;
    CTdscdmaDataModelResponseBuilder m_responseBuilder;
    CTdscdmaCoreCmdBuilder m_cmdBuilder;
};
