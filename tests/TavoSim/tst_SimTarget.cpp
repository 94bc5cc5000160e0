/* What the built-in and custom profiles make the simulated target answer. */

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include "TargetAnswers.h"
#include "TavoSimControl.h"

using namespace TargetAnswers;

namespace {

const QStringList kProfiles = {"bare",      "c2k-modem",  "capability-failure", "default",         "legacy-v1",
                               "modern-l1", "no-tdscdma", "query-failure",      "rf-chip-id-zero", "v1-pathloss-v2"};

const QStringList kRecords = {"option", "chipId", "capability", "rfCapability", "multiRat",
                              "lte",    "gsmEx3", "gsmEx2",     "gsmRfId",      "fddRfId"};

/* Mask bits: gsm 0, tdscdma 1, c2k 2, fdd 3, ltefdd 4, ltetdd 5. */
constexpr quint32 GSM = 1u << 0, TD = 1u << 1, FDD = 1u << 3, LTE = 3u << 4;

QJsonObject json(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

class tst_SimTarget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { QVERIFY(TavoSim::LoadProfile(QStringLiteral("default"))); }

    void builtInProfiles();
    void answers_data();
    void answers();
    void fields_data();
    void fields();
    void unusedBytesAreZero_data();
    void unusedBytesAreZero();
    void connection_data();
    void connection();
    void supportQueries_data();
    void supportQueries();
    void argumentChecks_data();
    void argumentChecks();
    void badProfile_data();
    void badProfile();
    void profileFile();

private:
    QTemporaryDir m_dir;
};

void tst_SimTarget::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("default"));
    QCOMPARE(fetch("multiRat").result, TAVO_OK);
}

void tst_SimTarget::builtInProfiles()
{
    QCOMPARE(TavoSim::BuiltInProfiles(), kProfiles);
    for (const QString &name : kProfiles) {
        QString error;
        QVERIFY2(TavoSim::LoadProfile(name, &error), qPrintable(error));
        QCOMPARE(TavoSim::CurrentProfileName(), name);
        QVERIFY(!TavoSim::CurrentProfile().value("description").toString().isEmpty());
    }
}

/* Which records each profile answers: 0 success, N not offered, F fails. */
void tst_SimTarget::answers_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("result");
    const QList<QPair<QString, QString>> table = {
        //                      option chipId capability rfCapability multiRat lte gsmEx3 gsmEx2 gsmRfId fddRfId
        {"default", "0000000000"},
        {"c2k-modem", "0000000000"},
        {"no-tdscdma", "0000000000"},
        {"query-failure", "0000F00000"},
        {"legacy-v1", "0000NN000N"},
        {"capability-failure", "00F0NN000N"},
        {"modern-l1", "000000NNNN"},
        {"rf-chip-id-zero", "0000NNNNNN"},
        {"bare", "N00NNNNNNN"},
        {"v1-pathloss-v2", "000000000N"},
    };
    for (const auto &row : table) {
        for (int i = 0; i < kRecords.size(); ++i) {
            const QChar c = row.second.at(i);
            const int result = c == '0' ? TAVO_OK : c == 'N' ? TAVO_ERR_NOT_SUPPORTED : TAVO_ERR_FAILED;
            QTest::addRow("%s %s", qPrintable(row.first), qPrintable(kRecords[i]))
                << row.first << kRecords[i] << result;
        }
    }
}

/* A failing call leaves the caller's buffer as it was. */
void tst_SimTarget::answers()
{
    QFETCH(QString, profile);
    QFETCH(QString, record);
    QFETCH(int, result);
    QVERIFY(TavoSim::LoadProfile(profile));
    const Answer answer = fetch(record);
    QCOMPARE(answer.result, result);
    if (result != TAVO_OK)
        QVERIFY(answer.untouched());
}

/* One raw field per row, read by offset: from a built-in profile, or from a
 * patch over "default" (a patch with a "name" is a whole custom profile). */
