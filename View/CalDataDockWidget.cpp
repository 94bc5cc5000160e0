#include "CalDataDockWidget.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QToolButton>
#include <QJsonDocument>
#include <QTableWidget>

#include "Chart/CalDataChart.h"
#include "FileDialogMan.h"
#include "JsonPath.h"
#include "RadbenchLog.h"

namespace {

const char *const kBandPath = "calDataIf.config.group1.memberValue.band";
const char *const kChooseFile = "Please choose the Cal/Ini file...";

} // namespace

const CCalDataDockWidget::SOutcome CCalDataDockWidget::kUpload{"Read data from target successfully.",
                                                                "Read data from target failed."};
const CCalDataDockWidget::SOutcome CCalDataDockWidget::kLoad{"Import data from file successfully.",
                                                              "Import data from file failed."};
const CCalDataDockWidget::SOutcome CCalDataDockWidget::kDownload{"Download to flash successfully.",
                                                                  "Download to flash failed."};
const CCalDataDockWidget::SOutcome CCalDataDockWidget::kSave{"Export data to file successfully.",
                                                              "Export data to file failed."};
const CCalDataDockWidget::SOutcome CCalDataDockWidget::kTestPageUpload{
    "Read data from target successfully.", "Read data from target failed.", "Read data from target failed"};
const CCalDataDockWidget::SOutcome CCalDataDockWidget::kTestPageLoad{
    "Import data from file successfully.", "Import data from file failed.", "Import data from file failed"};
const CCalDataDockWidget::SOutcome CCalDataDockWidget::kTestPageDownload{
    "Write data to target successfully.", "Write data to target failed.", "Write data to target failed"};
const CCalDataDockWidget::SOutcome CCalDataDockWidget::kTestPageSave{
    "Export data to file successfully.", "Export data to file failed.", "Export data to file failed"};

CCalDataDockWidget::CCalDataDockWidget(QWidget *parent)
    : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
{
    connect(m_viewController, &CTdscdmaRadbenchCore::Signal_CalDataProgress, this,
            [this](int finished, int total) { emit Signal_UpdateProgress(finished, total); });
    connect(this, &CAutoBindingDataModelDockWidget::Signal_InitDone, this, &CCalDataDockWidget::Slot_PageReady);
}

CCalDataDockWidget::~CCalDataDockWidget() = default;

void CCalDataDockWidget::BindOperationWidgets(QComboBox *bandSelector)
{
    for (const char *name : {"m_btnLoad", "m_btnSave", "m_btnUpload", "m_btnDownload"}) {
        if (auto *button = findChild<QAbstractButton *>(name))
            m_operationButtons << button;
    }
    m_bandSelector = bandSelector;
    if (m_bandSelector)
        m_bandSelector->installEventFilter(this);
}

void CCalDataDockWidget::AttachChart(CCalDataChart *chart)
{
    chart->hide();
    if (auto *page = qobject_cast<QGridLayout *>(widget() ? widget()->layout() : nullptr))
        page->addWidget(chart, 0, page->columnCount());
    auto *button = new QToolButton(this);
    button->setObjectName("m_btnChart");
    button->setText("&Chart");
    button->setToolTip("Show or hide the chart of the data, and what looks implausible in them");
    button->setCheckable(true);
    button->setAutoRaise(true);
    // Under the four buttons, above the room left below them.
    if (auto *buttons = findChild<QGridLayout *>("buttonLayout")) {
        const int row = buttons->rowCount();
        QLayoutItem *room = buttons->itemAtPosition(row - 1, 0);
        if (room && room->spacerItem()) {
            buttons->removeItem(room);
            buttons->addWidget(button, row - 1, 0);
            buttons->addItem(room, row, 0);
        } else {
            buttons->addWidget(button, row, 0);
        }
    }
    connect(button, &QToolButton::toggled, this, [this, chart](bool shown) {
        chart->setVisible(shown);
        if (!shown) {
            emit Signal_UpdateStatus("Chart hidden.", 0);
            return;
        }
        chart->Redraw();
        const int faults = chart->Faults().size();
        emit Signal_UpdateStatus(faults == 0 ? QString("Chart shown: no implausible value.")
                                             : QString("Chart shown: %1 implausible value%2.")
                                                   .arg(faults)
                                                   .arg(faults == 1 ? "" : "s"),
                                 0);
    });
    // The check runs whenever the tables change, shown or not.
    connect(this, &CAutoBindingDataModelDockWidget::Signal_InitDone, chart, &CCalDataChart::ScheduleRedraw);
}

void CCalDataDockWidget::DisableOperation()
{
    for (QAbstractButton *button : m_operationButtons)
        button->setEnabled(false);
}

