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

Q_DECLARE_METATYPE(TavoSim::CallRecord)

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

    void faultSchedule_data();
    void faultSchedule();
    void failureHasNoSideEffect_data();
    void failureHasNoSideEffect();
    void profileFaults();
    void resetRestoresPowerOn();
    void latency_data();
    void latency();
    void latencyHoldsNoLock();
    void callRecord_data();
    void callRecord();
    void callOrderAndCounts();
    void resultTexts_data();
    void resultTexts();
    void overriddenResultText();
    void rfIdTexts();
    void concurrentUse();
};

void tst_SimControl::faultSchedule_data()
{
    QTest::addColumn<QList<int>>("faults"); /* {result, count, skip} per fault, in arming order */
    QTest::addColumn<QList<int>>("results"); /* of five calls */
    QTest::newRow("once") << QList<int>{1, 1, 0} << QList<int>{1, 0, 0, 0, 0};
    QTest::newRow("always") << QList<int>{2, -1, 0} << QList<int>{2, 2, 2, 2, 2};
    QTest::newRow("after two") << QList<int>{6, 1, 2} << QList<int>{0, 0, 6, 0, 0};
    QTest::newRow("twice after one") << QList<int>{6, 2, 1} << QList<int>{0, 6, 6, 0, 0};
    QTest::newRow("always after three") << QList<int>{1, -1, 3} << QList<int>{0, 0, 0, 1, 1};
    QTest::newRow("count 0 arms nothing") << QList<int>{1, 0, 0} << QList<int>{0, 0, 0, 0, 0};
    QTest::newRow("two in arming order") << QList<int>{1, 1, 0, 6, 1, 0} << QList<int>{1, 6, 0, 0, 0};
    QTest::newRow("skip counts while another fires") << QList<int>{1, 2, 0, 6, 1, 1} << QList<int>{1, 1, 6, 0, 0};
    QTest::newRow("later fault waits for the first") << QList<int>{1, -1, 0, 6, 1, 0} << QList<int>{1, 1, 1, 1, 1};
}

void tst_SimControl::faultSchedule()
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
void tst_SimControl::failureHasNoSideEffect_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<int>("result");
    QTest::newRow("fault") << "fault" << int(TAVO_ERR_BUSY);
    QTest::newRow("latency beyond time-out") << "timeout" << int(TAVO_ERR_TIMEOUT);
    QTest::newRow("handle 1") << "handle" << int(TAVO_ERR_NOT_CONNECTED);
    QTest::newRow("mode 2") << "mode" << int(TAVO_ERR_INVALID_ARGUMENT);
    QTest::newRow("withheld") << "withheld" << int(TAVO_ERR_NOT_SUPPORTED);
}

void tst_SimControl::failureHasNoSideEffect()
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
    if (how != "withheld") {
        QCOMPARE(setUbin(1), TAVO_OK);
        QVERIFY(TavoSim::IsUbinEnabled());
    }
}

/* Faults of the profile are armed by every load and reset; ClearFaults
 * disarms them too. */
void tst_SimControl::profileFaults()
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

void tst_SimControl::resetRestoresPowerOn()
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

void tst_SimControl::latency_data()
{
    QTest::addColumn<QString>("delayed");
    QTest::addColumn<QString>("call");
    QTest::newRow("own") << kReset << kReset;
    QTest::newRow("all") << "*" << kReset;
    QTest::newRow("all, connection call") << "*" << "TavoConn_GetMdActiveIdx";
    QTest::newRow("all, support query") << "*" << "TAVO_QueryAPISupported_r";
}

void tst_SimControl::latency()
{
    QFETCH(QString, delayed);
    QFETCH(QString, call);
    TavoSim::SetLatency(delayed, 200);
    QElapsedTimer timer;
    timer.start();
    int index = 0;
    if (call == kReset)
        QCOMPARE(AST_CAL_tl1_reset_r(0, 10000), TAVO_OK);
    else if (call == "TavoConn_GetMdActiveIdx")
        QCOMPARE(TavoConn_GetMdActiveIdx(0, &index), TAVO_OK);
    else
        QCOMPARE(TAVO_QueryAPISupported_r(0, 10000, "TAVO_MMRf_GetRfCapability_r"), TAVO_OK);
    QVERIFY2(timer.elapsed() >= 200, qPrintable(QString::number(timer.elapsed())));
}

/* A call waiting out its latency keeps nobody else waiting. */
void tst_SimControl::latencyHoldsNoLock()
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

void tst_SimControl::callRecord_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<TavoSim::CallRecord>("expected");
    auto record = [](const char *name, int handle, int timeout, QStringList args, TAVO_RESULT result) {
        return TavoSim::CallRecord{name, handle, timeout, args, result};
    };
    QTest::newRow("ubin") << "ubin" << record("AST_UBIN_MODE_SETUP_r", 0, 10000, {"mode=1"}, TAVO_OK);
    QTest::newRow("query with 3000 ms")
        << "query" << record("TAVO_QueryAPISupported_r", 0, 3000, {"apiName=TAVO_MISC_GetIMEIRecNum_r"}, 3);
    QTest::newRow("MMRf") << "mmrf"
                          << record("TAVO_MMRf_GetRfCapability_r", 0, 10000,
                                    {"request=4,132", "requestSize=8", "recordSize=144"}, TAVO_OK);
    QTest::newRow("MMRf bad request")
        << "mmrf bad" << record("TAVO_MMRf_GetRfCapability_r", 0, 10000,
                                {"request=4,133", "requestSize=8", "recordSize=144"}, TAVO_ERR_INVALID_ARGUMENT);
    QTest::newRow("service of modem 0") << "srv" << record("TavoConn_GetMdSrv", 0, -1, {"index=0"}, TAVO_OK);
    QTest::newRow("handle 3") << "handle" << record("AST_CAL_tl1_reset_r", 3, 10000, {}, TAVO_ERR_NOT_CONNECTED);
    QTest::newRow("faulted") << "faulted" << record("AST_CAL_get_chipid_r", 0, 10000, {}, TAVO_ERR_BUSY);
    QTest::newRow("result text") << "text" << record("TAVO_GetResultText", -1, -1, {"result=2"}, TAVO_OK);
    QTest::newRow("LTE RF id text") << "rfid" << record("TAVO_ERf_GetRfIdText", -1, -1, {"rfId=7"}, TAVO_OK);
}

