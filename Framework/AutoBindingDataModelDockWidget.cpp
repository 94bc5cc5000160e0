#include "AutoBindingDataModelDockWidget.h"

#include <QDebug>
#include <QEvent>
#include <QGroupBox>
#include <QJsonDocument>

namespace {

const QString kDashes(75, '-');

QFont TitleFont()
{
    QFont font("Arial", -1, -1, false);
    font.setWeight(75);
    return font;
}

} // namespace

CAutoBindingDataModelDockWidget::CAutoBindingDataModelDockWidget(QWidget *parent) : QDockWidget(parent) {}

bool CAutoBindingDataModelDockWidget::event(QEvent *e)
{
    switch (e->type()) {
    case QEvent::NonClientAreaMouseMove:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::NonClientAreaMouseButtonRelease:
        return false;
    default:
        return QDockWidget::event(e);
    }
}

void CAutoBindingDataModelDockWidget::showEvent(QShowEvent *event)
{
    Q_UNUSED(event);
    if (!m_isPageStarted) {
        StartInit();
        m_isPageStarted = true;
    }
}

void CAutoBindingDataModelDockWidget::StartInit()
{
    emit Signal_UpdateStatus("Start Init: " + windowTitle(), 0);
    qDebug().noquote() << kDashes << " Start Init the page: " + windowTitle() << kDashes;
    setStyleSheet("QGroupBox::title { color: rgb(32, 81, 124);}");
    m_isCalDataPage = IsCalDataPage();
    m_widgetRoot = GetWidgetRoot();
    RequestDataModel();
}

void CAutoBindingDataModelDockWidget::Slot_GetDataModelDone(std::string dataModelStr)
{
    if (!dataModelStr.empty()) {
        m_model = QJsonDocument::fromJson(QByteArray::fromStdString(dataModelStr)).object();
        m_isModelReady = true;
    } else {
        qDebug() << "Without any INIT info, Data Model is empty STRING format.";
        if (m_widgetRoot) {
            for (QGroupBox *group : m_widgetRoot->findChildren<QGroupBox *>())
                group->setFont(TitleFont());
        }
    }
    qDebug().noquote() << kDashes << " Init Done: " + windowTitle() << kDashes;
    emit Signal_InitDone();
}

QString CAutoBindingDataModelDockWidget::ExpandModelPath(const QString &shortPath) const
{
    return (m_isCalDataPage == 0 ? "cmdIf." : "calDataIf.") + shortPath;
}

void CAutoBindingDataModelDockWidget::ShowResultMessage(QString title, SEachItemOperationResult result)
{
    m_messageBox.ShowResultMessage(title, result);
}
