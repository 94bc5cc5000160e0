/* The simulated target's NVRAM: the database and the records the target
 * holds (which may disagree), record kinds, transport, the integrity record,
 * the NVRAM file, what the TPC and path loss item tests cannot see of layer
 * 1's commands (refusals, seeds), and the fault selectors. */

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include "TavoApp.h"
#include "TavoSimControl.h"

namespace {

const char kTadc[] = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
const char kCap[] = "NVRAM_EF_AST_TL1_CAP_DATA_LID";
const char kImei[] = "NVRAM_EF_IMEI_IMEISV_LID";
const char kGps[] = "NVRAM_EF_GPS_CO_CLOCK_DATA_LID";

QJsonObject json(const char *text) { return QJsonDocument::fromJson(text).object(); }

/* Loads default with `patch` over it and the database loaded. */
bool useTarget(const QJsonObject &patch = {})
{
    QString error;
    const bool loaded = TavoSim::LoadProfile("default", &error) && TavoSim::PatchProfile(patch, &error);
    if (!loaded)
        qWarning("%s", qPrintable(error));
    TavoSim::LoadDatabase();
    return loaded;
}

TAVO_RESULT transfer(const QString &call, const char *lid, int number, QByteArray &buffer)
{
    auto *bytes = reinterpret_cast<unsigned char *>(buffer.data());
    const uint32_t size = uint32_t(buffer.size());
    if (call == "c2kRead")
        return TAVO_C2K_NVRAM_Read_r(0, 10000, lid, uint16_t(number), bytes, size);
    const SNvramAccessRequest request{lid, uint16_t(number), size, bytes};
    SNvramAccessConfirm confirm{};
    return call == "read" ? TAVO_NVRAM_Read_r(0, 10000, &request, &confirm)
                          : TAVO_NVRAM_Write_r(0, 10000, &request, &confirm);
}

TAVO_RESULT writeRecord(const char *lid, QByteArray bytes) { return transfer("write", lid, 1, bytes); }

/* ---- Layer 1's commands: TX data and RX path loss ---- */

const char *const kTxDacLids[] = {"NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND34_LID",
                                  "NVRAM_EF_AST_TL1_TXDAC_BAND36_LID", "NVRAM_EF_AST_TL1_TXDAC_BAND38_LID",
                                  "NVRAM_EF_AST_TL1_TXDAC_BAND40_LID"};
constexpr int kHead = AST_TAVO_NVRAM_TX_HEAD_SIZE; /* the path loss commands' head is as long */
const QByteArray kUntouched(kHead + AST_TAVO_NVRAM_PATHLOSS_8LEVEL_RECORD_SIZE, '\x5a');

using Command = TAVO_RESULT (*)(int, uint32_t, const void *, void *);
const QMap<QString, Command> kCommands{
    {"TX read", AST_Tavo_NVRAM_TX_Read_r},         {"TX write", AST_Tavo_NVRAM_TX_Write_r},
    {"4-mode read", AST_Tavo_NVRAM_Pathloss_Read_r}, {"4-mode write", AST_Tavo_NVRAM_Pathloss_Write_r},
    {"8-level read", AST_Tavo_NVRAM_Pathloss_8level_Read_r},
    {"8-level write", AST_Tavo_NVRAM_Pathloss_8level_Write_r}};

int u16At(const QByteArray &bytes, int offset) { return qFromLittleEndian<quint16>(bytes.constData() + offset); }

/* The band, the resultCode and the word after it in a confirm's head. */
QList<int> headOf(const QByteArray &confirm) { return {u16At(confirm, 0), u16At(confirm, 4), u16At(confirm, 6)}; }

QByteArray request(int band, int version, int lidCode = 0, const QByteArray &body = {})
{
    const quint16 head[4] = {quint16(band), quint16(version), quint16(lidCode), 0};
    return QByteArray(reinterpret_cast<const char *>(head), kHead) + body;
}

/* The call's result and its confirm, in a buffer that starts untouched; a
 * null request goes as a null pointer. */
QPair<TAVO_RESULT, QByteArray> layer1Call(const QString &command, const QByteArray &request)
{
    QByteArray confirm = kUntouched;
    const TAVO_RESULT result =
        kCommands.value(command)(0, 10000, request.isNull() ? nullptr : request.constData(), confirm.data());
    return {result, confirm};
}

/* The record behind the head of a TX read that was carried out; else empty. */
QByteArray txRead(int band, int lidCode)
{
    const int size = lidCode == AST_TAVO_NVRAM_TX_DAC_READ ? int(AST_TAVO_NVRAM_TX_DAC_SIZE)
                                                           : int(AST_TAVO_NVRAM_TX_CLPC_SIZE);
    const auto answer = layer1Call("TX read", request(band, 2, lidCode));
    const QList<int> carriedOut{band, AST_TAVO_NVRAM_OPER_SUCCESS, 0};
    const bool done = answer.first == TAVO_OK && headOf(answer.second) == carriedOut;
    return done ? answer.second.mid(kHead, size - kHead) : QByteArray();
}

/* Every store of layer 1, TPC and path loss of both generations, one after the other. */
QByteArray layer1Stores()
{
    QByteArray stores;
    for (int band = 0; band < 5; ++band) {
        for (const char *store : {"TPC_TXDAC", "TPC_TXCLPC", "PATHLOSS", "PATHLOSS8"})
            stores += TavoSim::NvramRecord(QStringLiteral("TL1_%1_BAND%2").arg(store).arg(band));
    }
    return stores;
}

template <typename T>
bool risesStrictly(const T *values, int count)
{
    return std::adjacent_find(values, values + count, std::greater_equal<T>()) == values + count;
}

/* Within 1 dB either way. */
bool small(const int16_t *values, int count)
{
    return std::all_of(values, values + count, [](int16_t v) { return std::abs(v) <= 32; });
}

/* The calls the fault selector rows make, and their results. The text call
 * and the call on handle 1 never reach the target. */
QList<int> selectorFlow()
{
    QByteArray tadc(18, '\1'), imei(20, '\2');
    return {TAVO_QueryAPISupported_r(0, 10000, "TAVO_MISC_CalDataIntegrity_StartRec_Ex_r"),
            TAVO_QueryAPISupported_r(0, 10000, "TAVO_NVRAM_Write_r"),
            transfer("write", kTadc, 1, tadc),
            transfer("write", kImei, 1, imei),
            transfer("write", kImei, 2, imei),
            transfer("write", kImei, 2, imei),
            transfer("read", kImei, 2, imei),
            AST_CAL_tl1_reset_r(0, 10000),
            TAVO_GetResultText(0) ? 0 : -1,
            AST_CAL_tl1_reset_r(1, 10000),
            AST_CAL_tl1_reset_r(0, 10000)};
}

} // namespace