void tst_SimControl::callRecord()
{
    QFETCH(QString, call);
    QFETCH(TavoSim::CallRecord, expected);
    uint32_t request[2] = {4, call == "mmrf bad" ? 133u : 132u};
    QByteArray record(144, '\0');
    uint16_t mode = 1, chip = 0, rf = 0;
    int service = 0;
    if (call == "faulted")
        TavoSim::FailOnce("AST_CAL_get_chipid_r", TAVO_ERR_BUSY);
    if (call == "ubin")
        AST_UBIN_MODE_SETUP_r(0, 10000, &mode);
    else if (call == "query")
        TAVO_QueryAPISupported_r(0, 3000, "TAVO_MISC_GetIMEIRecNum_r");
    else if (call.startsWith("mmrf"))
        TAVO_MMRf_GetRfCapability_r(0, 10000, request, sizeof request, record.data(), 144);
    else if (call == "srv")
        TavoConn_GetMdSrv(0, 0, &service);
    else if (call == "handle")
        AST_CAL_tl1_reset_r(3, 10000);
    else if (call == "faulted")
        AST_CAL_get_chipid_r(0, 10000, &chip, &rf);
    else if (call == "text")
        TAVO_GetResultText(2);
    else if (call == "rfid")
        TAVO_ERf_GetRfIdText(7);

    const QVector<TavoSim::CallRecord> log = TavoSim::CallLog();
    QCOMPARE(log.size(), 1);
    QCOMPARE(log[0].name, expected.name);
    QCOMPARE(log[0].handle, expected.handle);
    QCOMPARE(log[0].timeoutMs, expected.timeoutMs);
    QCOMPARE(log[0].args, expected.args);
    QCOMPARE(log[0].result, expected.result);
}

void tst_SimControl::callOrderAndCounts()
{
    int index = 0;
    uint32_t option = 0;
    TavoConn_GetMdActiveIdx(0, &index);
    TAVO_Util_QueryTargetOptionInfo(0, 10000, &option);
    setUbin(1);
    setUbin(0);
    TAVO_GetResultText(0);
    QCOMPARE(TavoSim::CallNames(), QStringList({"TavoConn_GetMdActiveIdx", "TAVO_Util_QueryTargetOptionInfo",
                                                "AST_UBIN_MODE_SETUP_r", "AST_UBIN_MODE_SETUP_r",
                                                "TAVO_GetResultText"}));
    QCOMPARE(TavoSim::CallLog().at(3).args, QStringList{"mode=0"});
    QCOMPARE(TavoSim::CallCount(kUbin), 2);
    QCOMPARE(TavoSim::CallCount(kReset), 0);
    TavoSim::ClearCallLog();
    QVERIFY(TavoSim::CallNames().isEmpty());
    QCOMPARE(TavoSim::CallCount(kUbin), 0);
    setUbin(1);
    QCOMPARE(TavoSim::CallCount(kUbin), 1);
}

void tst_SimControl::resultTexts_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("start");
    const char *const names[] = {"TAVO_OK",
                                 "TAVO_ERR_FAILED",
                                 "TAVO_ERR_TIMEOUT",
                                 "TAVO_ERR_NOT_SUPPORTED",
                                 "TAVO_ERR_INVALID_ARGUMENT",
                                 "TAVO_ERR_NOT_CONNECTED",
                                 "TAVO_ERR_BUSY",
                                 "TAVO_ERR_NO_DATABASE",
                                 "TAVO_ERR_LID_NOT_FOUND",
                                 "TAVO_ERR_FIELD_NOT_FOUND",
                                 "TAVO_ERR_BUFFER_TOO_SMALL"};
    for (int code = 0; code <= TAVO_ERR_BUFFER_TOO_SMALL; ++code)
        QTest::newRow(names[code]) << code << QByteArray(names[code]) + ": ";
    QTest::newRow("unknown code") << 4711 << QByteArray("TAVO_RESULT 4711: ");
    QTest::newRow("negative code") << -3 << QByteArray("TAVO_RESULT -3: ");
}

void tst_SimControl::resultTexts()
{
    QFETCH(int, result);
    QFETCH(QByteArray, start);
    const QByteArray text = TAVO_GetResultText(result);
    QVERIFY2(text.startsWith(start) && text.size() > start.size() + 5, text.constData());
}

void tst_SimControl::overriddenResultText()
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

void tst_SimControl::rfIdTexts()
{
    for (auto text : {TAVO_Rf_GetRfIdText, TAVO_3Grf_GetRfIdText, TAVO_ERf_GetRfIdText}) {
        QCOMPARE(QByteArray(text(1000)), QByteArray("Unknown"));
        QVERIFY(text(1) && QByteArray(text(1)) != "Unknown" && *text(1));
    }
}

/* Callers on several threads while another one rearms faults, changes texts
 * and reads the log: every answer is whole and every call is counted. Run
 * under ASan too. */
void tst_SimControl::concurrentUse()
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

QTEST_GUILESS_MAIN(tst_SimControl)
#include "tst_SimControl.moc"
