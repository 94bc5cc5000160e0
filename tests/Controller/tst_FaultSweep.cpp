// Every target call of every movement of every item, and of every radio
// test, made to fail in turn: nothing crashes or hangs, the result names the
// failure, the target is left usable (no integrity scope open, the next
// movement works), and no NVRAM record is torn: each record a download
// touches holds either all of its old bytes or all of its new ones.
//
// A call is failed by position: the N-th target call of the run, for N from
// 1 to the number of calls the run makes without a fault. In CI the long
// runs are sampled; RADBENCH_FULL_SWEEP=1 fails every position.

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include "FaultPositions.h"
#include "GeneralCore.h"
#include "RadioSession.h"
#include "TIniFile.h"
#include "TavoSimControl.h"
#include "TdscdmaCore.h"
#include "TestFiles.h"

namespace {

struct SRecord {
    QString lid;
    int number;
};

struct SOutcome {
    bool ended = false;
    SEachItemOperationResult result;
};

// Runs the event loop until `ended` holds, woken by the answers themselves
// (a polling wait would cost more than most runs): a handler that ends
// the wait names the receiver. False after 20 s.
bool Await(const bool &ended, QObject &receiver)
{
    if (ended)
        return true;
    QEventLoop loop;
    QObject::connect(&receiver, &QObject::objectNameChanged, &loop, &QEventLoop::quit);
    QTimer::singleShot(20000, &loop, &QEventLoop::quit);
    loop.exec();
    return ended;
}

IRfCoreCalDataOperation *ControllerOf(const QString &item)
{
    return CTdscdmaCore::GetInstance()->GetSupportItem().contains(item)
               ? static_cast<IRfCoreCalDataOperation *>(CTdscdmaCore::GetInstance())
               : CGeneralCore::GetInstance();
}

// One movement of one item, waited for (on a queued answer).
SOutcome Move(const QString &item, ECalDataMovement movement, TIniFile *file)
{
    IRfCoreCalDataOperation *controller = ControllerOf(item);
    QObject receiver;
    SOutcome outcome;
    const auto take = [&outcome, &receiver](bool, QVector<SEachItemOperationResult> results) {
        outcome.result = results.value(0);
        outcome.ended = true;
        receiver.setObjectName("ended");
    };
    using Done = void (IRfCoreCalDataOperation::*)(bool, QVector<SEachItemOperationResult>);
    const Done done[] = {&IRfCoreCalDataOperation::Signal_UploadFromFlashDone,
                         &IRfCoreCalDataOperation::Signal_DownloadToFlashDone,
                         &IRfCoreCalDataOperation::Signal_LoadFromFileDone,
                         &IRfCoreCalDataOperation::Signal_SaveToFileDone};
    QObject::connect(controller, done[int(movement)], &receiver, take);
    switch (movement) {
    case ECalDataMovement::UploadFromFlash:
        controller->UploadFromFlash({item});
        break;
    case ECalDataMovement::DownloadToFlash:
        controller->DownloadToFlash({item});
        break;
    case ECalDataMovement::LoadFromFile:
        controller->LoadFromFile(file, {item});
        break;
    case ECalDataMovement::SaveToFile:
        controller->SaveToFile(file, {item});
        break;
    }
    if (!Await(outcome.ended, receiver))
        qWarning("no end of %s", qPrintable(item));
    return outcome;
}

// One radio test with its page's request as the page first shows it.
SOutcome Test(const QString &item)
{
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    QJsonObject request;
    QString error;
    CRadioSession().BuildRequest(item, {}, request, error);
    QObject receiver;
    SOutcome outcome;
    QObject::connect(core, &CTdscdmaCore::Signal_TestDone, &receiver,
                     [&outcome, &receiver](SEachItemOperationResult result, std::string) {
                         outcome.result = result;
                         outcome.ended = true;
                         receiver.setObjectName("ended");
                     });
    core->TestStart(item, QJsonDocument(request).toJson(QJsonDocument::Compact).toStdString());
    if (!Await(outcome.ended, receiver))
        qWarning("no end of the test %s", qPrintable(item));
    return outcome;
}

// Profile and its database afresh, and the controllers' knowledge of the target forgotten.
bool Fresh(const QString &profile)
{
    if (!TavoSim::LoadProfile(profile))
        return false;
    TavoSim::LoadDatabase();
    CTdscdmaCore::GetInstance()->ResetCapability();
    CGeneralCore::GetInstance()->ResetCapability();
    return true;
}

int g_runs = 0;
int g_failedCalls = 0;

} // namespace

