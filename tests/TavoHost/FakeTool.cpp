#include "FakeTool.h"

#include <QDebug>
#include <QLabel>
#include <QTimer>

#include "TavoSimControl.h"

namespace {

QString Profile() { return QStringLiteral("profile=") + TavoSim::CurrentProfileName(); }

} // namespace

CFakeTool::~CFakeTool() { delete m_window; }

QString CFakeTool::Answer()
{
    const QString answer = qEnvironmentVariable(FakeTool::kAnswerVariable);
    return answer.isEmpty() ? QStringLiteral("supported") : answer;
}

QString CFakeTool::GetPluginName()
{
    Record(QStringLiteral("GetPluginName"));
    return QString::fromLatin1(FakeTool::kName);
}

void CFakeTool::ResetPlugin() { Record(QStringLiteral("ResetPlugin(%1)").arg(Profile())); }

SPluginToolLaunchRequirement CFakeTool::QueryLaunchRequirement()
{
    Record(QStringLiteral("QueryLaunchRequirement(%1)").arg(Profile()));
    const QString answer = Answer();
    SPluginToolLaunchRequirement requirement;
    requirement.isSupport = answer != QLatin1String("unsupported");
    requirement.unsupportReason = requirement.isSupport ? QString() : QString::fromLatin1(FakeTool::kUnsupportedReason);
    requirement.isNeedDb = answer == QLatin1String("needdb");
    requirement.isDbOptional = !requirement.isNeedDb;
    requirement.extraInfo = QStringLiteral("answer=") + answer;
    return requirement;
}

void CFakeTool::ShowTool()
{
    Record(QStringLiteral("ShowTool(db=%1)").arg(TavoSim::IsDatabaseLoaded() ? "loaded" : "unloaded"));
    qDebug("%s", FakeTool::kTraceLine);
    if (!m_window) {
        m_window = new QMainWindow;
        m_window->setWindowTitle(QString::fromLatin1(FakeTool::kName));
        m_window->setCentralWidget(new QLabel(QStringLiteral("Fake tool page"), m_window));
        m_window->resize(FakeTool::kWindowWidth, FakeTool::kWindowHeight);
    }
    m_window->show();
    m_window->setEnabled(false);
    emit Signal_PluginIsBusy(QString::fromLatin1(FakeTool::kName), true);

    if (Answer() == QLatin1String("never-enabled"))
        return;
    QTimer::singleShot(FakeTool::kPrepareMs, this, [this] {
        if (!m_window)
            return;
        m_window->setEnabled(true);
        emit Signal_PluginIsBusy(QString::fromLatin1(FakeTool::kName), false);
        emit Signal_PluginIsActivated(QString::fromLatin1(FakeTool::kName), true);
    });
}

void CFakeTool::HideTool()
{
    Record(QStringLiteral("HideTool"));
    if (m_window)
        m_window->hide();
    emit Signal_PluginIsActivated(QString::fromLatin1(FakeTool::kName), false);
}
