/* The simulated target where the plug-in's tests do not look: refused calls,
 * profile files, faults, latencies, the call log, result texts, concurrent
 * use, the radio's one test at a time, and the temperature and its ADC. The
 * fields themselves are read through the plug-in, for every built-in
 * profile, by tests/Controller/tst_Capability. */

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include "TavoApp.h"
#include "TavoSimControl.h"

using Call = std::function<TAVO_RESULT(char *buffer)>;
Q_DECLARE_METATYPE(Call)

namespace {

/* What an output buffer holds before a call; a call that fails must leave it so. */
constexpr char kUntouched = '\x5a';
const uint32_t kMmrf[2] = {4, 132};
const QString kReset = QStringLiteral("AST_CAL_tl1_reset_r");
const QString kUbin = QStringLiteral("AST_UBIN_MODE_SETUP_r");
const Call kMultiRat = [](char *b) { return TAVO_MMRf_GetRfCapability_r(0, 10000, kMmrf, 8, b, 144); };
const Call kChipId = [](char *b) {
    auto *ids = reinterpret_cast<uint16_t *>(b);
    return AST_CAL_get_chipid_r(0, 10000, ids, ids + 1);
};

/* The result of a call and what it left in a buffer of `size` bytes. */
QPair<TAVO_RESULT, QByteArray> Answer(const Call &call, int size)
{
    QByteArray bytes(size, kUntouched);
    const TAVO_RESULT result = call(bytes.data());
    return {result, bytes};
}

quint32 U32At(const QByteArray &b, int offset)
{
    const auto *p = reinterpret_cast<const uchar *>(b.constData()) + offset;
    return quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
}

TAVO_RESULT SetUbin(uint16_t mode, uint32_t timeoutMs = 10000) { return AST_UBIN_MODE_SETUP_r(0, timeoutMs, &mode); }

} // namespace

