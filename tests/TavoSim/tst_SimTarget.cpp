/* What the simulated target does where the plug-in's tests do not look: the
 * bytes between the fields, calls with bad arguments, and profiles it refuses.
 * The fields themselves are read through the plug-in, for every built-in
 * profile, by tests/Controller/tst_Capability. */

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

#include "TargetAnswers.h"
#include "TavoSimControl.h"

using namespace TargetAnswers;
using Call = std::function<TAVO_RESULT(char *buffer)>;
Q_DECLARE_METATYPE(Call)

class tst_SimTarget : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(TavoSim::LoadProfile(QStringLiteral("default"))); }

    /* With every field of a record set, the bytes that carry none are zero. */
    void unusedBytesAreZero_data()
    {
        QTest::addColumn<QString>("record");
        QTest::addColumn<QList<int>>("fields"); /* offset, width, ... */
        QTest::newRow("multi-RAT") << "multiRat"
                                   << QList<int>{24, 4, 44, 4, 52, 4, 68, 4, 100, 4, 108, 4, 112, 4, 124, 4}; /* V2: @20 stays 0 */
        QTest::newRow("RF capability") << "rfCapability" << QList<int>{24, 4, 36, 4, 40, 4};
        QTest::newRow("LTE") << "lte" << QList<int>{8, 4, 112, 4};
        QTest::newRow("GSM Ex3") << "gsmEx3" << QList<int>{72, 2};
        QTest::newRow("GSM Ex2") << "gsmEx2" << QList<int>{0, 4};
    }
    void unusedBytesAreZero()
    {
        QFETCH(QString, record);
        QFETCH(QList<int>, fields);
        const QByteArray all = R"({
            "tdscdma": {"rfCapability": {"txClpcMode": 1073741823, "ubin": true, "nvramVersion": 1073741823}},
            "multiRat": {"worldMode": ["lte", "gsm", "tdscdma", "c2k", "fdd"], "selfCal": ["lte"], "selfCalV2": true,
                         "tadcByL1": true, "rficCount": 255, "afcByL1": true, "afcVersion": 255, "dcxoLpm": true,
                         "gpsCoClockByL1": true, "gpsCoClockVersion": 1073741823, "mmrfSelfCal": true},
            "gsm": {"worldMode": ["lte", "gsm", "tdscdma", "c2k", "fdd"],
                    "ex2": {"tadcMeasureSum": true, "tadcSingleRead": true}},
            "lte": {"rfId": 4294967295, "gpsCoClockByErf": true}})";
        QVERIFY(TavoSim::PatchProfile(QJsonDocument::fromJson(all).object()));
        QByteArray bytes = fetch(record).bytes;
        for (int i = 0; i + 1 < fields.size(); i += 2) {
            QVERIFY(bytes.mid(fields[i], fields[i + 1]) != QByteArray(fields[i + 1], '\0'));
            bytes.replace(fields[i], fields[i + 1], QByteArray(fields[i + 1], '\0'));
        }
        QCOMPARE(bytes, QByteArray(bytes.size(), '\0'));
    }

    /* A call refused for its arguments writes nothing; one that succeeds writes
     * exactly its record. Each support query answers for its own prefix only. */
    void argumentChecks_data()
    {
        QTest::addColumn<Call>("call");
        QTest::addColumn<int>("result");
        const int invalid = TAVO_ERR_INVALID_ARGUMENT, unsupported = TAVO_ERR_NOT_SUPPORTED;
        static const uint32_t mmrf[2] = {4, 132}, other[2] = {4, 133};
        QTest::newRow("query without a name") << Call([](char *) { return TAVO_QueryAPISupported_r(0, 10000, nullptr); })
                                              << invalid;
        QTest::newRow("chip id without RF out")
            << Call([](char *b) { return AST_CAL_get_chipid_r(0, 10000, reinterpret_cast<uint16_t *>(b), nullptr); })
            << invalid;
        QTest::newRow("RF capability buffer short") << Call([](char *b) { return AST_GetRfCapability_r(0, 10000, b, 47); })
                                                    << invalid;
        QTest::newRow("RF capability buffer longer")
            << Call([](char *b) { return AST_GetRfCapability_r(0, 10000, b, 64); }) << int(TAVO_OK);
        QTest::newRow("MMRf request of other words")
            << Call([](char *b) { return TAVO_MMRf_GetRfCapability_r(0, 10000, other, 8, b, 144); }) << invalid;
        QTest::newRow("MMRf record short")
            << Call([](char *b) { return TAVO_MMRf_GetRfCapability_r(0, 10000, mmrf, 8, b, 143); }) << invalid;
        QTest::newRow("ERf with the MMRf request")
            << Call([](char *b) { return TAVO_ERf_GetRfCapability_r(0, 10000, mmrf, 8, b, 248); }) << invalid;
        QTest::newRow("handle 1") << Call([](char *b) { return TAVO_Rf_QueryMSCapabilityEx2_r(1, 10000, b, 8); })
                                  << int(TAVO_ERR_NOT_CONNECTED);
        QTest::newRow("AST name asked as TAVO")
            << Call([](char *) { return TAVO_QueryAPISupported_r(0, 10000, "AST_CAL_get_chipid_r"); }) << unsupported;
        QTest::newRow("TAVO name asked as AST")
            << Call([](char *) { return AST_CAL_QueryAPISupported_r(0, 10000, "TAVO_MMRf_GetRfCapability_r"); })
            << unsupported;
    }
    void argumentChecks()
    {
        QFETCH(Call, call);
        QByteArray buffer(300, kUntouched);
        const TAVO_RESULT result = call(buffer.data());
        QTEST(int(result), "result");
        QCOMPARE(buffer.count(kUntouched), buffer.size() - (result == TAVO_OK ? 48 : 0));
    }

    void badProfile_data()
    {
        QTest::addColumn<QByteArray>("content"); /* null: no file */
        QTest::addColumn<QString>("error");
        QTest::newRow("no such file") << QByteArray() << "bad.json";
        QTest::newRow("not JSON, offset") << QByteArray("{\"name\" \"x\"}") << "at offset 9";
        QTest::newRow("not an object") << QByteArray("[1, 2]") << "must be a JSON object";
        QTest::newRow("unknown key, its path") << QByteArray(R"({"tdscdma": {"bandz": []}})")
                                               << "tdscdma.bandz: unknown key";
        QTest::newRow("string for a flag") << QByteArray(R"({"tdscdma": {"rfCapability": {"ubin": "yes"}}})")
                                           << "tdscdma.rfCapability.ubin: expected true";
        QTest::newRow("unknown band") << QByteArray(R"({"tdscdma": {"bands": ["a", "g"]}})")
                                      << "tdscdma.bands[1]: unknown band \"g\"";
        QTest::newRow("integer out of range") << QByteArray(R"({"chipId": {"rf": 70000}})") << "chipId.rf: expected";
        QTest::newRow("unknown service") << QByteArray(R"({"modem": {"service": "gsm"}})") << "modem.service";
        QTest::newRow("section not an object") << QByteArray(R"({"lte": 5})") << "lte: expected an object";
        QTest::newRow("fault without call") << QByteArray(R"({"faults": [{"result": 1}]})") << "faults[0].call";
        QTest::newRow("not a command name") << QByteArray(R"({"commands": {"withheld": ["GetRfCapability"]}})")
                                            << "commands.withheld[0]";
    }
    /* A profile that does not load leaves the current one, its state and its
     * log alone. */
    void badProfile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, error);
        uint16_t mode = 1;
        QCOMPARE(AST_UBIN_MODE_SETUP_r(0, 10000, &mode), TAVO_OK);

        QFile file(m_dir.filePath("bad.json"));
        file.remove();
        if (!content.isNull()) {
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
            file.close();
        }
        QString message;
        QVERIFY(!TavoSim::LoadProfile(file.fileName(), &message));
        QVERIFY2(message.contains(error), qPrintable(message));

        QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("default"));
        QVERIFY(TavoSim::IsUbinEnabled());
        QCOMPARE(TavoSim::CallCount("AST_UBIN_MODE_SETUP_r"), 1);
        QCOMPARE(u32At(fetch("chipId").bytes, 0), 16u << 16 | 26752);
    }

    /* A profile file is named after the file; what it leaves out is absent. */
    void profileFile()
    {
        QFile file(m_dir.filePath("tiny-target.json"));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(R"({"tdscdma": {"bands": ["e"]}})");
        file.close();
        QString error;
        QVERIFY2(TavoSim::LoadProfile(file.fileName(), &error), qPrintable(error));
        QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("tiny-target"));
        QCOMPARE(u32At(fetch("capability").bytes, 4), 1u << 5);
        QCOMPARE(fetch("chipId").result, TAVO_ERR_NOT_SUPPORTED);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(tst_SimTarget)
#include "tst_SimTarget.moc"