void CCalDataDockWidget::EnableOperation()
{
    for (QAbstractButton *button : m_operationButtons)
        button->setEnabled(true);
}

bool CCalDataDockWidget::eventFilter(QObject *object, QEvent *event)
{
    // Until the model is bound the band selector is the form's, not the user's.
    if (!m_isModelReady)
        return true;
    return CAutoBindingDataModelDockWidget::eventFilter(object, event);
}

void CCalDataDockWidget::Slot_PageReady()
{
    if (m_bandSelector)
        m_shownBand = m_bandSelector->currentText();
    // A group whose members this target does not have would stand empty.
    for (QGroupBox *box : findChildren<QGroupBox *>()) {
        bool anyShown = false;
        for (QWidget *child : box->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            anyShown = anyShown || !child->isHidden();
        if (!anyShown)
            box->hide();
    }
}

// ---- Operations ------------------------------------------------------------------

void CCalDataDockWidget::BeginOperation()
{
    DisableOperation();
    // The band exchange must not touch the item while a movement uses it.
    if (m_bandSelector)
        m_bandSelector->setEnabled(false);
    emit Signal_PluginIsBusy(true);
}

void CCalDataDockWidget::EndOperation()
{
    EnableOperation();
    if (m_bandSelector)
        m_bandSelector->setEnabled(true);
    emit Signal_PluginIsBusy(false);
    emit Signal_UpdateProgress(0, 0);
}

bool CCalDataDockWidget::ChooseFileToLoad(QString &path)
{
    CFileDialogMan dialog;
    dialog.GetOpenFilePath(QString(), QString(), path);
    if (!path.isEmpty())
        return true;
    m_messageBox.ShowMessage(CMessageBoxMan::KIND_WARNING, "Open file", kChooseFile, QString(), QString(), -1);
    return false;
}

bool CCalDataDockWidget::ChooseFileToSave(QString &path)
{
    CFileDialogMan dialog;
    dialog.GetSaveFilePath(QString(), "Ini file (*.ini)|*.ini", path);
    if (!path.isEmpty())
        return true;
    m_messageBox.ShowMessage(CMessageBoxMan::KIND_WARNING, "Save file", kChooseFile, QString(), QString(), -1);
    return false;
}

void CCalDataDockWidget::ShowReadOutcome(const SOutcome &outcome, const SEachItemOperationResult &result,
                                         const std::string &resultDataModel)
{
    if (result.errorCode == ERROR_CODE_SUCCESS)
        UpdateWidgets(Parse(resultDataModel));
    ShowOutcome(outcome, result);
}

void CCalDataDockWidget::ShowOutcome(const SOutcome &outcome, const SEachItemOperationResult &result)
{
    if (result.errorCode == ERROR_CODE_SUCCESS) {
        emit Signal_UpdateStatus(outcome.success, 0);
        return;
    }
    emit Signal_UpdateStatus(outcome.failure, 0);
    ShowResultMessage(outcome.boxTitle ? outcome.boxTitle : outcome.failure, result);
}

QJsonObject CCalDataDockWidget::Parse(const std::string &text)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
}

void CCalDataDockWidget::ClearTable(QTableWidget *table, int firstRow)
{
    for (int row = firstRow; table && row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column) {
            if (auto *cell = qobject_cast<QDoubleSpinBox *>(table->cellWidget(row, column)))
                cell->setValue(0.0);
            else if (auto *cell = qobject_cast<QSpinBox *>(table->cellWidget(row, column)))
                cell->setValue(0);
        }
    }
}

// ---- Bands -----------------------------------------------------------------------

void CCalDataDockWidget::ChangeBand(const QString &band, void (CTdscdmaRadbenchCore::*set)(const QJsonObject &),
                                    QJsonObject (CTdscdmaRadbenchCore::*get)(const QJsonObject &))
{
    if (!m_isModelReady || band.isEmpty() || band == m_shownBand)
        return;
    qCDebug(lcView) << "============================ band change";
    DisableOperation();
    emit Signal_PluginIsBusy(true);

    // The widgets still show the old band's values; the selector already
    // names the new band. One packing serves both: under the old band it
    // stores the edits, as it stands it asks for the new band.
    const QJsonObject packed = PackageMemberValueObject();
    m_previousModel = packed;
    SetJsonValue(m_previousModel, kBandPath, m_shownBand);
    (m_viewController->*set)(m_previousModel);

    m_shownBand = band;
    UpdateWidgets((m_viewController->*get)(packed));

    EnableOperation();
    emit Signal_PluginIsBusy(false);
}
