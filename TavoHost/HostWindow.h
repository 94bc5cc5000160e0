#pragma once
/*
 * The host's own window: a log of everything that passes between host and
 * plug-in, the plug-in's state in the status bar, and the Tool and Target
 * menus that drive it.
 */
#include <QMainWindow>

class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QPlainTextEdit;
class CPluginHost;

class CHostWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit CHostWindow(CPluginHost *host, QWidget *parent = nullptr);

    QString LogText() const;
    QMenu *ToolMenu() const { return m_toolMenu; }
    QMenu *TargetMenu() const { return m_targetMenu; }
    /* The action that connects to the built-in profile `name`, or null. */
    QAction *ProfileAction(const QString &name) const;

public slots:
    void Slot_AppendLog(const QString &line);

signals:
    void Signal_Closed();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void BuildMenus();
    void OpenTool();
    void ChooseProfile(const QString &profile);
    void LoadProfileFile();
    void UpdateTargetMenu();
    void UpdateState(const QString &stateText);
    void ShowRefusal(const QString &reason);

    CPluginHost *m_host;
    QPlainTextEdit *m_log;
    QLabel *m_stateLabel;
    QMenu *m_toolMenu = nullptr;
    QMenu *m_targetMenu = nullptr;
    QActionGroup *m_profileGroup = nullptr;
};
