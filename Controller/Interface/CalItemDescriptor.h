#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <string>

#include "CalDataMovement.h"
#include "ErrorCodeInfo.h"

class IRfCoreCalDataOperation;
class TIniFile;

// Which controller moves a calibration item's data, and under which name.
struct SCalDataRoute {
    IRfCoreCalDataOperation *controller = nullptr;
    QString item;
};

// One calibration item as a controller offers it: whether the target and a
// file have it, the four movements of its data, and the exchange of its data
// with a page's model. The descriptor owns the objects that serve the item
// and picks the one that fits the connected target. Adding an item to a
// controller is adding its descriptor (see TdscdmaItemCatalog).
//
// Movements run on the controller's pool thread, one at a time; the
// exchange runs on the user interface thread while no movement runs.
class CCalItemDescriptor {
public:
    // `isSupported` tells whether the connected target has the item; none: it always has.
    CCalItemDescriptor(int id, QString name, std::function<bool()> isSupported = {});
    virtual ~CCalItemDescriptor();

    CCalItemDescriptor(const CCalItemDescriptor &) = delete;
    CCalItemDescriptor &operator=(const CCalItemDescriptor &) = delete;

    int Id() const { return m_id; }
    const QString &Name() const { return m_name; }

    // Whether the connected target has the item.
    virtual bool IsSupported();
    // Whether `file` holds the item's data for the connected target.
    virtual bool IsInFile(TIniFile *file);
    // One movement of the item's data: a code of the error table, the item's
    // text (empty or a report) in `errorMessage`. An item with no object to
    // serve it on this target is not executed (code 2).
    virtual int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage);
    // The controller that moves the item: `owner` under the item's own name
    // unless the item is served elsewhere on this target.
    virtual SCalDataRoute Route(IRfCoreCalDataOperation *owner);
    // Forgets what the item learned of the connected target (how many
    // records it has, which blocks), so that the next movement asks again.
    virtual void ForgetTarget() {}

    // The values a page shows (of the band it shows) into the item, and the
    // item's values into a page's model, given back as compact JSON text. The
    // defaults store nothing and give the model back as it came.
    virtual void SetCalibrationData(const QJsonObject &model);
    virtual std::string GetCalibrationData(const QJsonObject &model);
    // The same giving the model itself; an item that builds it as an object
    // gives it so, the others' text is parsed.
    virtual QJsonObject GetCalibrationDataModel(const QJsonObject &model);

protected:
    // A movement of an item object: one of its four operations, then its text.
    template <typename Item>
    static int MoveItem(Item &item, ECalDataMovement movement, TIniFile *file, QString &errorMessage)
    {
        uint32_t code = ERROR_CODE_NOT_EXECUTED;
        switch (movement) {
        case ECalDataMovement::UploadFromFlash:
            code = item.UploadFromFlash();
            break;
        case ECalDataMovement::DownloadToFlash:
            code = item.DownloadToFlash();
            break;
        case ECalDataMovement::LoadFromFile:
            code = item.ReadFromFile(file);
            break;
        case ECalDataMovement::SaveToFile:
            code = item.WriteToFile(file);
            break;
        }
        errorMessage = item.GetErrorMessage();
        return int(code);
    }

private:
    const int m_id;
    const QString m_name;
    const std::function<bool()> m_isSupported;
};
