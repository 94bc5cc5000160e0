#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

#include "FakeItems.h"
#include "SimScope.h"
#include "TdscdmaCore.h"
#include "TdscdmaRadbenchCore.h"
#include "TestFiles.h"

class TestTdscdmaRadbenchCore : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { RegisterOperationMetaTypes(); }
    void init()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    // An answer comes later, on the user interface thread, to the view
    // controller whose run it ends; one that reached the wrong view controller
    // came before the right one's.
    void eachViewControllerHearsItsOwnRunLater()
    {
        SimScope sim;
        TavoSim::SetLatency("AST_CAL_tl1_reset_r", 50);
        CTdscdmaRadbenchCore first;
        CTdscdmaRadbenchCore second;
        QThread *deliveredOn = nullptr;
        connect(&first, &CTdscdmaRadbenchCore::Signal_SetUbinDone, this,
                [&deliveredOn] { deliveredOn = QThread::currentThread(); }, Qt::DirectConnection);
        QSignalSpy firstUbin(&first, &CTdscdmaRadbenchCore::Signal_SetUbinDone);
        QSignalSpy secondUbin(&second, &CTdscdmaRadbenchCore::Signal_SetUbinDone);
        QSignalSpy firstTest(&first, &CTdscdmaRadbenchCore::Signal_ContTxTestDone);
        QSignalSpy secondTest(&second, &CTdscdmaRadbenchCore::Signal_ContTxTestDone);

        first.SetUbin(true);
        QCOMPARE(deliveredOn, nullptr); // the target has not been asked to reset yet
        QVERIFY(firstUbin.wait());
        QCOMPARE(deliveredOn, QCoreApplication::instance()->thread());
        second.ContTxTest("{}");
        QVERIFY(secondTest.wait());
        second.SetUbin(false);
        QVERIFY(secondUbin.wait());
        QCOMPARE(firstUbin.count(), 1);
        QCOMPARE(secondUbin.count(), 1);
        QCOMPARE(firstTest.count(), 0);
        QCOMPARE(secondTest.count(), 1);
    }

    // A calibration item added as a descriptor moves through the one generic
    // path: a save stores the page's values in the item and then the file on
    // disk, a download stores them and moves them, a load and an upload give
    // the page's model back filled from the item.
    void calibrationDataTravelsWithItsRun()
    {
        SimScope sim;
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        auto *item = new CFakeCalItem(100, "Fake Item");
        core->AddCalItem(std::unique_ptr<CCalItemDescriptor>(item));
        auto restore = qScopeGuard([core] { core->TakeCalItem(100); });
        QTemporaryDir folder;
        const QString path = folder.filePath("fake.ini");

        CTdscdmaRadbenchCore viewController;
        QSignalSpy done(&viewController, &CTdscdmaRadbenchCore::Signal_CalDataDone);
        const auto run = [&](ECalDataMovement movement, const char *model, const QString &file = QString()) {
            viewController.StartCalData(movement, 100, model, file);
            return done.wait() ? done.takeFirst() : QList<QVariant>();
        };

        QList<QVariant> answer = run(ECalDataMovement::SaveToFile, R"({"value":"42"})", path);
        QCOMPARE(answer.value(0).value<SEachItemOperationResult>().errorCode, 0);
        QCOMPARE(answer.value(2).toInt(), 100);
        QVERIFY(TestFiles::Read(path).contains("value = 42"));
        // A file that cannot be written fails the save, with its path.
        const QString unwritable = folder.filePath("missing/fake.ini");
        const auto failed = run(ECalDataMovement::SaveToFile, "{}", unwritable).value(0);
        QCOMPARE(failed.value<SEachItemOperationResult>().errorCode, 50);
        QCOMPARE(failed.value<SEachItemOperationResult>().errorMessage,
                 "Cannot write the file " + QDir::toNativeSeparators(unwritable));

        run(ECalDataMovement::DownloadToFlash, R"({"value":"7"})");
        QCOMPARE(item->object.value, QString("7"));

        answer = run(ECalDataMovement::LoadFromFile, R"({"band":"b"})", path);
        QCOMPARE(answer.value(1).value<std::string>(), std::string(R"({"band":"b","value":"42"})"));
        answer = run(ECalDataMovement::UploadFromFlash, R"({})");
        QCOMPARE(answer.value(1).value<std::string>(), std::string(R"({"value":"42"})"));
        QCOMPARE(item->object.calls, (QStringList{"write", "write", "download", "read", "upload"}));
    }
};

QTEST_GUILESS_MAIN(TestTdscdmaRadbenchCore)
#include "tst_TdscdmaRadbenchCore.moc"
