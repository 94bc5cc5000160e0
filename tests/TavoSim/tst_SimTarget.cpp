/* What the built-in and custom profiles make the simulated target answer. */

#include <QJsonArray>
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

/* Offsets of the multi-RAT record's fields; all other bytes are zero. */
const QList<int> kMultiRatOffsets = {20, 24, 44, 52, 68, 100, 108, 112, 124};

/* Mask bits: gsm 0, tdscdma 1, c2k 2, fdd 3, ltefdd 4, ltetdd 5. */
constexpr quint32 GSM = 1u << 0, TD = 1u << 1, C2K = 1u << 2, FDD = 1u << 3, LTE = 3u << 4;

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
    void tdscdmaCapability_data();
    void tdscdmaCapability();
    void multiRatRecord_data();
    void multiRatRecord();
    void otherRats_data();
    void otherRats();
    void connection_data();
    void connection();
    void supportQueries_data();
    void supportQueries();
    void encoding_data();
    void encoding();
    void argumentChecks_data();
    void argumentChecks();
    void ubinMode();
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

void tst_SimTarget::tdscdmaCapability_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<quint32>("flags");
    QTest::addColumn<quint32>("bands");
    QTest::addColumn<quint32>("txClpcMode"); /* the raw words at 24, 36, 40 */
    QTest::addColumn<quint32>("ubin");
    QTest::addColumn<quint32>("nvramVersion");
    /* flags: 3 TADC by cal command, 4 RF capability, 6 DSP Q3, 8 RX extend, 9 path loss V3;
     * bands: a 0, b 1, c 2, d 3, f 4, e 5 */
    QTest::newRow("default") << "default" << 0x350u << 0x3fu << validWord(1) << 1u << validWord(2);
    QTest::newRow("legacy-v1") << "legacy-v1" << 0x018u << 0x03u << 0u << 0u << 0u;
    QTest::newRow("modern-l1") << "modern-l1" << 0x350u << 0x3fu << validWord(1) << 1u << validWord(2);
    QTest::newRow("rf-chip-id-zero") << "rf-chip-id-zero" << 0x010u << 0x01u << 0u << 0u << 0u;
    QTest::newRow("v1-pathloss-v2") << "v1-pathloss-v2" << 0x118u << 0x1cu << validWord(1) << 1u << validWord(1);
}

void tst_SimTarget::tdscdmaCapability()
{
    QFETCH(QString, profile);
    QVERIFY(TavoSim::LoadProfile(profile));
    const Answer capability = fetch("capability");
    QCOMPARE(capability.result, TAVO_OK);
    QTEST(u32At(capability.bytes, 0), "flags");
    QTEST(u32At(capability.bytes, 4), "bands");

    const Answer rf = fetch("rfCapability");
    QCOMPARE(rf.result, TAVO_OK);
    QTEST(u32At(rf.bytes, 24), "txClpcMode");
    QTEST(u32At(rf.bytes, 36), "ubin");
    QTEST(u32At(rf.bytes, 40), "nvramVersion");
    QVERIFY(zeroBesides(rf.bytes, {{24, 4}, {36, 4}, {40, 4}}));
}

void tst_SimTarget::multiRatRecord_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<QList<quint32>>("words"); /* at kMultiRatOffsets */
    //                        selfCal      selfCalV2       worldMode                 tadc           afc
    //                        dcxo gpsByL1 gpsVersion   mmrfSelfCal
    QTest::newRow("default") << "default"
                             << QList<quint32>{0, 1 | TD << 2, validWord(GSM | TD | LTE), 0, 0, 1, 0, 0, 1};
    QTest::newRow("c2k-modem") << "c2k-modem"
                               << QList<quint32>{0, 1 | TD << 2, validWord(GSM | TD | LTE), 0, 0, 1, 0, 0, 1};
    QTest::newRow("no-tdscdma") << "no-tdscdma"
                                << QList<quint32>{0, 1 | GSM << 2, validWord(GSM | FDD | LTE), 0, 0, 1, 0, 0, 1};
    QTest::newRow("modern-l1") << "modern-l1"
                               << QList<quint32>{0, 1 | TD << 2, validWord(GSM | TD | LTE), 1 | 2 << 2, 1 | 3 << 2,
                                                 1, 1, validWord(3), 1};
    QTest::newRow("v1-pathloss-v2") << "v1-pathloss-v2" << QList<quint32>{validWord(TD), 0, 0, 0, 0, 0, 0, 0, 0};
}

