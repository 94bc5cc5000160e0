#include <QDockWidget>
#include <QLabel>
#include <QScopeGuard>
#include <QStatusBar>
#include <QTabBar>
#include <QtTest>

#include "AutoBindingDataModelDockWidget.h"
#include "FakeItems.h"
#include "MessageBoxMan.h"
#include "ModalBoxCatcher.h"
#include "PageRegistration.h"
#include "SimScope.h"
#include "TdscdmaCore.h"
#include "TdscdmaRadbenchCore.h"
#include "TestLog.h"
#include "TdscdmaRadbenchForm.h"

// The page of the fake page item: everything a new page needs besides its
// descriptor. Its model comes by the generic path of the view controller.
class CFakePageDockWidget : public CAutoBindingDataModelDockWidget {
    Q_OBJECT
public:
    Q_INVOKABLE explicit CFakePageDockWidget(QWidget *parent = nullptr)
        : CAutoBindingDataModelDockWidget(parent), m_viewController(new CTdscdmaRadbenchCore(this))
    {
        setWindowTitle("Fake Page");
        auto *value = new QLabel(this);
        value->setObjectName("cmdIf_response_group1_memberProperty_regValue");
        setWidget(value);
    }

    QWidget *GetWidgetRoot() override { return this; }
    int IsCalDataPage() override { return 0; }
    void RequestDataModel() override
    {
        connect(m_viewController, &CTdscdmaRadbenchCore::Signal_GetDataModelDone, this,
                &CFakePageDockWidget::Slot_GetDataModelDone);
        m_viewController->GetDataModel(CFakePageItem::kId);
    }
    void DisableOperation() override {}
    void EnableOperation() override {}

public slots:
    void Slot_TriggerStopTest() override {}

private:
    CTdscdmaRadbenchCore *m_viewController;
};

RADBENCH_REGISTER_PAGE(CFakePageDockWidget)

namespace {

QString StatusOf(CTdscdmaRadbenchForm &form) { return form.findChild<QStatusBar *>()->currentMessage(); }

bool IsReady(CTdscdmaRadbenchForm &form, int pages)
{
    return form.isEnabled() && form.Pages().size() == pages && StatusOf(form) == "Init done.";
}

QStringList UbinModes()
{
    QStringList modes;
    for (const TavoSim::CallRecord &call : TavoSim::CallLog()) {
        if (call.name == "AST_UBIN_MODE_SETUP_r")
            modes << call.args.join(',');
    }
    return modes;
}

} // namespace