void tst_SimTarget::fields_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("offset");
    QTest::addColumn<quint32>("value");
    auto row = [](const char *tag, const char *profile, const char *record, int offset, quint32 value) {
        QTest::newRow(tag) << profile << record << offset << value;
    };
    /* capabilityFlags: 3 TADC by cal command, 4 RF capability, 6 DSP Q3, 8 RX extend, 9 path loss V3;
     * bandFlags: a 0, b 1, c 2, d 3, f 4, e 5 */
    row("default flags", "default", "capability", 0, 0x350);
    row("default bands", "default", "capability", 4, 0x3f);
    row("legacy flags", "legacy-v1", "capability", 0, 0x018);
    row("v1 flags", "v1-pathloss-v2", "capability", 0, 0x118);
    row("band e alone", R"({"tdscdma": {"bands": ["e"]}})", "capability", 4, 1u << 5);
    row("default TX CLPC", "default", "rfCapability", 24, validWord(1));
    row("default NVRAM version", "default", "rfCapability", 40, validWord(2));
    row("legacy NVRAM version invalid", "legacy-v1", "rfCapability", 40, 0);
    row("v1 NVRAM version", "v1-pathloss-v2", "rfCapability", 40, validWord(1));
    row("TX CLPC mode 5", R"({"tdscdma": {"rfCapability": {"txClpcMode": 5}}})", "rfCapability", 24, validWord(5));
    row("default self-cal V2", "default", "multiRat", 24, 1 | TD << 2);
    row("default world mode", "default", "multiRat", 44, validWord(GSM | TD | LTE));
    row("no-tdscdma world mode", "no-tdscdma", "multiRat", 44, validWord(GSM | FDD | LTE));
    row("modern TADC by L1", "modern-l1", "multiRat", 52, 1 | 2 << 2);
    row("modern AFC by L1", "modern-l1", "multiRat", 68, 1 | 3 << 2);
    row("modern GPS version", "modern-l1", "multiRat", 112, validWord(3));
    row("v1 self-cal V1", "v1-pathloss-v2", "multiRat", 20, validWord(TD));
    row("v1 world mode invalid", "v1-pathloss-v2", "multiRat", 44, 0);
    row("world mode lte", R"({"multiRat": {"worldMode": ["lte"]}})", "multiRat", 44, validWord(LTE));
    row("world mode empty", R"({"multiRat": {"worldMode": []}})", "multiRat", 44, validWord(0));
    row("self-cal V2 without RATs", R"({"multiRat": {"selfCal": null}})", "multiRat", 24, 1);
    row("AFC version 8 bits", R"({"multiRat": {"afcByL1": true, "afcVersion": 255}})", "multiRat", 68,
        1 | 255u << 2);
    row("RFICs without TADC by L1", R"({"multiRat": {"rficCount": 8}})", "multiRat", 52, 8u << 2);
    row("default GSM world mode", "default", "gsmEx3", 72, validWord(GSM | TD));
    row("no-tdscdma GSM world mode", "no-tdscdma", "gsmEx3", 72, validWord(GSM | FDD));
    row("GSM world mode null: offered, invalid", R"({"gsm": {"worldMode": null}})", "gsmEx3", 72, 0);
    row("default Ex2", "default", "gsmEx2", 0, 3u << 14);
    row("legacy Ex2 single read", "legacy-v1", "gsmEx2", 0, 1u << 15);
    row("default LTE RF id", "default", "lte", 8, 5);
    row("modern LTE RF id 0", "modern-l1", "lte", 8, 0);
    row("LTE RF id full width", R"({"lte": {"rfId": 4294967295}})", "lte", 8, 0xffffffffu);
    row("offered without its section", R"({"name": "x", "commands": {"offered": ["TAVO_ERf_GetRfCapability_r"]}})",
        "lte", 8, 0);
    row("default option", "default", "option", 0, TAVO_OPTION_TDSCDMA_CAPABILITY);
    row("option bit 2 clear", R"({"optionInfo": {"tdscdmaCapability": false}})", "option", 0, 0);
    row("default chip ids", "default", "chipId", 0, 16u << 16 | 26752);
    row("rf-zero chip ids", "rf-chip-id-zero", "chipId", 0, 26752);
    row("default GSM RF id", "default", "gsmRfId", 0, 3);
    row("default FDD RF id", "default", "fddRfId", 0, 2);
}