void tst_SimTarget::multiRatRecord()
{
    QFETCH(QString, profile);
    QFETCH(QList<quint32>, words);
    QVERIFY(TavoSim::LoadProfile(profile));
    const Answer answer = fetch("multiRat");
    QCOMPARE(answer.result, TAVO_OK);
    for (int i = 0; i < kMultiRatOffsets.size(); ++i) {
        QVERIFY2(u32At(answer.bytes, kMultiRatOffsets[i]) == words[i],
                 qPrintable(QStringLiteral("@%1: %2, expected %3")
                                .arg(kMultiRatOffsets[i])
                                .arg(u32At(answer.bytes, kMultiRatOffsets[i]), 0, 16)
                                .arg(words[i], 0, 16)));
    }
    QByteArray rest = answer.bytes;
    for (int offset : kMultiRatOffsets)
        rest.replace(offset, 4, QByteArray(4, '\0'));
    QCOMPARE(rest, QByteArray(144, '\0'));
}

void tst_SimTarget::otherRats_data()
{
    QTest::addColumn<QString>("profile");
    QTest::addColumn<quint32>("option");
    QTest::addColumn<quint32>("chipIds"); /* rf << 16 | chip */
    QTest::addColumn<quint32>("gsmWorldMode");
    QTest::addColumn<quint32>("gsmEx2");
    QTest::addColumn<quint32>("lteRfId");
    QTest::addColumn<quint32>("gpsByErf");
    QTest::addColumn<quint32>("gsmRfId");
    QTest::addColumn<quint32>("fddRfId");
    /* Only the answers a profile gives are compared (see answers()). */
    const quint32 both = 3u << 14, single = 1u << 15;
    QTest::newRow("default") << "default" << 4u << (16u << 16 | 26752) << validWord(GSM | TD) << both << 5u << 1u
                             << 3u << 2u;
    QTest::newRow("no-tdscdma") << "no-tdscdma" << 4u << (16u << 16 | 26752) << validWord(GSM | FDD) << both << 5u
                                << 1u << 3u << 2u;
    QTest::newRow("legacy-v1") << "legacy-v1" << 4u << (3u << 16 | 26752) << validWord(GSM | TD) << single << 0u
                               << 0u << 1u << 0u;
    QTest::newRow("modern-l1") << "modern-l1" << 4u << (16u << 16 | 26752) << 0u << 0u << 0u << 0u << 0u << 0u;
    QTest::newRow("rf-chip-id-zero") << "rf-chip-id-zero" << 4u << 26752u << 0u << 0u << 0u << 0u << 0u << 0u;
    QTest::newRow("bare") << "bare" << 0u << (3u << 16 | 26752) << 0u << 0u << 0u << 0u << 0u << 0u;
    QTest::newRow("v1-pathloss-v2") << "v1-pathloss-v2" << 4u << (32u << 16 | 26752) << validWord(GSM | TD) << both
                                    << 5u << 1u << 2u << 0u;
}

