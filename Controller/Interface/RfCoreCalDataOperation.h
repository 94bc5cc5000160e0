#pragma once

#include <QJsonObject>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

#include "CalDataRun.h"
#include "CalItemDescriptor.h"
#include "ItemRegistry.h"
#include "Platform/ThreadHandOff.h"
#include "Capability/FddRfCapability.h"
#include "Capability/GsmRfCapability.h"
#include "Capability/LteRfCapability.h"
#include "Capability/MmrfCapability.h"
#include "Capability/TdscdmaCapability.h"
#include "RatSupportStatus.h"
#include "SEachItemOperationResult.h"
#include "TavoTargetAccess.h"

class TIniFile;

// The calibration data face shared by the controllers: the four movements
// of calibration data between target, tool and Cal/INI file, each started
// by a call that returns at once and ended by its done signal, and the
// exchange of an item's data with a page's model.
//
// A controller adds its items as descriptors (AddCalItem); the movements
// and the exchange serve every item the same way. Each movement carries its
// own state (SCalDataRun) from its start to its done signal, so movements on
// different threads share nothing but the items they move; the items
// themselves are moved by one movement at a time, as the pages keep to.
class IRfCoreCalDataOperation : public QObject {
    Q_OBJECT
public:
    explicit IRfCoreCalDataOperation(QObject *parent = nullptr);
    ~IRfCoreCalDataOperation() override;

    // The movements, each on a pool thread; the run holds its items and file.
    virtual void UploadFromFlashInternal(SCalDataRun run) = 0;
    virtual void SaveToFileInternal(SCalDataRun run) = 0;
    virtual void LoadFromFileInternal(SCalDataRun run) = 0;
    virtual void DownloadToFlashInternal(SCalDataRun run) = 0;
    // The items the target offers, and those of them `file` holds.
    virtual QStringList GetSupportItem();
    virtual QStringList GetSupportItemFromFile(TIniFile *file);
    // Start a movement of `items` and return at once. `file` stays the caller's.
    virtual void UploadFromFlash(QStringList items);
    virtual void DownloadToFlash(QStringList items);
    virtual void LoadFromFile(TIniFile *file, QStringList items);
    virtual void SaveToFile(TIniFile *file, QStringList items);
    // The text of the last failure of any run.
    virtual QString GetErrorMessage();
    // Asks the running movement to stop before its next item: that item and
    // the ones after it end as terminated (code 4). Any thread; a movement
    // that starts later forgets the request.
    void RequestStop() { m_stopRequested = true; }
    virtual void ResetCapability() = 0;
    virtual SRatSupportStatus GetRatSupportStatus() = 0;

    // The band data of `item` between a page's model and the item: the page's
    // values into the item, the item's values into the model (as compact JSON
    // text). Called on the user interface thread while no movement runs.
    void SetCalibrationData(const QString &item, const std::string &model);
    std::string GetCalibrationData(const QString &item, const std::string &model);
    // The same with the models as they stand, for a caller that holds them so.
    void SetCalibrationData(const QString &item, const QJsonObject &model);
    QJsonObject GetCalibrationData(const QString &item, const QJsonObject &model);
    // Which controller moves `item` on the connected target, and its name there.
    SCalDataRoute CalDataRoute(const QString &item);

    // Adds an item to those this controller moves, after the others; an item
    // of the same id leaves (and is given back).
    std::unique_ptr<CCalItemDescriptor> AddCalItem(std::unique_ptr<CCalItemDescriptor> item)
    {
        return m_calItemMap.Add(std::move(item));
    }
    // Takes the item of `id` away, if there is one.
    std::unique_ptr<CCalItemDescriptor> TakeCalItem(int id) { return m_calItemMap.Take(id); }
    // The id of an item's name; a name the controller does not know gives 0.
    int CalItemId(const QString &name) const { return m_calItemMap.IdOf(name); }

signals:
    void Signal_FinishItemCount(int itemFinshCount, SEachItemOperationResult itemResult);
    void Signal_UploadFromFlashDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);
    void Signal_DownloadToFlashDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);
    void Signal_SaveToFileDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);
    void Signal_LoadFromFileDone(bool isAllSuccess, QVector<SEachItemOperationResult> itemResult);

protected:
    // Whether the controller serves the target at all; the item lists of a
    // target it does not serve are empty.
    virtual bool IsTargetServed() = 0;

    // One pass of a movement over the run's items: every item moves and gets
    // its result, whatever the others gave; then the movement's done signal.
    void RunMovement(SCalDataRun &run);
    void SetErrorMessage(const QString &message);
    // Whether the connection serves a C2K modem; a connection that cannot
    // tell is taken for another one.
    bool IsC2kModem();
    // Forgets the answers of every capability class, and what the items
    // learned of the connected target.
    void ForgetTarget();
    // A model's JSON text as an object; a text that is no JSON gives an empty one.
    static QJsonObject ParseModel(const std::string &model);
    // Comes right before a signal that receivers on other threads take: what
    // the run did is then theirs to see (Platform/ThreadHandOff.h).
    static void HandOverToReceivers() { Platform::HandOffRelease(Platform::EHandOff::EventQueue); }

    // Guards what runs on any thread write: the last RAT status and the last failure text.
    mutable std::mutex m_stateLock;
    SRatSupportStatus m_ratStatus;
    CGsmRfCapability m_gsmCapObj;
    CMmrfCapability m_mmrfCapObj;
    CLteRfCapability m_lteCapObj;
    CTdscdmaCapability m_tdscdmaCapObj;
    CFddRfCapability m_fddCapObj;
    CTavoTargetAccess m_targetAccess;
    // The controller's calibration items by name and id.
    CItemRegistry<CCalItemDescriptor> m_calItemMap;

private:
    void StartMovement(ECalDataMovement movement, TIniFile *file, QStringList items);
    // With a stop requested: the items from `next` on end as terminated.
    bool StopBefore(SCalDataRun &run, int next);

    std::atomic<bool> m_stopRequested{false};

    QString m_errorMessage;
};
