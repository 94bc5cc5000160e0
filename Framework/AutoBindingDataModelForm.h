#pragma once

#include <QMainWindow>
#include <QStringList>

class QAction;
class QMenu;
class QProgressBar;
class CAutoBindingDataModelDockWidget;

// The main window side of the binding framework. Given a list of page class
// names it creates each page by reflection, waits until its model is bound,
// and stacks the pages as tabbed dock widgets. It keeps every page but the
// current one disabled and asks pages to stop their tests when the user
// turns to another tab.
class CAutoBindingDataModelForm : public QMainWindow {
    Q_OBJECT
public:
    explicit CAutoBindingDataModelForm(QWidget *parent = nullptr);
    ~CAutoBindingDataModelForm() override;

    virtual bool CheckSupport(QString &reason) = 0;
    virtual bool IsNeedDb() = 0;
    virtual void ResetForm() = 0;

    // Builds the pages named by `pageList`, one after another; returns when
    // every page has bound its model.
    void InitPage(QStringList pageList);
    void RemoveAllPages();
    QList<CAutoBindingDataModelDockWidget *> Pages() const;

signals:
    void Signal_PluginIsBusy(bool isBusy);

public slots:
    virtual void Slot_GetInitPageListDone(QStringList pageList) = 0;
    virtual void Slot_UpdateStatusbar(QString str) = 0;
    void Slot_DockWidgetsTabChange(bool value);
    void Slot_InitDone();
    // Shows in the status bar how far a page's operation has come; the bar
    // goes when the operation ends.
    void Slot_UpdateProgress(int finished, int total);

protected:
    void closeEvent(QCloseEvent *event) override;

private slots:
    void SelectPages(QAction *page);
    void ShowContextMenu(const QPoint &pos);

private:
    int m_allInitPageCount = 0;
    int m_currentInitPageCount = 0;
    QMenu *m_viewMenu = nullptr;
    QProgressBar *m_progress = nullptr;
};
