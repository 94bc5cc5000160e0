/* Faults, latencies, the call log, result texts and concurrent use of the
 * simulated target. */

#include <QElapsedTimer>
#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

#include "TargetAnswers.h"
#include "TavoSimControl.h"

using namespace TargetAnswers;

namespace {

const QString kReset = QStringLiteral("AST_CAL_tl1_reset_r");
const QString kUbin = QStringLiteral("AST_UBIN_MODE_SETUP_r");

TAVO_RESULT setUbin(uint16_t mode, int handle = 0, uint32_t timeoutMs = 10000)
{
    return AST_UBIN_MODE_SETUP_r(handle, timeoutMs, &mode);
}

} // namespace

class tst_SimControl : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(TavoSim::LoadProfile(QStringLiteral("default"))); }

    void faultSchedule_data()
    {
        QTest::addColumn<QList<int>>("faults"); /* {result, count, skip} per fault, in arming order */
        QTest::addColumn<QList<int>>("results"); /* of five calls */
        QTest::newRow("once") << QList<int>{1, 1, 0} << QList<int>{1, 0, 0, 0, 0};
        QTest::newRow("always") << QList<int>{2, -1, 0} << QList<int>{2, 2, 2, 2, 2};
        QTest::newRow("twice after one") << QList<int>{6, 2, 1} << QList<int>{0, 6, 6, 0, 0};
        QTest::newRow("count 0 arms nothing") << QList<int>{1, 0, 0} << QList<int>{0, 0, 0, 0, 0};
        QTest::newRow("two in arming order") << QList<int>{1, 1, 0, 6, 1, 0} << QList<int>{1, 6, 0, 0, 0};
        QTest::newRow("skip counts while another fires") << QList<int>{1, 2, 0, 6, 1, 1} << QList<int>{1, 1, 6, 0, 0};
        QTest::newRow("later fault waits for the first") << QList<int>{1, -1, 0, 6, 1, 0} << QList<int>{1, 1, 1, 1, 1};
    }
    void faultSchedule()
    {
        QFETCH(QList<int>, faults);
        QFETCH(QList<int>, results);
        for (int i = 0; i + 2 < faults.size(); i += 3)
            TavoSim::InjectFault(kReset, faults[i], faults[i + 1], faults[i + 2]);
        TavoSim::FailAlways(QStringLiteral("TAVO_NVRAM_SomeLaterCall_r")); /* other names do not interfere */
        QList<int> seen;
        for (int i = 0; i < results.size(); ++i)
            seen << AST_CAL_tl1_reset_r(0, 10000);
        QCOMPARE(seen, results);
    }

    /* A call that fails, however, leaves the target as it was; a fault is not
     * used up by a call that never reached the target. */
    void failureHasNoSideEffect_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("result");
        QTest::newRow("fault") << "fault" << int(TAVO_ERR_BUSY);
        QTest::newRow("latency beyond time-out") << "timeout" << int(TAVO_ERR_TIMEOUT);
        QTest::newRow("handle 1") << "handle" << int(TAVO_ERR_NOT_CONNECTED);
        QTest::newRow("mode 2") << "mode" << int(TAVO_ERR_INVALID_ARGUMENT);
        QTest::newRow("withheld") << "withheld" << int(TAVO_ERR_NOT_SUPPORTED);
    }
    void failureHasNoSideEffect()
    {
        QFETCH(QString, how);
        TAVO_RESULT result = -1;
        if (how == "fault") {
            TavoSim::FailOnce(kUbin, TAVO_ERR_BUSY);
            result = setUbin(1);
        } else if (how == "timeout") {
            TavoSim::SetLatency(kUbin, 200);
            QElapsedTimer timer;
            timer.start();
            result = setUbin(1, 0, 50);
            QVERIFY(timer.elapsed() >= 50);
            TavoSim::SetLatency(kUbin, 0);
        } else if (how == "handle") {
            TavoSim::FailOnce(kUbin);
            result = setUbin(1, 1);
            QCOMPARE(setUbin(1), TAVO_ERR_FAILED); /* the fault is still armed */
        } else if (how == "mode") {
            result = setUbin(2);
        } else if (how == "withheld") {
            QVERIFY(TavoSim::PatchProfile({{"commands", QJsonObject{{"withheld", QJsonArray{kUbin}}}}}));
            result = setUbin(1);
        }
        QTEST(int(result), "result");
        QVERIFY(!TavoSim::IsUbinEnabled());
        if (how == "withheld")
            return;
        QCOMPARE(setUbin(1), TAVO_OK);
        QVERIFY(TavoSim::IsUbinEnabled());
        QCOMPARE(setUbin(0), TAVO_OK);
        QVERIFY(!TavoSim::IsUbinEnabled());
    }

    /* Faults of the profile are armed by every load and reset; ClearFaults
     * disarms them too. */
    void profileFaults()
    {
        QVERIFY(TavoSim::LoadProfile("query-failure"));
        const Answer failed = fetch("multiRat");
        QCOMPARE(failed.result, TAVO_ERR_FAILED);
        QVERIFY(failed.untouched());
        QCOMPARE(fetch("multiRat").result, TAVO_ERR_FAILED);
        TavoSim::ClearFaults();
        QCOMPARE(fetch("multiRat").result, TAVO_OK);
        TavoSim::Reset();
        QCOMPARE(fetch("multiRat").result, TAVO_ERR_FAILED);
    }

    void resetRestoresPowerOn()
    {
        QCOMPARE(setUbin(1), TAVO_OK);
        TavoSim::LoadDatabase();
        TavoSim::FailAlways(kReset);
        TavoSim::SetLatency("*", 5000);
        TavoSim::SetResultText(TAVO_ERR_FAILED, "replaced");
        QVERIFY(TavoSim::IsDatabaseLoaded());

        TavoSim::Reset();
        QVERIFY(!TavoSim::IsUbinEnabled());
        QVERIFY(!TavoSim::IsDatabaseLoaded());
        QVERIFY(TavoSim::CallLog().isEmpty());
        QCOMPARE(TavoSim::CallCount(kUbin), 0);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(AST_CAL_tl1_reset_r(0, 1000), TAVO_OK); /* neither faulted nor timed out */
        QVERIFY(QByteArray(TAVO_GetResultText(TAVO_ERR_FAILED)).startsWith("TAVO_ERR_FAILED"));
        QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("default"));
    }

    /* "*" delays every call, a connection call without a time-out too. */
    void latencyOfEveryCall()
    {
        TavoSim::SetLatency("*", 200);
        QElapsedTimer timer;
        timer.start();
        int index = 0;
        QCOMPARE(TavoConn_GetMdActiveIdx(0, &index), TAVO_OK);
        QVERIFY2(timer.elapsed() >= 200, qPrintable(QString::number(timer.elapsed())));
    }

    /* A call waiting out its latency keeps nobody else waiting. */
    void latencyHoldsNoLock()
    {
        TavoSim::SetLatency(kReset, 1500);
        std::atomic<bool> done{false};
        std::thread slow([&] {
            AST_CAL_tl1_reset_r(0, 10000);
            done = true;
        });
        QTRY_COMPARE(TavoSim::CallCount(kReset), 1);
        uint16_t chip = 0, rf = 0;
        QCOMPARE(AST_CAL_get_chipid_r(0, 10000, &chip, &rf), TAVO_OK);
        TavoSim::FailOnce(kUbin);
        QCOMPARE(TavoSim::CallLog().size(), 2);
        const bool overtaken = !done;
        slow.join();
        QVERIFY(overtaken);
        QCOMPARE(TavoSim::CallLog().first().result, TAVO_OK); /* the result lands in the record logged first */
    }

    /* Every call lands in the log in order of arrival, with its handle, time-out,
     * inputs and answer. */
    void callLog()
    {
        const uint32_t request[2] = {4, 132};
        QByteArray record(144, '\0');
        uint16_t chip = 0, rf = 0;
        int service = 0;
        TavoSim::FailOnce("AST_CAL_get_chipid_r", TAVO_ERR_BUSY);
        setUbin(1);
        TAVO_QueryAPISupported_r(0, 3000, "TAVO_MISC_GetIMEIRecNum_r");
        TAVO_MMRf_GetRfCapability_r(0, 10000, request, sizeof request, record.data(), 144);
        TavoConn_GetMdSrv(0, 0, &service);
        AST_CAL_tl1_reset_r(3, 10000);
        AST_CAL_get_chipid_r(0, 10000, &chip, &rf);
        TAVO_GetResultText(2);
        TAVO_ERf_GetRfIdText(7);

        QStringList log;
        for (const TavoSim::CallRecord &r : TavoSim::CallLog())
            log << QStringLiteral("%1 %2 %3 [%4] %5")
                       .arg(r.name)
                       .arg(r.handle)
                       .arg(r.timeoutMs)
                       .arg(r.args.join(' '))
                       .arg(r.result);
        QCOMPARE(log, QStringList({
                          "AST_UBIN_MODE_SETUP_r 0 10000 [mode=1] 0",
                          "TAVO_QueryAPISupported_r 0 3000 [apiName=TAVO_MISC_GetIMEIRecNum_r] 3",
                          "TAVO_MMRf_GetRfCapability_r 0 10000 [request=4,132 requestSize=8 recordSize=144] 0",
                          "TavoConn_GetMdSrv 0 -1 [index=0] 0",
                          "AST_CAL_tl1_reset_r 3 10000 [] 5",
                          "AST_CAL_get_chipid_r 0 10000 [] 6",
                          "TAVO_GetResultText -1 -1 [result=2] 0",
                          "TAVO_ERf_GetRfIdText -1 -1 [rfId=7] 0",
                      }));
        QCOMPARE(TavoSim::CallNames().first(), kUbin);
        QCOMPARE(TavoSim::CallCount(kReset), 1);
        QCOMPARE(TavoSim::CallCount("TAVO_3Grf_GetRFID_r"), 0);
        TavoSim::ClearCallLog();
        QVERIFY(TavoSim::CallNames().isEmpty());
        QCOMPARE(TavoSim::CallCount(kReset), 0);
        AST_CAL_tl1_reset_r(0, 10000);
        QCOMPARE(TavoSim::CallCount(kReset), 1);
    }

    void resultTexts_data()
    {
        QTest::addColumn<int>("result");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("last known code") << int(TAVO_ERR_BUFFER_TOO_SMALL) << QByteArray("TAVO_ERR_BUFFER_TOO_SMALL: ");
        QTest::newRow("unknown code") << 4711 << QByteArray("TAVO_RESULT 4711: ");
        QTest::newRow("negative code") << -3 << QByteArray("TAVO_RESULT -3: ");
    }
    void resultTexts()
    {
        QFETCH(int, result);
        QFETCH(QByteArray, start);
        const QByteArray text = TAVO_GetResultText(result);
        QVERIFY2(text.startsWith(start) && text.size() > start.size() + 5, text.constData());
    }

    void overriddenResultText()
    {
        const char *own = TAVO_GetResultText(TAVO_ERR_TIMEOUT);
        TavoSim::SetResultText(TAVO_ERR_TIMEOUT, QStringLiteral(""));
        const char *empty = TAVO_GetResultText(TAVO_ERR_TIMEOUT);
        QVERIFY(empty);
        QCOMPARE(empty[0], '\0');
        TavoSim::SetResultText(TAVO_ERR_TIMEOUT, QStringLiteral("first"));
        const char *first = TAVO_GetResultText(TAVO_ERR_TIMEOUT);
        TavoSim::SetResultText(TAVO_ERR_TIMEOUT, QStringLiteral("second"));
        QCOMPARE(QByteArray(TAVO_GetResultText(TAVO_ERR_TIMEOUT)), QByteArray("second"));
        QCOMPARE(QByteArray(first), QByteArray("first")); /* texts given out stay valid */
        QVERIFY(QByteArray(TAVO_GetResultText(TAVO_ERR_BUSY)).startsWith("TAVO_ERR_BUSY"));
        TavoSim::SetResultText(TAVO_ERR_TIMEOUT, QString());
        QCOMPARE(QByteArray(TAVO_GetResultText(TAVO_ERR_TIMEOUT)), QByteArray(own));
    }

    /* Callers on several threads while another one rearms faults, changes texts
     * and reads the log: every answer is whole and every call is counted. Run
     * under ASan too. */
    void concurrentUse()
    {
        constexpr int kCallers = 4, kRounds = 1500;
        std::atomic<bool> running{true};
        std::atomic<int> wrong{0};

        std::thread controller([&] {
            int round = 0;
            while (running) {
                TavoSim::FailOnce(QStringLiteral("TAVO_MMRf_GetRfCapability_r"), TAVO_ERR_BUSY);
                TavoSim::SetResultText(TAVO_ERR_BUSY, QString::number(round++ % 7));
                const QVector<TavoSim::CallRecord> log = TavoSim::CallLog();
                if (!log.isEmpty() && log.last().name.isEmpty())
                    ++wrong;
                if (round % 50 == 0)
                    TavoSim::ClearFaults();
                std::this_thread::yield();
            }
        });
        std::vector<std::thread> callers;
        for (int c = 0; c < kCallers; ++c) {
            callers.emplace_back([&, c] {
                for (int i = 0; i < kRounds; ++i) {
                    const Answer mmrf = fetch(QStringLiteral("multiRat"));
                    if (mmrf.result == TAVO_OK ? u32At(mmrf.bytes, 44) != validWord(0x33) : !mmrf.untouched())
                        ++wrong;
                    if (setUbin(uint16_t((i + c) % 2)) != TAVO_OK)
                        ++wrong;
                    if (AST_CAL_QueryAPISupported_r(0, 10000, "AST_CAL_agc_ex_r") != TAVO_OK)
                        ++wrong;
                    /* the library's own text, or one the controller set */
                    const QByteArray text = TAVO_GetResultText(TAVO_ERR_BUSY);
                    if (!text.startsWith("TAVO_ERR_BUSY: ") && !(text.size() == 1 && text[0] >= '0' && text[0] <= '6'))
                        ++wrong;
                }
            });
        }
        for (std::thread &caller : callers)
            caller.join();
        running = false;
        controller.join();

        QCOMPARE(wrong.load(), 0);
        QCOMPARE(TavoSim::CallCount("TAVO_MMRf_GetRfCapability_r"), kCallers * kRounds);
        QCOMPARE(TavoSim::CallCount(kUbin), kCallers * kRounds);
        QCOMPARE(TavoSim::CallCount("TAVO_GetResultText"), kCallers * kRounds);
        QCOMPARE(TavoSim::CallLog().size(), kCallers * kRounds * 4);
    }
};

QTEST_GUILESS_MAIN(tst_SimControl)
#include "tst_SimControl.moc"