class TestFaultSweep : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    // A file of every item's data as another target of `profile` holds them.
    QString NewData(const QString &profile)
    {
        const QString path = m_dir.filePath(profile + "-new.ini");
        if (QFile::exists(path))
            return path;
        // The profile's own target with other TPC curves (layer 1's store and
        // the NVRAM record), another path loss and another temperature table.
        const QJsonObject curves = QJsonDocument::fromJson(TestFiles::Read(TESTS_DIR "/View/faulty-curves.json"))
                                       .object()["nvram"]
                                       .toObject()["records"]
                                       .toObject();
        QJsonObject records = curves;
        records.insert("NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID", curves["TL1_TPC_TXDAC_BAND0"]);
        records.insert("NVRAM_EF_AST_TL1_TEMP_DAC_LID",
                       QJsonObject{{"adc", QJsonArray{3100, 3000, 2900, 2800, 2700, 2600, 2500, 2400}}});
        if (!TavoSim::LoadProfile(profile) ||
            !TavoSim::PatchProfile({{"nvram", QJsonObject{{"records", records}}}}))
            return QString();
        TavoSim::LoadDatabase();
        CTdscdmaCore::GetInstance()->ResetCapability();
        CGeneralCore::GetInstance()->ResetCapability();
        TIniFile file(path);
        const QVector<IRfCoreCalDataOperation *> controllers{CTdscdmaCore::GetInstance(), CGeneralCore::GetInstance()};
        for (IRfCoreCalDataOperation *controller : controllers) {
            for (const QString &item : controller->GetSupportItem()) {
                if (Move(item, ECalDataMovement::UploadFromFlash, nullptr).result.IsSuccess())
                    Move(item, ECalDataMovement::SaveToFile, &file);
            }
        }
        return file.Save() ? path : QString();
    }

    // The records a download of `item` writes, found by keeping the NVRAM
    // in a file of its own during a download without faults.
    QVector<SRecord> Touched(const QString &profile, const QString &item, const QString &newData)
    {
        const QString kept = m_dir.filePath(QString("touched-%1.json").arg(++m_kept));
        if (!Fresh(profile) || !TavoSim::SetNvramFile(kept))
            return {};
        TIniFile file(newData);
        Move(item, ECalDataMovement::LoadFromFile, &file);
        Move(item, ECalDataMovement::DownloadToFlash, nullptr);
        TavoSim::SetNvramFile(QString());
        QVector<SRecord> records;
        const QJsonObject byLid = QJsonDocument::fromJson(TestFiles::Read(kept)).object()["records"].toObject();
        for (auto lid = byLid.begin(); lid != byLid.end(); ++lid) {
            for (const QString &number : lid.value().toObject().keys())
                records.append({lid.key(), number.toInt()});
        }
        return records;
    }
    int m_kept = 0;

    static QList<QByteArray> Read(const QVector<SRecord> &records)
    {
        QList<QByteArray> bytes;
        for (const SRecord &record : records)
            bytes << TavoSim::NvramRecord(record.lid, record.number);
        return bytes;
    }