void tst_SimTarget::fields()
{
    QFETCH(QString, profile);
    QFETCH(QString, record);
    QFETCH(int, offset);
    QString error;
    const QJsonObject patch = json(profile.toUtf8());
    if (!profile.startsWith('{'))
        QVERIFY(TavoSim::LoadProfile(profile, &error));
    else if (patch.contains("name"))
        QVERIFY2(TavoSim::LoadProfileObject(patch, &error), qPrintable(error));
    else
        QVERIFY2(TavoSim::PatchProfile(patch, &error), qPrintable(error));
    const Answer answer = fetch(record);
    QCOMPARE(answer.result, TAVO_OK);
    const quint32 raw = record == "gsmEx3" ? u16At(answer.bytes, offset) : u32At(answer.bytes, offset);
    QTEST(raw, "value");
}

/* The bytes of a record that carry no field are zero, with every field of
 * the record set. */
void tst_SimTarget::unusedBytesAreZero_data()
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

void tst_SimTarget::unusedBytesAreZero()
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
    QVERIFY(TavoSim::PatchProfile(json(all)));
    QByteArray bytes = fetch(record).bytes;
    for (int i = 0; i + 1 < fields.size(); i += 2) {
        QVERIFY(bytes.mid(fields[i], fields[i + 1]) != QByteArray(fields[i + 1], '\0'));
        bytes.replace(fields[i], fields[i + 1], QByteArray(fields[i + 1], '\0'));
    }
    QCOMPARE(bytes, QByteArray(bytes.size(), '\0'));
}

void tst_SimTarget::connection_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<int>("activeIndex");
    QTest::addColumn<int>("service");
    QTest::newRow("default") << "default" << 0 << int(TAVO_MD_SRV_3GPP);
    QTest::newRow("c2k-modem") << "c2k-modem" << 1 << int(TAVO_MD_SRV_C2K);
    QTest::newRow("irat by name") << R"({"modem": {"service": "irat"}})" << 0 << int(TAVO_MD_SRV_IRAT);
    QTest::newRow("by number") << R"({"modem": {"activeIndex": 2, "service": 7}})" << 2 << 7;
}

/* Only the active modem has a service; any other index is refused. */
void tst_SimTarget::connection()
{
    QFETCH(QString, profile);
    QFETCH(int, activeIndex);
    if (profile.startsWith('{'))
        QVERIFY(TavoSim::LoadProfileObject(json(profile.toUtf8())));
    else
        QVERIFY(TavoSim::LoadProfile(profile));
    int index = -1;
    QCOMPARE(TavoConn_GetMdActiveIdx(0, &index), TAVO_OK);
    QCOMPARE(index, activeIndex);
    int service = -1;
    QCOMPARE(TavoConn_GetMdSrv(0, index, &service), TAVO_OK);
    QTEST(service, "service");
    QCOMPARE(TavoConn_GetMdSrv(0, index + 1, &service), TAVO_ERR_INVALID_ARGUMENT);
}