class TestTdscdmaRadbenchForm : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        // Pages whose models the plug-in does not carry yet report it on the
        // critical channel; these tests look at the window's flows.
        TestLog::SetChannel(QtCriticalMsg, false);
        TestLog::MuteOffscreenPlatformNotes();
    }
    void init()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    void showArmsTheTargetAndBuildsThePagesOnce()
    {
        SimScope sim("default");
        CTdscdmaRadbenchForm form;
        form.show();
        QVERIFY(!form.isEnabled());
        QTRY_VERIFY(IsReady(form, 9));
        QCOMPARE(UbinModes(), QStringList{"mode=1"});

        // Pages stand in the order of the page list, as one stack of tabs.
        const QStringList pageList = CTdscdmaCore::GetInstance()->GetInitPageList();
        auto *tabs = form.findChild<QTabBar *>();
        QCOMPARE(tabs->count(), pageList.size());
        for (int i = 0; i < tabs->count(); ++i)
            QCOMPARE(tabs->tabText(i), form.findChild<QDockWidget *>(pageList[i])->windowTitle());
        // Each page got its model by its view controller's fetch of its own.
        const auto pages = form.Pages();
        QTRY_VERIFY(std::all_of(pages.begin(), pages.end(), [](auto *page) { return page->IsModelReady(); }));

        // A later show only arms the target again.
        form.hide();
        form.show();
        QTRY_COMPARE(StatusOf(form), QString("Init Ubin and reset status successfully."));
        QVERIFY(form.isEnabled());
        QCOMPARE(form.Pages(), pages);
        QCOMPARE(UbinModes(), (QStringList{"mode=1", "mode=1"}));
        QCOMPARE(TavoSim::CallCount("AST_CAL_tl1_reset_r"), 2);
        form.hide();
    }

    // A page item added as a descriptor, with its page, shows in the window
    // without a change anywhere else.
    void addedPageItemBringsItsPage()
    {
        SimScope sim("default");
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        core->AddPageItem(std::make_unique<CFakePageItem>());
        auto restore = qScopeGuard([core] { core->TakePageItem(CFakePageItem::kId); });
        CTdscdmaRadbenchForm form;
        form.show();
        QTRY_VERIFY(IsReady(form, 10));
        auto *page = form.findChild<CFakePageDockWidget *>();
        QVERIFY(page && page->IsModelReady());
        QCOMPARE(page->Model().value("modelName").toString(), QString("BBReg"));
        auto *tabs = form.findChild<QTabBar *>();
        QCOMPARE(tabs->tabText(tabs->count() - 1), QString("Fake Page"));
        form.hide();
    }

    void armingFailureShowsTheErrorAndBuildsNothing_data()
    {
        QTest::addColumn<QString>("failingCall");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("informativeText");
        QTest::newRow("Ubin refused: the table's advice")
            << "AST_UBIN_MODE_SETUP_r" << "Ubin init failed."
            << "Please recheck SW load stability or connection status.";
        QTest::newRow("layer 1 reset refused: the result's own message")
            << "AST_CAL_tl1_reset_r" << "Tavo command execute failed." << "TDSCDMA reset command failed.";
    }
    void armingFailureShowsTheErrorAndBuildsNothing()
    {
        QFETCH(QString, failingCall);
        QFETCH(QString, text);
        QFETCH(QString, informativeText);
        SimScope sim("default");
        TavoSim::FailAlways(failingCall);
        CTdscdmaRadbenchForm form;
        ModalBoxCatcher boxes;
        form.show();
        QVERIFY(boxes.WaitFor(1));
        QCOMPARE(boxes.Boxes()[0].text, CMessageBoxMan::WrapText(text));
        QCOMPARE(boxes.Boxes()[0].informativeText, informativeText);
        QCOMPARE(StatusOf(form), QString("Init failed."));
        QVERIFY(form.isEnabled());
        QTest::qWait(50);
        QVERIFY(form.Pages().isEmpty());

        // The next show, with the target well again, starts from the beginning.
        TavoSim::ClearFaults();
        form.hide();
        form.show();
        QTRY_VERIFY(IsReady(form, 9));
        QCOMPARE(boxes.Count(), 1);
        form.hide();
    }

    void closeReleasesTheTarget_data()
    {
        QTest::addColumn<bool>("targetFails");
        QTest::addColumn<bool>("nullEvent");
        QTest::addColumn<QString>("status");
        QTest::newRow("close") << false << false << "Deinit Ubin flow successfuly.";
        QTest::newRow("close event of nobody") << false << true << "Deinit Ubin flow successfuly.";
        QTest::newRow("close, target refuses") << true << false << "Deinit Ubin failed.";
    }
    void closeReleasesTheTarget()
    {
        QFETCH(bool, targetFails);
        QFETCH(bool, nullEvent);
        QFETCH(QString, status);
        SimScope sim("default");
        CTdscdmaRadbenchForm form;
        form.show();
        QTRY_VERIFY(IsReady(form, 9));
        form.Pages().last()->setFloating(true);
        if (targetFails)
            TavoSim::FailAlways("AST_UBIN_MODE_SETUP_r");
        TavoSim::SetLatency("AST_UBIN_MODE_SETUP_r", 30);

        ModalBoxCatcher boxes;
        if (nullEvent)
            form.closeEvent(nullptr);
        else
            QVERIFY(form.close());

        // The close waited for the target.
        QCOMPARE(UbinModes().last(), QString("mode=0"));
        QCOMPARE(StatusOf(form), status);
        QVERIFY(form.isEnabled());
        QVERIFY(!form.Pages().last()->isFloating());
        QCOMPARE(TavoSim::IsUbinEnabled(), targetFails);
        if (!nullEvent)
            QVERIFY(!form.isVisible());
        QCOMPARE(boxes.Count(), targetFails ? 1 : 0);
        form.hide();
    }
};

QTEST_MAIN(TestTdscdmaRadbenchForm)
#include "tst_TdscdmaRadbenchForm.moc"