class tst_SimTarget : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(TavoSim::LoadProfile(QStringLiteral("default"))); }

    /* A call refused for its arguments, withheld by the profile or timed out
     * writes nothing and leaves the target as it was. Each support query
     * answers for its own prefix only. (A fault that fires changes nothing:
     * tests/Controller/tst_NvramMan.) */
    void refusedCalls_data()
    {
        QTest::addColumn<Call>("call");
        QTest::addColumn<int>("result");
        const int invalid = TAVO_ERR_INVALID_ARGUMENT, unsupported = TAVO_ERR_NOT_SUPPORTED;
        static const uint32_t other[2] = {4, 133};
        QTest::newRow("chip id without RF out")
            << Call([](char *b) { return AST_CAL_get_chipid_r(0, 10000, reinterpret_cast<uint16_t *>(b), nullptr); })
            << invalid;
        QTest::newRow("RF capability buffer short")
            << Call([](char *b) { return AST_GetRfCapability_r(0, 10000, b, 47); }) << invalid;
        QTest::newRow("MMRf request of other words")
            << Call([](char *b) { return TAVO_MMRf_GetRfCapability_r(0, 10000, other, 8, b, 144); }) << invalid;
        QTest::newRow("Ubin mode 2") << Call([](char *) { return SetUbin(2); }) << invalid;
        QTest::newRow("AST name asked as TAVO")
            << Call([](char *) { return TAVO_QueryAPISupported_r(0, 10000, "AST_CAL_get_chipid_r"); }) << unsupported;
        QTest::newRow("withheld") << Call([](char *) {
            TavoSim::PatchProfile({{"commands", QJsonObject{{"withheld", QJsonArray{kUbin}}}}});
            return SetUbin(1);
        }) << unsupported;
        QTest::newRow("latency beyond time-out") << Call([](char *) {
            TavoSim::SetLatency("*", 200);
            QElapsedTimer timer;
            timer.start();
            const TAVO_RESULT result = SetUbin(1, 50);
            return timer.elapsed() >= 50 ? result : TAVO_RESULT(-99); /* waits out the time-out */
        }) << int(TAVO_ERR_TIMEOUT);
    }
    void refusedCalls()
    {
        QFETCH(Call, call);
        const auto answer = Answer(call, 300);
        QTEST(int(answer.first), "result");
        QCOMPARE(answer.second, QByteArray(300, kUntouched));
        QVERIFY(!TavoSim::IsUbinEnabled());
    }

    void profileFile_data()
    {
        QTest::addColumn<QByteArray>("content"); /* null: no file */
        QTest::addColumn<QString>("error"); /* empty: it loads */
        QTest::newRow("what it leaves out is absent") << QByteArray(R"({"tdscdma": {"bands": ["e"]}})") << "";
        QTest::newRow("no such file") << QByteArray() << "tiny-target.json";
        QTest::newRow("not JSON, offset") << QByteArray("{\"name\" \"x\"}") << "at offset 9";
        QTest::newRow("unknown key, its path") << QByteArray(R"({"tdscdma": {"bandz": []}})")
                                               << "tdscdma.bandz: unknown key";
        QTest::newRow("string for a flag") << QByteArray(R"({"tdscdma": {"rfCapability": {"ubin": "yes"}}})")
                                           << "tdscdma.rfCapability.ubin: expected true";
        QTest::newRow("fault input of no type")
            << QByteArray(R"({"faults": [{"call": "*", "args": {"record": true}}]})")
            << "faults[0].args.record: expected a string or an integer";
        QTest::newRow("record of a LID the target lacks")
            << QByteArray(R"({"nvram": {"target": {"NVRAM_EF_AST_TL1_CAP_DATA_LID": {"count": 0}},
                              "records": {"NVRAM_EF_AST_TL1_CAP_DATA_LID": {"capId": 1}}}})")
            << "nvram.records.NVRAM_EF_AST_TL1_CAP_DATA_LID: not a LID of the target's NVRAM";
        QTest::newRow("field a record kind lacks")
            << QByteArray(R"({"nvram": {"records": {"NVRAM_EF_AST_TL1_TEMP_DAC_LID": {"x": 1}}}})")
            << "nvram.records.NVRAM_EF_AST_TL1_TEMP_DAC_LID.x: a Tadc record has no such field";
        QTest::newRow("ADC table not rising") << QByteArray(R"({"tadc": {"adcTable": [[0, 100], [0, 90]]}})")
                                              << "tadc.adcTable[1]: temperatures must rise";
        QTest::newRow("ADC beyond 16 bits") << QByteArray(R"({"tadc": {"adcTable": [[0, 65536], [9, 0]]}})")
                                            << "tadc.adcTable[0]: expected [degrees, ADC]";
    }
    /* A profile file is named after the file; what it leaves out is absent. A
     * profile that does not load leaves the current one, its state and its
     * log alone. */
    void profileFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, error);
        QCOMPARE(SetUbin(1), TAVO_OK);
        QFile file(m_dir.filePath("tiny-target.json"));
        file.remove();
        if (!content.isNull()) {
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
            file.close();
        }
        QString message;
        QCOMPARE(TavoSim::LoadProfile(file.fileName(), &message), error.isEmpty());
        QVERIFY2(message.contains(error), qPrintable(message));
        if (error.isEmpty()) {
            QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("tiny-target"));
            const Call capability = [](char *b) {
                auto *words = reinterpret_cast<uint32_t *>(b);
                return AST_CAL_get_capability_r(0, 10000, words, words + 1);
            };
            QCOMPARE(U32At(Answer(capability, 8).second, 4), 1u << 5);
            QCOMPARE(Answer(kChipId, 4).first, TAVO_ERR_NOT_SUPPORTED);
            return;
        }
        QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("default"));
        QVERIFY(TavoSim::IsUbinEnabled());
        QCOMPARE(TavoSim::CallCount("AST_UBIN_MODE_SETUP_r"), 1);
        QCOMPARE(U32At(Answer(kChipId, 4).second, 0), 16u << 16 | 26752);
    }

    void faultSchedule_data()
    {
        QTest::addColumn<QList<int>>("faults"); /* {result, count, skip} per fault, in arming order */
        QTest::addColumn<QList<int>>("results"); /* of five calls */
        QTest::newRow("twice after one") << QList<int>{6, 2, 1} << QList<int>{0, 6, 6, 0, 0};
        QTest::newRow("count 0 arms nothing") << QList<int>{1, 0, 0} << QList<int>{0, 0, 0, 0, 0};
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

    void resetOrPatch_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("kept");
        QTest::newRow("Reset") << "reset" << false;
        QTest::newRow("patch with reset") << "patch and reset" << false;
        QTest::newRow("patch") << "patch" << true;
    }
    /* Reset goes back to power-on under the current profile, and so does a
     * patch that asks for it; a plain patch changes the answers only. */
    void resetOrPatch()
    {
        QFETCH(QString, how);
        QFETCH(bool, kept);
        QCOMPARE(SetUbin(1), TAVO_OK);
        QCOMPARE(AST_RFTEST_TXOn_r(0, 10000, 9550, 1), TAVO_OK);
        QByteArray tadc(18, '\7');
        const SNvramAccessRequest write{"NVRAM_EF_AST_TL1_TEMP_DAC_LID", 1, 18, reinterpret_cast<uchar *>(tadc.data())};
        SNvramAccessConfirm confirm{};
        QCOMPARE(TAVO_NVRAM_Write_r(0, 10000, &write, &confirm), TAVO_OK);
        TavoSim::LoadDatabase();
        TavoSim::FailAlways(kReset);
        TavoSim::SetLatency("TAVO_Util_QueryTargetOptionInfo", 5000);
        TavoSim::SetResultText(TAVO_ERR_FAILED, "replaced");

        const QJsonObject patch{{"chipId", QJsonObject{{"rf", 40}}}};
        if (how == "reset")
            TavoSim::Reset();
        else
            QVERIFY(TavoSim::PatchProfile(patch, how == "patch" ? TavoSim::Patch::KeepState : TavoSim::Patch::Reset));
        QCOMPARE(TavoSim::IsUbinEnabled(), kept);
        QCOMPARE(TavoSim::RadioActivity(), kept ? "tx 9550" : "idle");
        QCOMPARE(TavoSim::NvramRecord("NVRAM_EF_AST_TL1_TEMP_DAC_LID") == tadc, kept);
        QCOMPARE(TavoSim::IsDatabaseLoaded(), kept);
        QCOMPARE(TavoSim::CallCount(kUbin), kept ? 1 : 0);
        QCOMPARE(AST_CAL_tl1_reset_r(0, 10000), kept ? TAVO_ERR_FAILED : TAVO_OK);
        uint32_t option = 0;
        QCOMPARE(TAVO_Util_QueryTargetOptionInfo(0, 20, &option), kept ? TAVO_ERR_TIMEOUT : TAVO_OK);
        QCOMPARE(QByteArray(TAVO_GetResultText(TAVO_ERR_FAILED)) == "replaced", kept);
        QCOMPARE(U32At(Answer(kChipId, 4).second, 0) >> 16, how == "reset" ? 16u : 40u);
        QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("default"));
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
        QByteArray record(144, '\0');
        TavoSim::FailOnce("AST_CAL_get_chipid_r", TAVO_ERR_BUSY);
        SetUbin(1);
        TAVO_QueryAPISupported_r(0, 3000, "TAVO_MISC_GetIMEIRecNum_r");
        TAVO_MMRf_GetRfCapability_r(0, 10000, kMmrf, 4096, record.data(), 144); /* only 8 bytes are read */
        AST_CAL_tl1_reset_r(3, 10000);
        Answer(kChipId, 4);
        TAVO_GetResultText(2);

        QStringList log;
        for (const TavoSim::CallRecord &r : TavoSim::CallLog())
            log << QStringLiteral("%1 %2 %3 [%4] %5").arg(r.name).arg(r.handle).arg(r.timeoutMs).arg(r.args.join(' '))
                       .arg(r.result);
        QCOMPARE(log, QStringList({
                          "AST_UBIN_MODE_SETUP_r 0 10000 [mode=1] 0",
                          "TAVO_QueryAPISupported_r 0 3000 [apiName=TAVO_MISC_GetIMEIRecNum_r] 3",
                          "TAVO_MMRf_GetRfCapability_r 0 10000 [request=4,132,... requestSize=4096 recordSize=144] 4",
                          "AST_CAL_tl1_reset_r 3 10000 [] 5",
                          "AST_CAL_get_chipid_r 0 10000 [] 6",
                          "TAVO_GetResultText -1 -1 [result=2] 0",
                      }));
        TavoSim::ClearCallLog(); /* the counts go with the log */
        QCOMPARE(TavoSim::CallCount(kReset), 0);
    }

    /* Every code has a text, the library's own or one set; a text given out
     * stays valid. */
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
        TavoSim::SetResultText(TAVO_ERR_TIMEOUT, QString());
        QCOMPARE(QByteArray(TAVO_GetResultText(TAVO_ERR_TIMEOUT)), QByteArray(own));
        QVERIFY(QByteArray(TAVO_GetResultText(-3)).startsWith("TAVO_RESULT -3: unknown"));
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
                    const auto mmrf = Answer(kMultiRat, 144);
                    if (mmrf.first == TAVO_OK ? U32At(mmrf.second, 44) != (0x33u << 2 | 1) /* a valid word */
                                              : mmrf.second != QByteArray(144, kUntouched))
                        ++wrong;
                    if (SetUbin(uint16_t((i + c) % 2)) != TAVO_OK)
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

    void oneTestAtATime_data()
    {
        QTest::addColumn<QList<Call>>("steps");
        QTest::addColumn<QList<int>>("results");
        QTest::addColumn<QString>("activity");
        const auto tx = [](uint16_t uarfcn) {
            return Call([=](char *) { return AST_RFTEST_TXOn_r(0, 10000, uarfcn, 1); });
        };
        const auto rx = [](uint8_t on) { return Call([=](char *) { return AST_RFTEST_RXOn_r(0, 10000, 9550, on); }); };
        const Call agc = [](char *b) {
            return AST_CAL_agc_r(0, 10000, 9550, 4096, 0, 60, 0, reinterpret_cast<int8_t *>(b),
                                 reinterpret_cast<uint16_t *>(b + 2), reinterpret_cast<uint8_t *>(b + 4));
        };
        const Call stop = [](char *) { return AST_CAL_stop_r(0, 10000); };
        // (TX on and off: tests/PluginInterface/tst_TestPages.)
        QTest::newRow("while transmitting: no second tx, rx off leaves it, no measure")
            << QList<Call>{tx(9550), tx(9600), rx(0), agc} << QList<int>{0, 6, 0, 6} << "tx 9550";
        QTest::newRow("measure while receiving") << QList<Call>{rx(1), agc} << QList<int>{0, 0} << "rx 9550";
        QTest::newRow("stop ends any test") << QList<Call>{rx(1), stop} << QList<int>{0, 0} << "idle";
    }
    void oneTestAtATime()
    {
        QFETCH(QList<Call>, steps);
        QList<int> results;
        for (const Call &step : steps)
            results << Answer(step, 8).first;
        QTEST(results, "results");
        QTEST(TavoSim::RadioActivity(), "activity");
    }

    // The radio's measures and registers are read through the plug-in by
    // tests/PluginInterface/tst_TestPages; tracking is not.
    void trackingPicksTheIdealGain()
    {
        int16_t rssi = 0;
        uint16_t dsp = 0;
        uint8_t used = 0;
        QCOMPARE(AST_CAL_agc_ex_r(0, 10000, 9550, 4096, 0, 0, 1, &rssi, &dsp, &used), TAVO_OK);
        QCOMPARE(QString("%1/%2").arg(rssi).arg(used), QString("-584/63")); // -73 dBm arrive on 9550
    }

    void temperatureAdc_data()
    {
        QTest::addColumn<QJsonObject>("tadc"); /* over the default's: channel 3, noise 2 */
        QTest::addColumn<int>("adc");          /* without noise */
        QTest::newRow("25 degrees") << QJsonObject() << 2200;
        QTest::newRow("between points") << QJsonObject{{"temperature", 40}} << 1879;
        QTest::newRow("below the table") << QJsonObject{{"temperature", -40}} << 3300;
        QTest::newRow("above the table") << QJsonObject{{"temperature", 150}} << 800;
        const QJsonArray ownTable{QJsonArray{0, 100}, QJsonArray{50, 4100}};
        QTest::newRow("own table, no noise")
            << QJsonObject{{"temperature", 10}, {"noise", 0}, {"adcTable", ownTable}} << 900;
    }
    /* Each measure is the table's value off by a noise of its own, which runs
     * the same again after a reset. (The sums and the RF temperature within
     * the noise: tests/Controller/tst_TadcItem's measures.) */
    void temperatureAdc()
    {
        QFETCH(QJsonObject, tadc);
        QFETCH(int, adc);
        QVERIFY(TavoSim::PatchProfile({{"tadc", tadc}}, TavoSim::Patch::Reset));
        QCOMPARE(int(TavoSim::TemperatureAdc()), adc);
        const int noise = tadc.value("noise").toInt(2);
        QList<int> values;
        for (uint16_t v = 0; values.size() < 8 && TAVO_MISC_GetADCValue_r(0, 10000, &v) == TAVO_OK;)
            values << v;
        QCOMPARE(values.size(), 8);
        for (int v : values)
            QVERIFY2(qAbs(v - adc) <= noise, qPrintable(QString::number(v)));
        QCOMPARE(values.count(values.first()) < values.size(), noise > 0);
        TavoSim::Reset();
        uint16_t first = 0;
        QVERIFY(TAVO_MISC_GetADCValue_r(0, 10000, &first) == TAVO_OK && first == values.first());
    }

    void temperatureAnswers_data()
    {
        QTest::addColumn<QJsonObject>("patch");
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("count");
        /* result/status/sum of the ADC sum, the same of the RF temperature,
         * result/value of the single read; 7 is left untouched, n a measure */
        QTest::addColumn<QString>("answers");
        const QJsonObject noEx2{
            {"gsm", QJsonObject{{"ex2", QJsonObject{{"tadcMeasureSum", false}, {"tadcSingleRead", false}}}}}};
        QTest::newRow("another channel") << QJsonObject() << 4 << 5 << "0/1/0 0/1/n 0/n";
        QTest::newRow("count 0") << QJsonObject() << 3 << 0 << "0/0/0 0/0/0 0/n";
        QTest::newRow("sensor not ready") << QJsonObject{{"tadc", QJsonObject{{"sensorReady", false}}}} << 3 << 5
                                          << "0/2/0 0/0/0 6/7";
        QTest::newRow("no Ex2 bits") << noEx2 << 3 << 5 << "3/7/7 0/1/n 3/7";
        QTest::newRow("no tdscdma") << QJsonObject{{"tdscdma", QJsonValue()}} << 3 << 5 << "0/0/n 3/7/7 0/n";
    }
    void temperatureAnswers()
    {
        QFETCH(QJsonObject, patch);
        QFETCH(int, channel);
        QFETCH(int, count);
        QVERIFY(TavoSim::PatchProfile(patch));
        TavoAdcMeasureSum sum{7, 7};
        TavoRfTemperature rf{7, 7};
        uint16_t value = 7;
        const TAVO_RESULT sumResult = TAVO_MISC_GetADCMeasureSum_r(0, 10000, uint8_t(channel), uint16_t(count), &sum);
        const TAVO_RESULT rfResult = AST_GetRfTemperature_r(0, 10000, uint16_t(count), &rf);
        const TAVO_RESULT readResult = TAVO_MISC_GetADCValue_r(0, 10000, &value);
        const auto shown = [](quint32 x) { return x > 7 ? QString("n") : QString::number(x); };
        QTEST(QString("%1/%2/%3 %4/%5/%6 %7/%8")
                  .arg(sumResult).arg(sum.status).arg(shown(sum.sum))
                  .arg(rfResult).arg(rf.status).arg(shown(rf.sum))
                  .arg(readResult).arg(shown(value)),
              "answers");
    }

    void heatOfTheTransmitter_data()
    {
        QTest::addColumn<Call>("start");
        QTest::addColumn<double>("heating"); /* degrees per second, up to 10 above 25 */
        QTest::addColumn<bool>("heats");
        QTest::newRow("continuous TX, slowly") << Call([](char *) { return AST_RFTEST_TXOn_r(0, 10000, 9550, 1); })
                                               << 20.0 << true;
        QTest::newRow("DPCH") << Call([](char *) { return AST_CAL_apc_start_r(0, 10000, 9550, 4096, 0, 9, 0, 0); })
                              << 200.0 << true;
        QTest::newRow("AFC") << Call([](char *) { return AST_CAL_afc_start_r(0, 10000, 9550, 4096, 0, 0, 0); })
                             << 200.0 << true;
        QTest::newRow("RX") << Call([](char *) { return AST_RFTEST_RXOn_r(0, 10000, 9550, 1); }) << 200.0 << false;
    }
    /* While the radio transmits the target warms at its rate up to its
     * ceiling, and the ADC falls; after the stop it cools back to ambient. */
    void heatOfTheTransmitter()
    {
        QFETCH(Call, start);
        QFETCH(double, heating);
        QFETCH(bool, heats);
        QVERIFY(TavoSim::PatchProfile({{"tadc", QJsonObject{{"heating", heating}, {"maxRise", 10}}}},
                                      TavoSim::Patch::Reset));
        QThread::msleep(50); /* idle: no heat */
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(start(nullptr), TAVO_OK);
        QThread::msleep(100);
        const double rise = TavoSim::Temperature() - 25;
        const double most = heats ? qMin(10.0, heating * timer.nsecsElapsed() / 1e9) : 0;
        QVERIFY2(rise >= qMin(most, heating / 10) - 1e-9 && rise <= most + 1e-9, qPrintable(QString::number(rise)));
        QCOMPARE(TavoSim::TemperatureAdc() < 2200, heats);
        QThread::msleep(50);
        QCOMPARE(AST_CAL_stop_r(0, 10000), TAVO_OK);
        QVERIFY(TavoSim::Temperature() - 25 > rise - 1); /* the heat up to the stop counts */
        QTRY_COMPARE(TavoSim::Temperature(), 25.0);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(tst_SimTarget)
#include "tst_SimTarget.moc"