void tst_SimTarget::supportQueries_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("result");
    const int ok = TAVO_OK, no = TAVO_ERR_NOT_SUPPORTED;
    QTest::newRow("default MMRf") << "default" << "TAVO_MMRf_GetRfCapability_r" << ok;
    QTest::newRow("legacy MMRf") << "legacy-v1" << "TAVO_MMRf_GetRfCapability_r" << no;
    QTest::newRow("failing MMRf still offered") << "query-failure" << "TAVO_MMRf_GetRfCapability_r" << ok;
    QTest::newRow("bare option") << "bare" << "TAVO_Util_QueryTargetOptionInfo" << no;
    QTest::newRow("modern Ex3") << "modern-l1" << "TAVO_Rf_QueryMSCapabilityEx3_r" << no;
    QTest::newRow("default agc_ex") << "default" << "AST_CAL_agc_ex_r" << ok;
    QTest::newRow("legacy agc_ex") << "legacy-v1" << "AST_CAL_agc_ex_r" << no;
    QTest::newRow("legacy plain agc") << "legacy-v1" << "AST_CAL_agc_r" << ok;
    QTest::newRow("v1 apc_start_ex") << "v1-pathloss-v2" << "AST_CAL_apc_start_ex_r" << no;
    QTest::newRow("failing capability offered") << "capability-failure" << "AST_CAL_get_capability_r" << ok;
    QTest::newRow("unknown command") << "default" << "TAVO_MISC_GetIMEIRecNum_r" << no;
    QTest::newRow("AST name asked as TAVO") << "default" << "AST_CAL_get_chipid_r" << no;
    QTest::newRow("TAVO name asked as AST") << "default" << "TAVO_MMRf_GetRfCapability_r" << no;
}

/* Each query answers for its own prefix only: the "asked as" rows go to the
 * other query. */
void tst_SimTarget::supportQueries()
{
    QFETCH(QString, profile);
    QFETCH(QString, name);
    QVERIFY(TavoSim::LoadProfile(profile));
    const QByteArray api = name.toLatin1();
    const bool asked = QByteArray(QTest::currentDataTag()).contains("asked as");
    const bool viaTavo = name.startsWith("TAVO_") != asked;
    const TAVO_RESULT result = viaTavo ? TAVO_QueryAPISupported_r(0, 10000, api.constData())
                                       : AST_CAL_QueryAPISupported_r(0, 10000, api.constData());
    QTEST(int(result), "result");
}

void tst_SimTarget::argumentChecks_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("result");
    const int invalid = TAVO_ERR_INVALID_ARGUMENT;
    QTest::newRow("query without a name") << "query null" << invalid;
    QTest::newRow("chip id without RF out") << "chipid null" << invalid;
    QTest::newRow("RF capability buffer short") << "rf 47" << invalid;
    QTest::newRow("RF capability buffer longer") << "rf 64" << int(TAVO_OK);
    QTest::newRow("MMRf request of other words") << "mmrf 4,133" << invalid;
    QTest::newRow("MMRf record short") << "mmrf record 143" << invalid;
    QTest::newRow("ERf with the MMRf request") << "erf 4,132" << invalid;
    QTest::newRow("handle 1") << "handle 1" << int(TAVO_ERR_NOT_CONNECTED);
}

void tst_SimTarget::argumentChecks()
{
    QFETCH(QString, call);
    QByteArray buffer(300, kUntouched);
    uint32_t request[2] = {4, 132};
    if (call == "mmrf 4,133")
        request[1] = 133;
    uint16_t id = 0;
    TAVO_RESULT result = -1;
    if (call == "query null")
        result = TAVO_QueryAPISupported_r(0, 10000, nullptr);
    else if (call == "chipid null")
        result = AST_CAL_get_chipid_r(0, 10000, &id, nullptr);
    else if (call.startsWith("rf "))
        result = AST_GetRfCapability_r(0, 10000, buffer.data(), call.mid(3).toUInt());
    else if (call == "mmrf 4,133")
        result = TAVO_MMRf_GetRfCapability_r(0, 10000, request, 8, buffer.data(), 144);
    else if (call == "mmrf record 143")
        result = TAVO_MMRf_GetRfCapability_r(0, 10000, request, 8, buffer.data(), 143);
    else if (call == "erf 4,132")
        result = TAVO_ERf_GetRfCapability_r(0, 10000, request, 8, buffer.data(), 248);
    else if (call == "handle 1")
        result = TAVO_Rf_QueryMSCapabilityEx2_r(1, 10000, buffer.data(), 8);
    QTEST(int(result), "result");
    if (result != TAVO_OK)
        QCOMPARE(buffer.count(kUntouched), buffer.size());
    else
        QCOMPARE(buffer.count(kUntouched), buffer.size() - 48); /* exactly the record written */
}