void tst_SimTarget::otherRats()
{
    QFETCH(QString, profile);
    QVERIFY(TavoSim::LoadProfile(profile));
    if (fetch("option").result == TAVO_OK)
        QTEST(u32At(fetch("option").bytes, 0), "option");
    if (fetch("chipId").result == TAVO_OK)
        QTEST(u32At(fetch("chipId").bytes, 0), "chipIds");
    const Answer ex3 = fetch("gsmEx3");
    if (ex3.result == TAVO_OK) {
        QTEST(quint32(u16At(ex3.bytes, 72)), "gsmWorldMode");
        QVERIFY(zeroBesides(ex3.bytes, {{72, 2}}));
    }
    if (fetch("gsmEx2").result == TAVO_OK)
        QTEST(u32At(fetch("gsmEx2").bytes, 0), "gsmEx2");
    const Answer lte = fetch("lte");
    if (lte.result == TAVO_OK) {
        QTEST(u32At(lte.bytes, 8), "lteRfId");
        QTEST(u32At(lte.bytes, 112), "gpsByErf");
        QVERIFY(zeroBesides(lte.bytes, {{8, 4}, {112, 4}}));
    }
    if (fetch("gsmRfId").result == TAVO_OK)
        QTEST(u32At(fetch("gsmRfId").bytes, 0), "gsmRfId");
    if (fetch("fddRfId").result == TAVO_OK)
        QTEST(u32At(fetch("fddRfId").bytes, 0), "fddRfId");
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
    QTest::newRow("default option") << "default" << "TAVO_Util_QueryTargetOptionInfo" << ok;
    QTest::newRow("bare option") << "bare" << "TAVO_Util_QueryTargetOptionInfo" << no;
    QTest::newRow("default Ex2") << "default" << "TAVO_Rf_QueryMSCapabilityEx2_r" << ok;
    QTest::newRow("modern Ex3") << "modern-l1" << "TAVO_Rf_QueryMSCapabilityEx3_r" << no;
    QTest::newRow("modern ERf") << "modern-l1" << "TAVO_ERf_GetRfCapability_r" << ok;
    QTest::newRow("default agc_ex") << "default" << "AST_CAL_agc_ex_r" << ok;
    QTest::newRow("legacy agc_ex") << "legacy-v1" << "AST_CAL_agc_ex_r" << no;
    QTest::newRow("legacy plain agc") << "legacy-v1" << "AST_CAL_agc_r" << ok;
    QTest::newRow("v1 apc_start_ex") << "v1-pathloss-v2" << "AST_CAL_apc_start_ex_r" << no;
    QTest::newRow("v1 agc_ex") << "v1-pathloss-v2" << "AST_CAL_agc_ex_r" << ok;
    QTest::newRow("failing capability offered") << "capability-failure" << "AST_CAL_get_capability_r" << ok;
    QTest::newRow("bare chip id") << "bare" << "AST_CAL_get_chipid_r" << ok;
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

/* Single switches over the default profile (or a whole custom profile when
 * the patch names one): one raw field each. */
void tst_SimTarget::encoding_data()
{
    QTest::addColumn<QByteArray>("patch");
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("offset");
    QTest::addColumn<quint32>("value");
    QTest::newRow("world mode lte is both LTE bits")
        << QByteArray(R"({"multiRat": {"worldMode": ["lte"]}})") << "multiRat" << 44 << validWord(LTE);
    QTest::newRow("world mode c2k and ltetdd")
        << QByteArray(R"({"multiRat": {"worldMode": ["c2k", "ltetdd"]}})") << "multiRat" << 44
        << validWord(C2K | 1u << 5);
    QTest::newRow("world mode null is invalid")
        << QByteArray(R"({"multiRat": {"worldMode": null}})") << "multiRat" << 44 << 0u;
    QTest::newRow("world mode empty is valid")
        << QByteArray(R"({"multiRat": {"worldMode": []}})") << "multiRat" << 44 << validWord(0);
    QTest::newRow("self-cal V1 word at 20")
        << QByteArray(R"({"multiRat": {"selfCalV2": false, "selfCal": ["gsm", "tdscdma"]}})") << "multiRat" << 20
        << validWord(GSM | TD);
    QTest::newRow("self-cal V1 leaves 24 clear")
        << QByteArray(R"({"multiRat": {"selfCalV2": false}})") << "multiRat" << 24 << 0u;
    QTest::newRow("self-cal V2 without RATs")
        << QByteArray(R"({"multiRat": {"selfCal": null}})") << "multiRat" << 24 << 1u;
    QTest::newRow("AFC version takes 8 bits")
        << QByteArray(R"({"multiRat": {"afcByL1": true, "afcVersion": 255}})") << "multiRat" << 68 << (1u | 255u << 2);
    QTest::newRow("RFIC count without TADC by L1")
        << QByteArray(R"({"multiRat": {"rficCount": 8}})") << "multiRat" << 52 << (8u << 2);
    QTest::newRow("GPS co-clock version 1")
        << QByteArray(R"({"multiRat": {"gpsCoClockVersion": 1}})") << "multiRat" << 112 << validWord(1);
    QTest::newRow("TX CLPC mode 5")
        << QByteArray(R"({"tdscdma": {"rfCapability": {"txClpcMode": 5}}})") << "rfCapability" << 24 << validWord(5);
    QTest::newRow("NVRAM version absent is invalid")
        << QByteArray(R"({"tdscdma": {"rfCapability": {"nvramVersion": null}}})") << "rfCapability" << 40 << 0u;
    QTest::newRow("option bit 2 clear")
        << QByteArray(R"({"optionInfo": {"tdscdmaCapability": false}})") << "option" << 0 << 0u;
    QTest::newRow("LTE RF id full width")
        << QByteArray(R"({"lte": {"rfId": 4294967295}})") << "lte" << 8 << 0xffffffffu;
    QTest::newRow("GSM world mode null: Ex3 offered, invalid")
        << QByteArray(R"({"gsm": {"worldMode": null}})") << "gsmEx3" << 72 << 0u;
    QTest::newRow("Ex2 measure sum alone")
        << QByteArray(R"({"gsm": {"ex2": {"tadcSingleRead": false}}})") << "gsmEx2" << 0 << (1u << 14);
    QTest::newRow("offered without a section: zero record")
        << QByteArray(R"({"name": "x", "commands": {"offered": ["TAVO_ERf_GetRfCapability_r"]}})") << "lte" << 8
        << 0u;
}

void tst_SimTarget::encoding()
{
    QFETCH(QByteArray, patch);
    QFETCH(QString, record);
    QFETCH(int, offset);
    QString error;
    const QJsonObject object = json(patch);
    QVERIFY2(object.contains("name") ? TavoSim::LoadProfileObject(object, &error)
                                     : TavoSim::PatchProfile(object, &error),
             qPrintable(error));
    const Answer answer = fetch(record);
    QCOMPARE(answer.result, TAVO_OK);
    const quint32 raw = record == "gsmEx3" ? u16At(answer.bytes, offset) : u32At(answer.bytes, offset);
    QTEST(raw, "value");
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
    QTest::newRow("MMRf request too long") << "mmrf size 12" << invalid;
    QTest::newRow("MMRf record short") << "mmrf record 143" << invalid;
    QTest::newRow("ERf with the MMRf request") << "erf 4,132" << invalid;
    QTest::newRow("Ex2 record short") << "ex2 7" << invalid;
    QTest::newRow("active index null") << "active null" << invalid;
    QTest::newRow("handle 1") << "handle 1" << int(TAVO_ERR_NOT_CONNECTED);
}

void tst_SimTarget::argumentChecks()
{
    QFETCH(QString, call);
    QByteArray buffer(300, kUntouched);
    uint32_t request[3] = {4, 132, 0};
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
    else if (call == "mmrf size 12")
        result = TAVO_MMRf_GetRfCapability_r(0, 10000, request, 12, buffer.data(), 144);
    else if (call == "mmrf record 143")
        result = TAVO_MMRf_GetRfCapability_r(0, 10000, request, 8, buffer.data(), 143);
    else if (call == "erf 4,132")
        result = TAVO_ERf_GetRfCapability_r(0, 10000, request, 8, buffer.data(), 248);
    else if (call == "ex2 7")
        result = TAVO_Rf_QueryMSCapabilityEx2_r(0, 10000, buffer.data(), 7);
    else if (call == "active null")
        result = TavoConn_GetMdActiveIdx(0, nullptr);
    else if (call == "handle 1")
        result = TAVO_Rf_QueryMSCapabilityEx2_r(1, 10000, buffer.data(), 8);
    QTEST(int(result), "result");
    if (result != TAVO_OK)
        QCOMPARE(buffer.count(kUntouched), buffer.size());
    else
        QCOMPARE(buffer.count(kUntouched), buffer.size() - 48); /* exactly the record written */
}

void tst_SimTarget::ubinMode()
{
    uint16_t mode = 1;
    QCOMPARE(AST_UBIN_MODE_SETUP_r(0, 10000, &mode), TAVO_OK);
    QVERIFY(TavoSim::IsUbinEnabled());
    mode = 0;
    QCOMPARE(AST_UBIN_MODE_SETUP_r(0, 10000, &mode), TAVO_OK);
    QVERIFY(!TavoSim::IsUbinEnabled());
    QCOMPARE(AST_CAL_tl1_reset_r(0, 10000), TAVO_OK);

    QVERIFY(TavoSim::LoadProfile("legacy-v1"));
    mode = 1;
    QCOMPARE(AST_UBIN_MODE_SETUP_r(0, 10000, &mode), TAVO_ERR_NOT_SUPPORTED);
    QVERIFY(!TavoSim::IsUbinEnabled());
}

void tst_SimTarget::badProfile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("not JSON") << QByteArray("{\"name\": \"x\",\n") << "not JSON";
    QTest::newRow("not JSON, offset") << QByteArray("{\"name\" \"x\"}") << "at offset 9";
    QTest::newRow("not an object") << QByteArray("[1, 2]") << "must be a JSON object";
    QTest::newRow("unknown key") << QByteArray(R"({"colour": "red"})") << "colour: unknown key";
    QTest::newRow("unknown nested key") << QByteArray(R"({"tdscdma": {"bandz": []}})") << "tdscdma.bandz: unknown key";
    QTest::newRow("unknown key of a fault") << QByteArray(R"({"faults": [{"call": "X", "times": 1}]})")
                                            << "faults[0].times: unknown key";
    QTest::newRow("number for a flag") << QByteArray(R"({"tdscdma": {"agcEx": 1}})") << "tdscdma.agcEx: expected true";
    QTest::newRow("string for a flag") << QByteArray(R"({"tdscdma": {"rfCapability": {"ubin": "yes"}}})")
                                       << "tdscdma.rfCapability.ubin: expected true";
    QTest::newRow("string for bands") << QByteArray(R"({"tdscdma": {"bands": "a"}})") << "tdscdma.bands: expected an";
    QTest::newRow("unknown band") << QByteArray(R"({"tdscdma": {"bands": ["a", "g"]}})")
                                  << "tdscdma.bands[1]: unknown band \"g\"";
    QTest::newRow("number as band") << QByteArray(R"({"tdscdma": {"bands": [1]}})") << "tdscdma.bands[0]";
    QTest::newRow("unknown RAT") << QByteArray(R"({"multiRat": {"worldMode": ["umts"]}})")
                                 << "multiRat.worldMode[0]: unknown RAT";
    QTest::newRow("chip id out of range") << QByteArray(R"({"chipId": {"rf": 70000}})") << "chipId.rf: expected";
    QTest::newRow("fraction") << QByteArray(R"({"multiRat": {"rficCount": 1.5}})") << "multiRat.rficCount";
    QTest::newRow("negative") << QByteArray(R"({"gsm": {"rfId": -1}})") << "gsm.rfId";
    QTest::newRow("unknown service") << QByteArray(R"({"modem": {"service": "gsm"}})") << "modem.service";
    QTest::newRow("section not an object") << QByteArray(R"({"lte": 5})") << "lte: expected an object";
    QTest::newRow("fault without call") << QByteArray(R"({"faults": [{"result": 1}]})") << "faults[0].call";
    QTest::newRow("not a command name") << QByteArray(R"({"commands": {"withheld": ["GetRfCapability"]}})")
                                        << "commands.withheld[0]";
    QTest::newRow("empty name") << QByteArray(R"({"name": ""})") << "name: must not be empty";
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
