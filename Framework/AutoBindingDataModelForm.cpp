#include "AutoBindingDataModelForm.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QMenu>
#include <QMenuBar>
#include <QMetaType>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>

#include "AutoBindingDataModelDockWidget.h"
#include "MessageBoxMan.h"
#include "RadbenchLog.h"

CAutoBindingDataModelForm::CAutoBindingDataModelForm(QWidget *parent) : QMainWindow(parent) {}

CAutoBindingDataModelForm::~CAutoBindingDataModelForm()
{
    // Qt deletes the pages after this part of the form is gone, and hides
    // them on the way: nothing they signal may reach the form any more.
    for (QDockWidget *dock : findChildren<QDockWidget *>())
        dock->disconnect(this);
}

QList<CAutoBindingDataModelDockWidget *> CAutoBindingDataModelForm::Pages() const
{
    return findChildren<CAutoBindingDataModelDockWidget *>();
}

void CAutoBindingDataModelForm::InitPage(QStringList pageList)
{
    setDockOptions(QMainWindow::AllowTabbedDocks | QMainWindow::ForceTabbedDocks);
    setTabPosition(Qt::TopDockWidgetArea, QTabWidget::North);
    setTabShape(QTabWidget::Triangular);

    // The window is drawn once, when all its pages stand, not once for every
    // page set up beside the one before and then put behind its tab.
    setUpdatesEnabled(false);
    m_allInitPageCount = pageList.length();
    m_currentInitPageCount = 0;
    qCDebug(lcFramework) << "pageList.length()" << pageList.length();

    if (QMenuBar *bar = menuWidget() ? qobject_cast<QMenuBar *>(menuWidget()) : nullptr) {
        setMenuBar(nullptr);
        delete bar;
    }

    const QFont font("Arial", -1, -1, false);
    auto *viewMenu = new QMenu("View", this);
    viewMenu->setFont(font);

    QStringList errors;
    CAutoBindingDataModelDockWidget *previous = nullptr;
    for (const QString &name : qAsConst(pageList)) {
        const QByteArray pointerType = (name + "*").toLatin1();
        qCDebug(lcFramework) << "idPageName: " << pointerType;

        const int type = QMetaType::type(pointerType.constData());
        if (type == QMetaType::UnknownType) {
            errors << name + ": unknown type";
            qCDebug(lcFramework) << "InitPage: unknown type";
            continue;
        }
        const QMetaObject *metaObject = QMetaType::metaObjectForType(type);
        if (!metaObject) {
            errors << name + ": cannot get its meta object";
            qCDebug(lcFramework) << "InitPage: cannot get the meta object of" << name;
            continue;
        }
        auto *page = qobject_cast<CAutoBindingDataModelDockWidget *>(
            metaObject->newInstance(Q_ARG(QWidget *, this)));
        if (!page) {
            errors << name + ": cannot new Instance";
            qCDebug(lcFramework) << "InitPage: cannot new Instance.";
            continue;
        }
        qCDebug(lcFramework) << "idPageName: " << name << "Done" << page->windowTitle();

        viewMenu->addAction(page->windowTitle());
        connect(page, &CAutoBindingDataModelDockWidget::Signal_UpdateStatus, this,
                &CAutoBindingDataModelForm::Slot_UpdateStatusbar);

        QEventLoop loop;
        connect(page, &CAutoBindingDataModelDockWidget::Signal_InitDone, this,
                &CAutoBindingDataModelForm::Slot_InitDone);
        connect(page, &CAutoBindingDataModelDockWidget::Signal_InitDone, &loop, &QEventLoop::quit);
        connect(page, &CAutoBindingDataModelDockWidget::Signal_PluginIsBusy, this,
                &CAutoBindingDataModelForm::Signal_PluginIsBusy);
        connect(page, &CAutoBindingDataModelDockWidget::Signal_UpdateProgress, this,
                &CAutoBindingDataModelForm::Slot_UpdateProgress);
        addDockWidget(Qt::TopDockWidgetArea, page);
        loop.exec();

        if (previous)
            tabifyDockWidget(previous, page);
        previous = page;
    }

    setEnabled(true);
    setUpdatesEnabled(true);

    if (m_allInitPageCount == 0) {
        delete viewMenu;
        Slot_UpdateStatusbar("Init failed.");
        CMessageBoxMan box;
        box.ShowMessage(CMessageBoxMan::KIND_WARNING, windowTitle(), "Without any RF page init flow.", QString(),
                        QString(), -1);
        return;
    }

    connect(viewMenu, &QMenu::triggered, this, &CAutoBindingDataModelForm::SelectPages);
    delete m_viewMenu;
    m_viewMenu = viewMenu;

    for (QTabBar *tabBar : findChildren<QTabBar *>()) {
        tabBar->setElideMode(Qt::ElideNone);
        tabBar->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(tabBar, &QWidget::customContextMenuRequested, this, &CAutoBindingDataModelForm::ShowContextMenu,
                Qt::UniqueConnection);
    }

    if (!errors.isEmpty()) {
        CMessageBoxMan box;
        box.ShowMessage(CMessageBoxMan::KIND_ERROR, windowTitle(), "There are some page failed in init flow",
                        errors.join('\n'), QString(), -1);
    }

    for (QDockWidget *dock : findChildren<QDockWidget *>()) {
        dock->setContextMenuPolicy(Qt::CustomContextMenu);
        dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
        connect(dock, &QDockWidget::visibilityChanged, this, &CAutoBindingDataModelForm::Slot_DockWidgetsTabChange,
                Qt::UniqueConnection);
        connect(dock, &QWidget::customContextMenuRequested, this, &CAutoBindingDataModelForm::ShowContextMenu,
                Qt::UniqueConnection);
    }

    if (previous)
        previous->raise();
    Slot_UpdateStatusbar("Init done.");
}

