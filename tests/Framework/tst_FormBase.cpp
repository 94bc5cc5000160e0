#include <QAction>
#include <QMenu>
#include <QStatusBar>
#include <QTabBar>
#include <QtTest>

#include "AutoBindingDataModelForm.h"
#include "ModalBoxCatcher.h"
#include "TestLog.h"
#include "TestPage.h"

// Pages the form builds by class name; each counts the stops it was asked for.
class StopCountingPage : public TestPage {
    Q_OBJECT
public:
    Q_INVOKABLE explicit StopCountingPage(QWidget *parent = nullptr)
    {
        setParent(parent);
        setWindowTitle(QString("Page %1").arg(++s_made));
    }
    void Slot_TriggerStopTest() override { ++stops; }
    int stops = 0;
    static int s_made;
};
int StopCountingPage::s_made = 0;

class OtherPage : public StopCountingPage {
    Q_OBJECT
public:
    Q_INVOKABLE explicit OtherPage(QWidget *parent = nullptr) : StopCountingPage(parent) {}
};

class TestForm : public CAutoBindingDataModelForm {
    Q_OBJECT
public:
    TestForm()
    {
        setWindowTitle("Form");
        setStatusBar(new QStatusBar);
    }
    bool CheckSupport(QString &) override { return true; }
    bool IsNeedDb() override { return false; }
    void ResetForm() override { RemoveAllPages(); }
    void Slot_GetInitPageListDone(QStringList pageList) override { InitPage(pageList); }
    void Slot_UpdateStatusbar(QString str) override { statusBar()->showMessage(str); }
    QString Status() const { return statusBar()->currentMessage(); }
    QMenu *ViewMenu() const { return findChild<QMenu *>(); }
};

class TestFormBase : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        TestLog::MuteOffscreenPlatformNotes();
        qRegisterMetaType<StopCountingPage *>("StopCountingPage*");
        qRegisterMetaType<OtherPage *>("OtherPage*");
    }
    void init() { StopCountingPage::s_made = 0; }

    void pagesFromTheList_data()
    {
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<int>("pages");
        QTest::addColumn<int>("tabs");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("boxText");
        QTest::addColumn<QString>("boxInformative");
        QTest::newRow("two pages, one stack") << QStringList{"StopCountingPage", "OtherPage"} << 2 << 2 << "Init done."
                                              << "" << "";
        QTest::newRow("a single page forms no tab") << QStringList{"OtherPage"} << 1 << 0 << "Init done." << "" << "";
        QTest::newRow("unknown names are told, the others built")
            << QStringList{"NoSuchPage", "StopCountingPage", "QObject"} << 1 << 0 << "Init done."
            << "There are some page failed in init flow" << "NoSuchPage: unknown type\nQObject: cannot new Instance";
        QTest::newRow("empty list") << QStringList{} << 0 << 0 << "Init failed." << "Without any RF page init flow."
                                    << "";
    }
    void pagesFromTheList()
    {
        QFETCH(QStringList, list);
        QFETCH(int, pages);
        QFETCH(QString, boxText);
        TestForm form;
        form.show();
        form.setEnabled(false);
        ModalBoxCatcher boxes;
        form.InitPage(list);
        QVERIFY(form.isEnabled());
        QCOMPARE(form.Pages().size(), pages);
        int tabCount = 0;
        for (QTabBar *bar : form.findChildren<QTabBar *>())
            tabCount += bar->count();
        QTEST(tabCount, "tabs");
        QTEST(form.Status(), "status");
        QCOMPARE(boxes.Count(), boxText.isEmpty() ? 0 : 1);
        if (!boxText.isEmpty()) {
            QCOMPARE(boxes.Boxes()[0].title, QString("Form"));
            QCOMPARE(boxes.Boxes()[0].text, CMessageBoxMan::WrapText(boxText));
            QTEST(boxes.Boxes()[0].informativeText, "boxInformative");
        }
        if (pages > 0)
            QCOMPARE(form.ViewMenu()->actions().size(), pages);
    }

    // Turning to a page, by its tab or from the View menu, stops every page's
    // test and leaves only that page and the floating ones enabled.
    void turningToAPageStopsAndDisables()
    {
        TestForm form;
        form.show();
        form.InitPage({"StopCountingPage", "OtherPage", "StopCountingPage"});
        const auto pages = form.findChildren<StopCountingPage *>();
        QCOMPARE(pages.size(), 3);
        pages[2]->setFloating(true);
        for (StopCountingPage *page : pages)
            page->stops = 0;

        pages[0]->raise();
        QTRY_VERIFY(pages[0]->isEnabled());
        QVERIFY(!pages[1]->isEnabled());
        QVERIFY(pages[2]->isEnabled());
        for (StopCountingPage *page : pages)
            QVERIFY(page->stops >= 1);

        for (QAction *action : form.ViewMenu()->actions()) {
            if (action->text() == pages[1]->windowTitle())
                action->trigger();
        }
        QTRY_VERIFY(pages[1]->isEnabled());
        QVERIFY(!pages[0]->isEnabled());
    }
};

QTEST_MAIN(TestFormBase)
#include "tst_FormBase.moc"
