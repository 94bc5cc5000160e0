#pragma once

#include <QList>
#include <QString>

#include <string>

#include "AutoBindingDataModelDockWidget.h"
#include "ErrorCodeInfo.h"
#include "TdscdmaRadbenchCore.h"

class CCalDataChart;
class QAbstractButton;
class QComboBox;
class QTableWidget;

// What the pages of calibration data share: four buttons that move the
// item's data (Read from the target, Write to it, Import from a Cal/INI
// file, Export to one) and, on pages that show one band at a time, the band
// selector.
//
// An operation opens (buttons and band selector disabled, the host told
// that the tool is busy, the view controller's done signal connected to the
// page) and closes in the done slot the other way round, then tells the
// outcome in the status line, or in the error table's box on failure.
//
// The item holds every band; the page shows one. When the user turns to
// another band, the values shown go into the item under the band they were
// shown for, and the new band's values come from the item.
class CCalDataDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    ~CCalDataDockWidget() override;

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 1; }
    void DisableOperation() override;
    void EnableOperation() override;
    bool eventFilter(QObject *object, QEvent *event) override;

    // The texts that end the page's operations: the status line on success
    // and on failure, and the title of the failure's box (none: the failure's
    // status line).
    struct SOutcome {
        const char *success;
        const char *failure;
        const char *boxTitle = nullptr;
    };
    static const SOutcome kUpload;
    static const SOutcome kLoad;
    static const SOutcome kDownload;
    static const SOutcome kSave;
    // The same on the test pages that move calibration data (AFC, TADC):
    // "Write data to target", and box titles without the full stop.
    static const SOutcome kTestPageUpload;
    static const SOutcome kTestPageLoad;
    static const SOutcome kTestPageDownload;
    static const SOutcome kTestPageSave;

public slots:
    void Slot_TriggerStopTest() override {}

protected:
    explicit CCalDataDockWidget(QWidget *parent = nullptr);

    // After the form is set up: finds the buttons m_btnLoad, m_btnSave,
    // m_btnUpload and m_btnDownload, and the band selector (none on a page
    // without bands).
    void BindOperationWidgets(QComboBox *bandSelector);
    // Puts `chart` beside the page's tables, hidden until the page's "Chart"
    // button (m_btnChart, under the four others) shows it.
    void AttachChart(CCalDataChart *chart);

    // Opening and closing of an operation whose end the view controller
    // tells by `done`, which reaches `slot` of the page in between.
    template <typename Page, typename... Args>
    std::string Opening(void (CTdscdmaRadbenchCore::*done)(Args...), void (Page::*slot)(Args...))
    {
        BeginOperation();
        connect(m_viewController, done, static_cast<Page *>(this), slot);
        return PackageMemberValue();
    }
    template <typename Page, typename... Args>
    void Closing(void (CTdscdmaRadbenchCore::*done)(Args...), void (Page::*slot)(Args...))
    {
        disconnect(m_viewController, done, static_cast<Page *>(this), slot);
        EndOperation();
    }

    // The Cal/INI file to import from or export to; false, after telling the
    // user, when none was chosen.
    bool ChooseFileToLoad(QString &path);
    bool ChooseFileToSave(QString &path);

    // The end of an operation: the status line, and on failure the error
    // table's box. A Read or Import that succeeded first shows the model
    // that came back.
    void ShowOutcome(const SOutcome &outcome, const SEachItemOperationResult &result);
    void ShowReadOutcome(const SOutcome &outcome, const SEachItemOperationResult &result,
                         const std::string &resultDataModel);

    // A model text from the view controller; empty when it is no JSON object.
    static QJsonObject Parse(const std::string &text);
    // Every spin box of the table's rows from `firstRow` on shows 0.
    static void ClearTable(QTableWidget *table, int firstRow);

    // The user turned the band selector to `band`: `set` stores the values
    // shown under the band they were shown for, `get` gives the new band's.
    void ChangeBand(const QString &band, void (CTdscdmaRadbenchCore::*set)(const QJsonObject &),
                    QJsonObject (CTdscdmaRadbenchCore::*get)(const QJsonObject &));

    CTdscdmaRadbenchCore *m_viewController;
    // The page's model as it stood before the band changed: the values shown
    // and the band they belong to.
    QJsonObject m_previousModel;

private:
    void BeginOperation();
    void EndOperation();
    // Once the model is bound: the band shown, and no empty group boxes.
    void Slot_PageReady();

    QList<QAbstractButton *> m_operationButtons;
    QComboBox *m_bandSelector = nullptr;
    // The band whose values the widgets show.
    QString m_shownBand;
};