void tst_SimTarget::badProfile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("not JSON, offset") << QByteArray("{\"name\" \"x\"}") << "at offset 9";
    QTest::newRow("not an object") << QByteArray("[1, 2]") << "must be a JSON object";
    QTest::newRow("unknown key") << QByteArray(R"({"colour": "red"})") << "colour: unknown key";
    QTest::newRow("unknown nested key") << QByteArray(R"({"tdscdma": {"bandz": []}})") << "tdscdma.bandz: unknown key";
    QTest::newRow("number for a flag") << QByteArray(R"({"tdscdma": {"agcEx": 1}})") << "tdscdma.agcEx: expected true";
    QTest::newRow("string for a flag") << QByteArray(R"({"tdscdma": {"rfCapability": {"ubin": "yes"}}})")
                                       << "tdscdma.rfCapability.ubin: expected true";
    QTest::newRow("unknown band") << QByteArray(R"({"tdscdma": {"bands": ["a", "g"]}})")
                                  << "tdscdma.bands[1]: unknown band \"g\"";
    QTest::newRow("unknown RAT") << QByteArray(R"({"multiRat": {"worldMode": ["umts"]}})")
                                 << "multiRat.worldMode[0]: unknown RAT";
    QTest::newRow("chip id out of range") << QByteArray(R"({"chipId": {"rf": 70000}})") << "chipId.rf: expected";
    QTest::newRow("fraction") << QByteArray(R"({"multiRat": {"rficCount": 1.5}})") << "multiRat.rficCount";
    QTest::newRow("unknown service") << QByteArray(R"({"modem": {"service": "gsm"}})") << "modem.service";
    QTest::newRow("section not an object") << QByteArray(R"({"lte": 5})") << "lte: expected an object";
    QTest::newRow("fault without call") << QByteArray(R"({"faults": [{"result": 1}]})") << "faults[0].call";
    QTest::newRow("not a command name") << QByteArray(R"({"commands": {"withheld": ["GetRfCapability"]}})")
                                        << "commands.withheld[0]";
}

/* A profile that does not load leaves the current one, its state and its
 * log alone. */
void tst_SimTarget::badProfile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    uint16_t mode = 1;
    QCOMPARE(AST_UBIN_MODE_SETUP_r(0, 10000, &mode), TAVO_OK);

    QFile file(m_dir.filePath("bad.json"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();
    QString message;
    QVERIFY(!TavoSim::LoadProfile(file.fileName(), &message));
    QVERIFY2(message.contains(error), qPrintable(message));

    QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("default"));
    QVERIFY(TavoSim::IsUbinEnabled());
    QCOMPARE(TavoSim::CallCount("AST_UBIN_MODE_SETUP_r"), 1);
    QCOMPARE(u32At(fetch("chipId").bytes, 0), 16u << 16 | 26752);
}

void tst_SimTarget::profileFile()
{
    QString error;
    QVERIFY(!TavoSim::LoadProfile(m_dir.filePath("missing.json"), &error));
    QVERIFY2(error.contains("missing.json"), qPrintable(error));

    QFile file(m_dir.filePath("tiny-target.json"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(R"({"tdscdma": {"bands": ["e"]}})");
    file.close();
    QVERIFY2(TavoSim::LoadProfile(file.fileName(), &error), qPrintable(error));
    QCOMPARE(TavoSim::CurrentProfileName(), QStringLiteral("tiny-target"));
    QCOMPARE(u32At(fetch("capability").bytes, 4), 1u << 5);
    QCOMPARE(fetch("chipId").result, TAVO_ERR_NOT_SUPPORTED);
}

QTEST_GUILESS_MAIN(tst_SimTarget)
#include "tst_SimTarget.moc"