void CAutoBindingDataModelForm::Slot_UpdateProgress(int finished, int total)
{
    if (!m_progress) {
        m_progress = new QProgressBar(this);
        m_progress->setObjectName("operationProgress");
        m_progress->setFormat("%v/%m items");
        m_progress->setMaximumWidth(160);
        statusBar()->addPermanentWidget(m_progress);
    }
    m_progress->setRange(0, qMax(total, 1));
    m_progress->setValue(qBound(0, finished, total));
    m_progress->setVisible(finished < total);
}

void CAutoBindingDataModelForm::Slot_InitDone()
{
    ++m_currentInitPageCount;
    qCDebug(lcFramework) << windowTitle() << " Slot_InitDone() m_allInitPageCount: " << m_allInitPageCount
                         << " m_currentInitPageCount" << m_currentInitPageCount;
}

void CAutoBindingDataModelForm::ShowContextMenu(const QPoint &pos)
{
    auto *origin = qobject_cast<QWidget *>(sender());
    if (!m_viewMenu || m_viewMenu->isEmpty() || !origin)
        return;
    m_viewMenu->exec(origin->mapToGlobal(pos));
}

void CAutoBindingDataModelForm::SelectPages(QAction *page)
{
    for (QDockWidget *dock : findChildren<QDockWidget *>()) {
        if (dock->windowTitle() == page->text())
            dock->raise();
    }
}

void CAutoBindingDataModelForm::Slot_DockWidgetsTabChange(bool value)
{
    auto *origin = qobject_cast<QDockWidget *>(sender());
    if (!origin || !value)
        return;
    qCDebug(lcFramework) << origin->windowTitle() << " Slot_DockWidgetsTabChange() from " << windowTitle();
    for (CAutoBindingDataModelDockWidget *page : Pages()) {
        page->Slot_TriggerStopTest();
        page->setEnabled(page == origin || page->isFloating());
    }
}

void CAutoBindingDataModelForm::closeEvent(QCloseEvent *event)
{
    Q_UNUSED(event);
    for (QDockWidget *dock : findChildren<QDockWidget *>()) {
        if (dock->isFloating())
            dock->setFloating(false);
    }
}

void CAutoBindingDataModelForm::RemoveAllPages()
{
    for (QDockWidget *dock : findChildren<QDockWidget *>()) {
        removeDockWidget(dock);
        delete dock;
    }
}
