#include <QtTest>

#include "ErrorCodeInfo.h"
#include "ItemInfo.h"
#include "MessageBoxMan.h"
#include "ModalBoxCatcher.h"
#include "TestLog.h"

class TestResultPresentation : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { TestLog::MuteOffscreenPlatformNotes(); }

    void errorRowLookup_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("rowCode");
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("message");
        QTest::newRow("success") << 0 << 0 << 0 << "Operation is successful.";
        QTest::newRow("L1 status, trailing blank") << 203 << 203 << 2 << "L1 Status code != SUCCESS ";
        QTest::newRow("gap between rows") << 7 << 206 << 2 << "Run calibration library flow failed.";
        QTest::newRow("negative") << -1 << 206 << 2 << "Run calibration library flow failed.";
        QTest::newRow("past the end") << 207 << 206 << 2 << "Run calibration library flow failed.";
    }
    void errorRowLookup()
    {
        QFETCH(int, code);
        QFETCH(int, level);
        QFETCH(QString, message);
        const SErrorCodeInfo &row = GetErrorCodeInfo(code);
        QTEST(row.code, "rowCode");
        QCOMPARE(row.level, level);
        QCOMPARE(row.message, message);
    }

    void nameMapsLeaveTheEndMarkersOut()
    {
        QCOMPARE(BuildCalItemMap().size(), 5);
        QCOMPARE(BuildPageItemMap().size(), 9);
        QCOMPARE(BuildGeneralItemMap().size(), 6);
        QVERIFY(!BuildCalItemMap().contains("Error Tdscdma Cal data"));
        QVERIFY(!BuildGeneralItemMap().contains("Error General Cal data"));
        QCOMPARE(BuildGeneralItemMap().value("MMRF AFC"), 4);
        QCOMPARE(GetPageItemName(PAGE_ITEM_BB_REGISTER), QString("Baseband Register"));
    }

    void messageBoxKinds_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shownText");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("buttons");
        const QString wrapped = "<P><FONT COLOR='#000080'><FONT SIZE='4'>Done</FONT></FONT></P>";
        QTest::newRow("information") << 1 << "Done" << wrapped << int(QMessageBox::Information) << int(QMessageBox::Ok);
        QTest::newRow("warning") << 2 << "Done" << wrapped << int(QMessageBox::Warning) << int(QMessageBox::Close);
        QTest::newRow("warning with own rich text")
            << 3 << "<b>Done</b>" << "<b>Done</b>" << int(QMessageBox::Warning) << int(QMessageBox::Close);
        QTest::newRow("error") << 4 << "Done" << wrapped << int(QMessageBox::Critical) << int(QMessageBox::Close);
        // A box without buttons gets Qt's own OK, so that it can be closed at all.
        QTest::newRow("plain") << 9 << "Done" << wrapped << int(QMessageBox::NoIcon) << int(QMessageBox::Ok);
    }
    void messageBoxKinds()
    {
        QFETCH(int, kind);
        QFETCH(QString, text);
        QFETCH(int, icon);
        QFETCH(int, buttons);
        ModalBoxCatcher boxes;
        CMessageBoxMan().ShowMessage(kind, "Title", text, QString(), QString(), -1);
        QCOMPARE(boxes.Count(), 1);
        const ModalBoxCatcher::Box &box = boxes.Boxes()[0];
        QCOMPARE(box.title, QString("Title"));
        QTEST(box.text, "shownText");
        QCOMPARE(box.informativeText, QString());
        QCOMPARE(int(box.icon), icon);
        QCOMPARE(int(box.buttons), buttons);
    }

    void widthMakesTheBoxAtLeastThatWide()
    {
        ModalBoxCatcher boxes;
        CMessageBoxMan().ShowMessage(2, "Title", "Short", QString(), QString(), 600);
        CMessageBoxMan().ShowMessage(2, "Title", "Short", QString(), QString(), -1);
        QCOMPARE(boxes.Count(), 2);
        QVERIFY(boxes.Boxes()[0].width >= 600);
        QVERIFY(boxes.Boxes()[1].width < 600);
    }

    void failedResultPresentation_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("icon");
        QTest::addColumn<QString>("informativeText");
        QTest::newRow("warning level, table advice")
            << 51 << "" << int(QMessageBox::Warning)
            << "Please select the file that includes the data you want to operate.";
        QTest::newRow("error level, own message")
            << 3 << "TAVO_RESULT = timeout" << int(QMessageBox::Critical) << "TAVO_RESULT = timeout";
        QTest::newRow("level 0 that is no success") << 4 << "" << int(QMessageBox::Warning) << "";
    }
    void failedResultPresentation()
    {
        QFETCH(int, code);
        QFETCH(QString, message);
        QFETCH(int, icon);
        QFETCH(QString, informativeText);
        ModalBoxCatcher boxes;
        CMessageBoxMan().ShowResultMessage("AFC start failed", SEachItemOperationResult{"AFC", code, message});
        QCOMPARE(boxes.Count(), 1);
        QCOMPARE(boxes.Boxes()[0].title, QString("AFC start failed"));
        QCOMPARE(boxes.Boxes()[0].text, CMessageBoxMan::WrapText(GetErrorCodeInfo(code).message));
        QCOMPARE(int(boxes.Boxes()[0].icon), icon);
        QCOMPARE(boxes.Boxes()[0].informativeText, informativeText);
    }
};

QTEST_MAIN(TestResultPresentation)
#include "tst_ResultPresentation.moc"