private slots:
    void cleanupTestCase()
    {
        TavoSim::Reset();
        qInfo("fault sweep: %d runs, %d target calls failed", g_runs, g_failedCalls);
    }

    void movements_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("item");
        QTest::addColumn<int>("movement");
        for (const QString profile : {"default", "legacy-v1", "modern-l1"}) {
            QVERIFY(Fresh(profile));
            QStringList items = CTdscdmaCore::GetInstance()->GetSupportItem() + CGeneralCore::GetInstance()->GetSupportItem();
            for (const QString &item : items) {
                for (const char *movement : {"upload", "download", "import", "export"}) {
                    const int index = QStringList{"upload", "download", "import", "export"}.indexOf(movement);
                    QTest::addRow("%s %s %s", qPrintable(profile), qPrintable(item), movement)
                        << profile << item << index;
                }
            }
        }
        TavoSim::Reset();
    }
    void movements()
    {
        QFETCH(QString, profile);
        QFETCH(QString, item);
        QFETCH(int, movement);
        const auto kind = ECalDataMovement(movement);
        const QString newData = NewData(profile);
        QVERIFY(!newData.isEmpty());
        const QVector<SRecord> touched =
            kind == ECalDataMovement::DownloadToFlash ? Touched(profile, item, newData) : QVector<SRecord>();

        // The run without a fault: its calls, and the records before and after.
        QList<QByteArray> before, after;
        const auto prepare = [&]() -> bool {
            if (!Fresh(profile))
                return false;
            if (kind == ECalDataMovement::DownloadToFlash || kind == ECalDataMovement::SaveToFile) {
                TIniFile file(newData);
                if (!Move(item, ECalDataMovement::LoadFromFile, &file).result.IsSuccess())
                    return false;
            }
            TavoSim::ClearCallLog();
            return true;
        };
        const QString exported = m_dir.filePath("export.ini");
        const auto run = [&]() {
            QFile::remove(exported);
            TIniFile file(kind == ECalDataMovement::LoadFromFile ? newData : exported);
            const SOutcome outcome = Move(item, kind, &file);
            if (kind == ECalDataMovement::SaveToFile)
                file.Save();
            return outcome;
        };
        QVERIFY(prepare());
        before = Read(touched);
        const SOutcome clean = run();
        QVERIFY2(clean.result.IsSuccess(), qPrintable(clean.result.errorMessage));
        const int calls = TavoSim::CallLog().size();
        after = Read(touched);

        for (int n : FaultPositions(calls)) {
            QVERIFY(prepare());
            TavoSim::InjectFault("*", TAVO_ERR_FAILED, 1, n - 1);
            const SOutcome outcome = run();
            const QByteArray where = QString("call %1 of %2").arg(n).arg(calls).toUtf8();
            ++g_runs;
            g_failedCalls += TavoSim::CallLog().size() >= n ? 1 : 0;
            QVERIFY2(outcome.ended, where);
            const int code = outcome.result.errorCode;
            if (code != ERROR_CODE_SUCCESS) {
                // A row of the error table, told with its text or the item's.
                QCOMPARE(GetErrorCodeInfo(code).code, code);
                QVERIFY2(!outcome.result.errorMessage.isEmpty() || !GetErrorCodeInfo(code).message.isEmpty(), where);
            }
            // A scope stays open only when its close failed: the stop, or the
            // question whether the target has it (the scope asks anew when it closes).
            const QVector<TavoSim::CallRecord> log = TavoSim::CallLog();
            const bool stopFailed = log.size() >= n && (log[n - 1].name + log[n - 1].args.join(',')).contains("StopRec");
            QVERIFY2(stopFailed || !TavoSim::IsCalDataIntegrityOpen(), where + " " + log.value(n - 1).name.toUtf8());
            const QList<QByteArray> now = Read(touched);
            for (int r = 0; r < touched.size(); ++r)
                QVERIFY2(now[r] == before[r] || now[r] == after[r],
                         where + " tore " + touched[r].lid.toUtf8() + " " + QByteArray::number(touched[r].number));
            TavoSim::ClearFaults();
        }
        // And the target still serves the movement.
        QVERIFY(prepare());
        QVERIFY(run().result.IsSuccess());
    }

    void radioTests_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("item");
        for (const QString profile : {"default", "legacy-v1"}) {
            QVERIFY(Fresh(profile));
            for (const QString &item : CTdscdmaCore::GetInstance()->GetTestItems())
                QTest::addRow("%s %s", qPrintable(profile), qPrintable(item)) << profile << item;
        }
        TavoSim::Reset();
    }
    void radioTests()
    {
        QFETCH(QString, profile);
        QFETCH(QString, item);
        QVERIFY(Fresh(profile));
        QVERIFY(Arm());
        TavoSim::ClearCallLog();
        const SOutcome clean = Test(item);
        QVERIFY2(clean.result.IsSuccess(), qPrintable(clean.result.errorMessage));
        const int calls = TavoSim::CallLog().size();
        QVERIFY(Stop(item));
        for (int n : FaultPositions(calls)) {
            TavoSim::ClearCallLog();
            TavoSim::InjectFault("*", TAVO_ERR_FAILED, 1, n - 1);
            const SOutcome outcome = Test(item);
            ++g_runs;
            ++g_failedCalls;
            TavoSim::ClearFaults();
            QVERIFY(outcome.ended);
            QCOMPARE(GetErrorCodeInfo(outcome.result.errorCode).code, outcome.result.errorCode);
            // Stopped, the target runs the test again.
            QVERIFY(Stop(item));
            QVERIFY(Test(item).result.IsSuccess());
            QVERIFY(Stop(item));
        }
    }

private:
    // Arms the target as the window does.
    static bool Arm()
    {
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        core->GetRatSupportStatus();
        QObject receiver;
        bool armed = false, ended = false;
        QObject::connect(core, &CTdscdmaCore::Signal_SetUbinDone, &receiver,
                         [&](SEachItemOperationResult result) {
                             armed = result.IsSuccess();
                             ended = true;
                             receiver.setObjectName("ended");
                         });
        core->SetUbin(true);
        return Await(ended, receiver) && armed;
    }
    // The stop of a test that holds the target; true for the others.
    static bool Stop(const QString &item)
    {
        CTdscdmaCore *core = CTdscdmaCore::GetInstance();
        if (core->GetTestKind(item) != CPageItemDescriptor::ETestKind::Held)
            return true;
        QObject receiver;
        bool stopped = false, ended = false;
        QObject::connect(core, &CTdscdmaCore::Signal_TestStopDone, &receiver, [&](SEachItemOperationResult result) {
            stopped = result.IsSuccess();
            ended = true;
            receiver.setObjectName("ended");
        });
        core->TestStopByItem(item, core->GetDataModel(item));
        return Await(ended, receiver) && stopped;
    }
};

QTEST_GUILESS_MAIN(TestFaultSweep)
#include "tst_FaultSweep.moc"