class tst_SimNvram : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        TavoSim::SetNvramFile(QString());
        TavoSim::Reset();
    }

    void faultSelectors_data()
    {
        QTest::addColumn<QString>("fault"); /* call, count (-1: all), skip, then the inputs it takes */
        QTest::addColumn<QList<int>>("failing"); /* places in selectorFlow(), from 1 */
        QTest::newRow("by LID") << "TAVO_NVRAM_Write_r 1 0 lid=NVRAM_EF_IMEI_IMEISV_LID" << QList<int>{4};
        QTest::newRow("by record number") << "TAVO_NVRAM_Write_r -1 0 record=2" << QList<int>{5, 6};
        QTest::newRow("every input must match") << "TAVO_NVRAM_Write_r -1 0 lid=NVRAM_EF_AST_TL1_TEMP_DAC_LID record=2"
                                                << QList<int>{};
        QTest::newRow("second matching call") << "TAVO_NVRAM_Write_r 1 1 lid=NVRAM_EF_IMEI_IMEISV_LID" << QList<int>{5};
        QTest::newRow("every call, the ninth") << "* 1 8" << QList<int>{11};
        QTest::newRow("every call with an input") << "* -1 2 record=2" << QList<int>{7};
    }
    /* A fault armed through the control API, or by a profile (on a patch and
     * on every Reset), fails exactly the calls it selects; only those count
     * down its skip, and "*" counts every call that reaches the target.
     * ClearFaults disarms the profile's faults too. */
    void faultSelectors()
    {
        QFETCH(QString, fault);
        QFETCH(QList<int>, failing);
        const QStringList words = fault.split(' ');
        const TavoSim::Fault armed{words[0], words.mid(3), TAVO_ERR_BUSY, words[1].toInt(), words[2].toInt()};
        QJsonObject args; /* in a profile, numbers as numbers */
        for (const QString &arg : armed.args) {
            bool number = false;
            const int value = arg.section('=', 1).toInt(&number);
            args[arg.section('=', 0, 0)] = number ? QJsonValue(value) : QJsonValue(arg.section('=', 1));
        }
        const QJsonObject selector{{"call", armed.call}, {"count", armed.count}, {"skip", armed.skip},
                                   {"args", args},      {"result", TAVO_ERR_BUSY}};

        QVERIFY(useTarget());
        const QList<int> plain = selectorFlow();
        for (const QString how : {"control", "profile", "reset"}) {
            TavoSim::Reset(); /* the profile's faults, from the second round on */
            if (how == "control")
                TavoSim::InjectFault(armed);
            else if (how == "profile")
                QVERIFY(TavoSim::PatchProfile({{"faults", QJsonArray{selector}}}));
            const QList<int> results = selectorFlow();
            QList<int> failed;
            for (int i = 0; i < results.size(); ++i) {
                if (results[i] != plain[i])
                    failed << (results[i] == TAVO_ERR_BUSY ? i + 1 : -i - 1);
            }
            QCOMPARE(failed, failing);
        }
        TavoSim::Reset();
        TavoSim::ClearFaults();
        QCOMPARE(selectorFlow(), plain);
        QList<int> indices;
        for (const TavoSim::CallRecord &record : TavoSim::CallLog())
            indices << record.targetIndex;
        QCOMPARE(indices, (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 9}));
    }

    void databaseAndTarget_data()
    {
        QTest::addColumn<QByteArray>("patch");
        QTest::addColumn<QString>("lid");
        QTest::addColumn<QList<int>>("database"); /* count, size; {} without the LID */
        QTest::addColumn<QList<int>>("target");
        QTest::addColumn<QString>("field"); /* of the last record: a signed 16-bit element, or a character */
        QTest::addColumn<int>("value");
        QTest::newRow("the target follows the database")
            << QByteArray(R"({"database": {"recordCounts": {"NVRAM_EF_IMEI_IMEISV_LID": 11}}})") << kImei
            << QList<int>{11, 20} << QList<int>{11, 20} << "" << 0;
        QTest::newRow("two IMEI records on the target, one in the database, the second seeded")
            << QByteArray(R"({"database": {"recordCounts": {"NVRAM_EF_IMEI_IMEISV_LID": 1}},
                              "nvram": {"target": {"NVRAM_EF_IMEI_IMEISV_LID": {"count": 2}},
                                        "records": {"NVRAM_EF_IMEI_IMEISV_LID": [{}, {"imei": "1234"}]}}})")
            << kImei << QList<int>{1, 20} << QList<int>{2, 20} << "imei[3]" << int('4');
        QTest::newRow("a LID only on the target")
            << QByteArray(R"({"database": {"withoutLids": ["NVRAM_EF_AST_TL1_CAP_DATA_LID"]},
                              "nvram": {"target": {"NVRAM_EF_AST_TL1_CAP_DATA_LID": {}}}})")
            << kCap << QList<int>{} << QList<int>{1, 4} << "" << 0;
        QTest::newRow("a LID only in the database")
            << QByteArray(R"({"nvram": {"target": {"NVRAM_EF_AST_TL1_CAP_DATA_LID": {"count": 0}}}})") << kCap
            << QList<int>{1, 4} << QList<int>{} << "" << 0;
        QTest::newRow("sizes differ")
            << QByteArray(R"({"nvram": {"target": {"NVRAM_EF_GPS_CO_CLOCK_DATA_LID": {"size": 20}}}})") << kGps
            << QList<int>{1, 24} << QList<int>{1, 20} << "" << 0;
        QTest::newRow("a seeded element")
            << QByteArray(R"({"nvram": {"records": {"NVRAM_EF_AST_TL1_TEMP_DAC_LID": {"adc": [1, 2]}}}})") << kTadc
            << QList<int>{1, 18} << QList<int>{1, 18} << "adc[1]" << 2;
    }
    /* The database calls answer from the database, the transport from the
     * target's records, which hold what the profile seeds; a profile can make
     * them disagree. (A field a record kind lacks: tst_SimTarget's profile
     * files.) */
    void databaseAndTarget()
    {
        QFETCH(QByteArray, patch);
        QFETCH(QString, lid);
        QFETCH(QList<int>, database);
        QFETCH(QList<int>, target);
        QFETCH(QString, field);
        QVERIFY(useTarget(json(patch)));
        const QByteArray name = lid.toLatin1();
        int count = 0;
        uint32_t size = 0;
        const TAVO_RESULT known = database.isEmpty() ? TAVO_ERR_LID_NOT_FOUND : TAVO_OK;
        QCOMPARE(TAVO_NVRAM_LidExists(name), known);
        QCOMPARE(TAVO_NVRAM_GetRecordCount(name, &count), known);
        QCOMPARE(TAVO_NVRAM_GetRecordSize(name, &size), known);
        if (known == TAVO_OK)
            QCOMPARE((QList<int>{count, int(size)}), database);

        QByteArray buffer(64, '\0');
        const int last = target.value(0, 1);
        QCOMPARE(transfer("read", name, last, buffer), target.isEmpty() ? TAVO_ERR_LID_NOT_FOUND : TAVO_OK);
        const QByteArray record = TavoSim::NvramRecord(lid, last);
        QCOMPARE(record.size(), target.value(1));
        if (!target.isEmpty())
            QCOMPARE(transfer("write", name, last + 1, buffer), TAVO_ERR_INVALID_ARGUMENT);
        qint16 element = 0;
        const uint32_t held = uint32_t(record.size());
        if (!field.isEmpty()) {
            QCOMPARE(TAVO_NVRAM_GetField(name, field.toLatin1(), record.constData(), held, &element, 2), TAVO_OK);
            QTEST(field.startsWith("imei") ? int(char(element)) : int(element), "value");
        }
    }

    /* A decoded record survives compose and decompose; the raw record holds
     * each field where the database names it; what the raw record lacks (here
     * the max PA power) stays, and a short buffer is refused. (AFC: its item's
     * round trip in tests/Controller/tst_AfcItem; TADC: through the plug-in.) */
    void codecs()
    {
        QVERIFY(useTarget(json(R"({"database": {"maxPaPowerBandGroups": []}})")));
        constexpr int decodedSize = sizeof(TavoTxDacRecord), held = offsetof(TavoTxDacRecord, maxPower);
        QByteArray decoded(decodedSize, '\0');
        for (int i = 0; i < decodedSize; ++i)
            decoded[i] = char(i * 37 + 11);
        const auto *record = reinterpret_cast<const TavoTxDacRecord *>(decoded.constData());
        uint32_t size = 0;
        QCOMPARE(TAVO_NVRAM_GetRecordSize(kTxDacLids[0], &size), TAVO_OK);
        QByteArray raw(int(size), '\0');
        QCOMPARE(TAVO_NVRAM_ComposeTxDac(record, raw.data(), size), TAVO_OK);
        QVERIFY(raw != decoded.left(raw.size()));

        char value[2] = {};
        QCOMPARE(TAVO_NVRAM_GetField(kTxDacLids[0], "hysteresisEnd1", raw.constData(), size, value, 2), TAVO_OK);
        QCOMPARE(QByteArray(value, 2), decoded.mid(offsetof(TavoTxDacRecord, hysteresisEnd1), 2));

        QByteArray back(decodedSize, '\x5a');
        QCOMPARE(TAVO_NVRAM_DecomposeTxDac(reinterpret_cast<TavoTxDacRecord *>(back.data()), raw.constData(), size),
                 TAVO_OK);
        QCOMPARE(back.left(held), decoded.left(held));
        QCOMPARE(back.mid(held), QByteArray(decodedSize - held, '\x5a'));
        QCOMPARE(TAVO_NVRAM_ComposeTxDac(record, raw.data(), uint32_t(held / 2)), TAVO_ERR_BUFFER_TOO_SMALL);
    }

    void transport_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("call");
        QTest::addColumn<QString>("lid");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("extra"); /* buffer bytes beyond the record's size */
        QTest::addColumn<int>("result");
        const int tooSmall = TAVO_ERR_BUFFER_TOO_SMALL, unsupported = TAVO_ERR_NOT_SUPPORTED;
        QTest::newRow("read, larger buffer") << "default" << "read" << kTadc << 1 << 4 << 0;
        QTest::newRow("read, smaller buffer") << "default" << "read" << kTadc << 1 << -1 << tooSmall;
        QTest::newRow("write, smaller buffer") << "default" << "write" << kImei << 2 << -1 << tooSmall;
        QTest::newRow("C2K read on a 3GPP modem") << "default" << "c2kRead" << kTadc << 1 << 0 << unsupported;
        QTest::newRow("layer-1 store") << "default" << "read" << "TL1_TPC_TXDAC_BAND0" << 1 << 0
                                       << int(TAVO_ERR_LID_NOT_FOUND);
        QTest::newRow("3GPP write on a C2K modem") << "c2k-modem" << "write" << kTadc << 1 << 0 << unsupported;
    }
    /* A transfer moves exactly the record or nothing; a reset brings back the
     * profile's records. (Faults in a batch: tests/Controller/tst_NvramMan.) */
    void transport()
    {
        QFETCH(QString, profile);
        QFETCH(QString, call);
        QFETCH(QString, lid);
        QFETCH(int, number);
        QFETCH(int, extra);
        QFETCH(int, result);
        QVERIFY(TavoSim::LoadProfile(profile));
        const bool write = call.endsWith("rite");
        const QByteArray before = TavoSim::NvramRecord(lid, number);
        QByteArray buffer(before.size() + extra, '\x5a');
        for (int i = 0; write && i < buffer.size(); ++i)
            buffer[i] = char(i + 1);
        const QByteArray sent = buffer;

        QCOMPARE(int(transfer(call, lid.toLatin1(), number, buffer)), result);
        const QByteArray after = TavoSim::NvramRecord(lid, number);
        if (write) {
            QCOMPARE(after, result == TAVO_OK ? sent.left(before.size()) : before);
            TavoSim::Reset();
            QCOMPARE(TavoSim::NvramRecord(lid, number), before);
        } else {
            QCOMPARE(after, before);
            QCOMPARE(buffer, result == TAVO_OK ? before + QByteArray(extra, '\x5a') : sent);
        }
    }

    /* The record counts the writes between start and stop, and is never nested;
     * the log tells which record each call fell in. */
    void integrityRecord()
    {
        QVERIFY(useTarget());
        uint32_t status = 99;
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StopRec_Ex_r(0, 10000, &status), TAVO_ERR_FAILED);
        QVERIFY(writeRecord(kTadc, QByteArray(18, '\1')) == TAVO_OK);

        QCOMPARE(TAVO_MISC_CalDataIntegrity_StartRec_Ex_r(0, 10000), TAVO_OK);
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StartRec_r(0, 10000), TAVO_ERR_BUSY);
        QVERIFY(writeRecord(kTadc, QByteArray(18, '\2')) == TAVO_OK);
        QVERIFY(writeRecord(kCap, QByteArray(4, '\3')) == TAVO_OK);
        QVERIFY(writeRecord(kCap, QByteArray(3, '\3')) != TAVO_OK);
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StopRec_r(0, 10000, &status), TAVO_OK);
        QCOMPARE(status, 2u);
        QVERIFY(writeRecord(kTadc, QByteArray(18, '\4')) == TAVO_OK);
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StartRec_r(0, 10000), TAVO_OK);
        QVERIFY(writeRecord(kTadc, QByteArray(18, '\5')) == TAVO_OK);

        QString scopes;
        for (const TavoSim::CallRecord &record : TavoSim::CallLog())
            scopes += QString::number(record.integrityScope);
        QCOMPARE(scopes, QStringLiteral("00011111002"));
        TavoSim::Reset();
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StartRec_r(0, 10000), TAVO_OK);
        QVERIFY(writeRecord(kTadc, QByteArray(18, '\6')) == TAVO_OK);
        QCOMPARE(TavoSim::CallLog().last().integrityScope, 1);
    }

    /* The file's records, layer 1's TPC data among them, come back with every
     * reset and profile load, where they fit the target (a patch that resizes
     * the TX DAC records leaves layer 1's alone), and when the file is opened
     * again, as by the next host process; without the file the target starts
     * from the profile. */
    void fileOutlivesReset()
    {
        QTemporaryDir dir;
        QVERIFY(useTarget());
        const int dacRead = AST_TAVO_NVRAM_TX_DAC_READ;
        const QByteArray profileGps = TavoSim::NvramRecord(kGps), seededTx = txRead(1, dacRead);
        QVERIFY(TavoSim::SetNvramFile(dir.filePath("nvram.json")));
        const QByteArray gps(24, '\7'), tx(seededTx.size(), '\6');
        QCOMPARE(writeRecord(kGps, gps), TAVO_OK);
        QCOMPARE(layer1Call("TX write", request(1, 2, AST_TAVO_NVRAM_TX_DAC_WRITE, tx)).first, TAVO_OK);

        TavoSim::Reset();
        QCOMPARE(TavoSim::NvramRecord(kGps), gps);
        QCOMPARE(txRead(1, dacRead), tx);
        QVERIFY(TavoSim::LoadProfile("modern-l1"));
        QCOMPARE(TavoSim::NvramRecord(kGps), gps);

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("record 1 of " + QString(kGps) + " does not fit"));
        QVERIFY(TavoSim::PatchProfile(json(R"({"database": {"recordSizes": {"NVRAM_EF_GPS_CO_CLOCK_DATA_LID": 20},
                                                            "maxPaPowerBandGroups": [0]}})")));
        QCOMPARE(TavoSim::NvramRecord(kGps), profileGps.left(20));
        QCOMPARE(TavoSim::NvramRecord(kTxDacLids[1]).size(), 224);
        QCOMPARE(TavoSim::NvramRecord("TL1_TPC_TXDAC_BAND1"), tx);

        QVERIFY(TavoSim::SetNvramFile(QString()));
        QVERIFY(TavoSim::LoadProfile("default"));
        QCOMPARE(TavoSim::NvramRecord(kGps), profileGps);
        QCOMPARE(txRead(1, dacRead), seededTx);
        QVERIFY(TavoSim::SetNvramFile(dir.filePath("nvram.json")));
        QCOMPARE(TavoSim::NvramRecord(kGps), gps);
        QCOMPARE(txRead(1, dacRead), tx);

        // A write the file cannot keep fails and leaves the record as it was.
        QVERIFY(TavoSim::SetNvramFile(dir.filePath("missing-folder/nvram.json")));
        const QByteArray kept = TavoSim::NvramRecord(kGps);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot keep the NVRAM in"));
        QCOMPARE(writeRecord(kGps, QByteArray(24, '\1')), TAVO_ERR_FAILED);
        QCOMPARE(TavoSim::NvramRecord(kGps), kept);
    }

    void seeds_data()
    {
        QTest::addColumn<int>("band");
        QTest::addColumn<int>("low"); /* the band group's UARFCNs */
        QTest::addColumn<int>("high");
        QTest::newRow("1850-1930MHz") << 0 << 9250 << 9650;
        QTest::newRow("2010-2025MHz") << 1 << 10050 << 10125;
        QTest::newRow("1930-1990MHz") << 2 << 9650 << 9950;
        QTest::newRow("2570-2620MHz") << 3 << 12850 << 13100;
        QTest::newRow("2300-2400MHz") << 4 << 11500 << 12000;
    }
    /* A fresh target holds TPC data and path loss shaped like calibrated ones,
     * the band group's own, in its NVRAM records. Layer 1 hands out the same
     * TPC data with two offsets; its path loss stores start from the record,
     * with the further modes their own: every row a curve of its own within
     * what the page shows (-32 to 31). */
    void seeds()
    {
        QFETCH(int, band);
        QFETCH(int, low);
        QFETCH(int, high);
        QVERIFY(useTarget());
        TavoTxDacRecord dac{};
        TavoTxClpcRecord clpc{};
        TavoPathlossRecord loss{};
        const QString lid = kTxDacLids[band];
        const QByteArray raw[3] = {TavoSim::NvramRecord(lid),
                                   TavoSim::NvramRecord(QString(lid).replace("TXDAC", "TXCLPC")),
                                   TavoSim::NvramRecord(QString(lid).replace("TXDAC", "PATHLOSS"))};
        QCOMPARE(TAVO_NVRAM_DecomposeTxDac(&dac, raw[0].constData(), uint32_t(raw[0].size())), TAVO_OK);
        QCOMPARE(TAVO_NVRAM_DecomposeTxClpc(&clpc, raw[1].constData(), uint32_t(raw[1].size())), TAVO_OK);
        QCOMPARE(TAVO_NVRAM_DecomposePathloss(&loss, raw[2].constData(), uint32_t(raw[2].size())), TAVO_OK);
        for (int mode = 0; mode < 3; ++mode) {
            QVERIFY(risesStrictly(dac.paVgaDac[mode], 4) && risesStrictly(dac.paPower[mode], 4));
            QVERIFY(small(dac.subbandPowerComp[mode], 15) && small(dac.tempPowerComp[mode], 8));
        }
        QVERIFY(dac.paPower[0][3] > dac.paPower[1][3] && dac.paPower[1][3] > dac.paPower[2][3]);
        QVERIFY(risesStrictly(dac.subbandMaxUarfcn, 15) && dac.subbandMaxUarfcn[0] > low);
        QCOMPARE(int(dac.subbandMaxUarfcn[14]), high);
        QVERIFY(std::equal(loss.subbandMaxUarfcn, loss.subbandMaxUarfcn + 15, dac.subbandMaxUarfcn));
        QVERIFY(qAbs(dac.maxPower - 752) <= 16 && dac.paVgaDac[0][3] <= dac.maxVgaDac);
        QVERIFY(clpc.pdPoint[0] > clpc.pdPoint[1] && clpc.pdPoint[1] > clpc.pdPoint[2]);
        QVERIFY(small(clpc.pdSubbandComp, 15) && clpc.pdSubbandComp[14] != 0);

        const QByteArray layer1 = txRead(band, AST_TAVO_NVRAM_TX_DAC_READ);
        QCOMPARE(layer1.left(228), QByteArray(reinterpret_cast<const char *>(&dac), 228));
        const int16_t offsets[2] = {int16_t(u16At(layer1, 228)), int16_t(u16At(layer1, 230))};
        QVERIFY(offsets[0] != 0 && offsets[1] != 0 && small(offsets, 2));
        QCOMPARE(txRead(band, AST_TAVO_NVRAM_TX_CLPC_READ), QByteArray(reinterpret_cast<const char *>(&clpc), 36));

        const QByteArray decoded(reinterpret_cast<const char *>(&loss), sizeof loss);
        for (const int levels : {4, 8}) {
            const QByteArray store = TavoSim::NvramRecord(QStringLiteral("TL1_PATHLOSS%1_BAND%2")
                                                              .arg(levels == 8 ? "8" : "").arg(band));
            const int temps = 30 + levels * 30; /* where the temperature losses begin */
            QCOMPARE(store.left(120) + store.mid(temps, 48), decoded);
            QSet<QByteArray> rows;
            for (int row = 0; row < levels; ++row)
                rows << store.mid(30 + row * 30, 30) << store.mid(temps + row * 16, 16);
            QCOMPARE(rows.size(), 2 * levels);
            for (int at = 30; at < store.size(); at += 2) {
                const qint16 value = qint16(u16At(store, at));
                QVERIFY(value >= -32 && value <= 31);
            }
        }
    }

    void layer1Refusals_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("band"); /* -1: a null request */
        QTest::addColumn<int>("version");
        QTest::addColumn<int>("lidCode");
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("resultCode"); /* in the confirm's head; -1: no head */
        const int dacRead = AST_TAVO_NVRAM_TX_DAC_READ, dacWrite = AST_TAVO_NVRAM_TX_DAC_WRITE;
        const int unknown = AST_TAVO_NVRAM_OPER_UNKNOWN_LID, unsupported = TAVO_ERR_NOT_SUPPORTED;
        const int invalid = TAVO_ERR_INVALID_ARGUMENT;
        /* (TX CLPC without closed-loop power control: tests/Controller/tst_TpcItem.) */
        QTest::newRow("TX: unknown lidCode") << "default" << "TX read" << 0 << 2 << 0x1234 << 0 << unknown;
        QTest::newRow("TX: write code to the read command") << "default" << "TX read" << 1 << 2 << dacWrite << 0
                                                            << unknown;
        QTest::newRow("TX: version 1") << "default" << "TX write" << 0 << 1 << dacWrite << 0
                                       << int(AST_TAVO_NVRAM_OPER_BAD_VERSION);
        QTest::newRow("TX: band 5") << "default" << "TX write" << 5 << 2 << dacWrite << 0
                                    << int(AST_TAVO_NVRAM_OPER_BAD_BAND);
        QTest::newRow("TX: group without a band of the target") << "nvram-v2-no-clpc" << "TX read" << 2 << 2 << dacRead
                                                                << 0 << int(AST_TAVO_NVRAM_OPER_BAND_NOT_SUPPORTED);
        QTest::newRow("TX: NVRAM-generation target") << "v1-pathloss-v2" << "TX read" << 0 << 2 << dacRead
                                                     << unsupported << -1;
        QTest::newRow("8 levels, 4-mode target") << "v1-pathloss-v2" << "8-level read" << 0 << 2 << 0 << unsupported
                                                 << -1;
        QTest::newRow("4 modes, no structure version") << "no-pathloss" << "4-mode read" << 0 << 1 << 0 << unsupported
                                                       << -1;
        QTest::newRow("8 levels, version 1") << "default" << "8-level read" << 0 << 1 << 0 << invalid << -1;
        QTest::newRow("8 levels, band 5") << "default" << "8-level write" << 5 << 2 << 0 << invalid << -1;
        QTest::newRow("4 modes, group without a band of the target")
            << "v1-pathloss-v2" << "4-mode write" << 1 << 1 << 0 << int(TAVO_ERR_FAILED) << -1;
        QTest::newRow("null request") << "default" << "8-level read" << -1 << 2 << 0 << invalid << -1;
    }
    /* A request the target turns down gets at most the confirm's head, a TX
     * command's with a resultCode other than 30, and changes no store. (What
     * the commands carry out: the TPC and path loss item tests.) */
    void layer1Refusals()
    {
        QFETCH(QString, profile);
        QFETCH(QString, command);
        QFETCH(int, band);
        QFETCH(int, version);
        QFETCH(int, lidCode);
        QFETCH(int, resultCode);
        QVERIFY(TavoSim::LoadProfile(profile));
        const QByteArray stores = layer1Stores();
        const QByteArray body(kUntouched.size(), '\7');
        const auto answer = layer1Call(command, band < 0 ? QByteArray() : request(band, version, lidCode, body));

        QTEST(int(answer.first), "result");
        const int head = resultCode < 0 ? 0 : kHead; /* what the confirm may hold */
        if (head)
            QCOMPARE(headOf(answer.second), (QList<int>{band, resultCode, 0}));
        QCOMPARE(answer.second.mid(head), kUntouched.mid(head));
        QCOMPARE(layer1Stores(), stores);
    }

    void multiRatWrites_data()
    {
        QTest::addColumn<QString>("write");
        QTest::addColumn<QString>("store");
        QTest::addColumn<QByteArray>("after"); /* the store's bytes, as hex */
        /* MMRF_AFC starts 4120, 12, 1638, 160, 88000; MMRF_GPS_CO_CLOCK 2^26, -2^27, 2^27, -2^26. */
        QTest::newRow("AFC v1 keeps the AAC and load values") << "afc1" << "MMRF_AFC" << QByteArray("01000c000200000003000000c0570100");
        QTest::newRow("AFC v2 keeps the AAC value") << "afc2" << "MMRF_AFC" << QByteArray("01000c00020000000300000004000000");
        QTest::newRow("AFC v3 takes all") << "afc3" << "MMRF_AFC" << QByteArray("01000500020000000300000004000000");
        QTest::newRow("co-clock v1 keeps the higher orders")
            << "gps1" << "MMRF_GPS_CO_CLOCK" << QByteArray("010000000200000000000008000000fc");
    }
    /* A write of an older version replaces only what it carries. */
    void multiRatWrites()
    {
        QFETCH(QString, write);
        QVERIFY(TavoSim::LoadProfile("modern-l1"));
        const TavoMMAfcDataV3 afc{1, 5, 2, 3, 4};
        const TavoMMAfcDataV2 afc2{1, 0, 2, 3, 4};
        const TavoMMAfcData afc1{1, 0, 2, 3};
        const TavoMMGpsCoClockReq gps{0.5f, 0.5f, 1, 2};
        const TAVO_RESULT result = write == "afc1"   ? TAVO_MMAfc_SetData(0, 10000, &afc1)
                                   : write == "afc2" ? TAVO_MMAfc_SetDataV2(0, 10000, &afc2)
                                   : write == "afc3" ? TAVO_MMAfc_SetDataV3(0, 10000, &afc)
                                                     : TAVO_MMGps_SetCoClock(0, 10000, &gps);
        QCOMPARE(result, TAVO_OK);
        QFETCH(QString, store);
        QTEST(TavoSim::NvramRecord(store).toHex(), "after");
    }

    void multiRatOffers_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("offered");
        const QStringList selfCal{"MMRf_GetSelfCalLidInfoV2", "MMRf_GetSelfCalLidInfoV7"};
        QTest::newRow("modern-l1") << "modern-l1"
                                   << QStringList{"MMAfc_GetData", "MMAfc_GetDataV2", "MMAfc_GetDataV3", "MMGps_GetCoClock",
                                                  "MMGps_GetCoClockV3", "MMTadc_GetData"} + selfCal;
        QTest::newRow("hybrid-l1") << "hybrid-l1"
                                   << QStringList{"MMAfc_GetData", "MMAfc_GetDataV2", "MMGps_GetCoClock"} + selfCal;
        QTest::newRow("afc-v1-gps-erf") << "afc-v1-gps-erf"
                                        << QStringList{"MMAfc_GetData", "ERf_GetCoClock", "MMTadc_GetData"} + selfCal;
        QTest::newRow("default") << "default" << QStringList{"ERf_GetCoClock"} + selfCal;
        QTest::newRow("v1-pathloss-v2") << "v1-pathloss-v2" << QStringList{"ERf_GetCoClock", "MMRf_GetSelfCalLidCount"};
        QTest::newRow("legacy-v1") << "legacy-v1" << QStringList();
    }
    void multiRatOffers()
    {
        QFETCH(QString, profile);
        QVERIFY(TavoSim::LoadProfile(profile));
        QStringList offered;
        for (const char *call : {"MMAfc_GetData", "MMAfc_GetDataV2", "MMAfc_GetDataV3", "MMGps_GetCoClock",
                                 "MMGps_GetCoClockV3", "ERf_GetCoClock", "MMTadc_GetData", "MMRf_GetSelfCalLidCount",
                                 "MMRf_GetSelfCalLidInfoV2", "MMRf_GetSelfCalLidInfoV7"}) {
            if (TAVO_QueryAPISupported_r(0, 10000, qPrintable(QString("TAVO_") + call)) == TAVO_OK)
                offered << call;
        }
        QTEST(offered, "offered");
        TavoMMTadcCnf tadc;
        QCOMPARE(TAVO_MMTadc_GetData(0, 10000, &tadc) == TAVO_OK, offered.contains("MMTadc_GetData"));
    }
};

QTEST_GUILESS_MAIN(tst_SimNvram)
#include "tst_SimNvram.moc"
