#pragma once

// Items that the tool does not have, added to the controller by a test the
// way a new item is added: a descriptor, nothing else. Link RadbenchController.

#include <QJsonDocument>

#include "Interface/CalItemDescriptor.h"
#include "Interface/PageItemDescriptor.h"
#include "TIniFile.h"
#include "TdscdmaCore.h"

// An item object with the four movements of a real one: each gives `code`
// and keeps a value that a file read or a band exchange sets.
struct SFakeItemObject {
    uint32_t code = 0;
    QStringList calls;
    QString value;

    uint32_t UploadFromFlash() { return Called("upload"); }
    uint32_t DownloadToFlash() { return Called("download"); }
    uint32_t ReadFromFile(TIniFile *file)
    {
        value = QString::fromStdString(file->ReadString("Fake Item", "value", ""));
        return Called("read");
    }
    uint32_t WriteToFile(TIniFile *file)
    {
        file->WriteString("Fake Item", "value", value.toStdString());
        return Called("write");
    }
    QString GetErrorMessage() const { return code ? "fake failure " + QString::number(code) : QString(); }

private:
    uint32_t Called(const char *what)
    {
        calls << what;
        return code;
    }
};

// A calibration item whose data is one value under "value" of a page's model.
class CFakeCalItem : public CCalItemDescriptor {
public:
    CFakeCalItem(int id, const QString &name, uint32_t code = 0) : CCalItemDescriptor(id, name) { object.code = code; }

    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override
    {
        return MoveItem(object, movement, file, errorMessage);
    }
    void SetCalibrationData(const QJsonObject &model) override { object.value = model.value("value").toString(); }
    std::string GetCalibrationData(const QJsonObject &model) override
    {
        QJsonObject filled = model;
        filled.insert("value", object.value);
        return QJsonDocument(filled).toJson(QJsonDocument::Compact).toStdString();
    }

    SFakeItemObject object;
};

// A page item with a stored model of the tool and a test that answers the
// request's "value" with `code`.
class CFakePageItem : public CPageItemDescriptor {
public:
    static constexpr int kId = 100;

    explicit CFakePageItem(int code = 0)
        : CPageItemDescriptor(kId, "Fake Page", "CFakePageDockWidget", SPageModel::WithoutBands(":/TdscdmaBBReg.json")),
          m_code(code)
    {
    }

    void Test(STestRun &run) override
    {
        run.code = m_code;
        run.resultModel = run.request.value("value").toString().toStdString();
    }

private:
    int m_code;
};
