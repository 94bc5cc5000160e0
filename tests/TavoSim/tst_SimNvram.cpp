/* The simulated target's NVRAM: the database and the records the target
 * holds (which may disagree), the record kinds, the transport, the integrity
 * record and its scopes in the log, and the NVRAM file that outlives the
 * process. Also the fault selectors, which NVRAM writes show best. */

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include "TavoSimControl.h"

namespace {

const char kTxDac0[] = "NVRAM_EF_AST_TL1_TXDAC_BAND33_35_37_39_LID";
const char kTadc[] = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
const char kCap[] = "NVRAM_EF_AST_TL1_CAP_DATA_LID";
const char kImei[] = "NVRAM_EF_IMEI_IMEISV_LID";
const char kGps[] = "NVRAM_EF_GPS_CO_CLOCK_DATA_LID";

QJsonObject json(const char *text) { return QJsonDocument::fromJson(text).object(); }

/* Loads default with `patch` over it and the database loaded. */
bool useTarget(const QJsonObject &patch, const QString &profile = QStringLiteral("default"))
{
    QString error;
    const bool loaded = TavoSim::LoadProfile(profile, &error) && TavoSim::PatchProfile(patch, &error);
    if (!loaded)
        qWarning("%s", qPrintable(error));
    TavoSim::LoadDatabase();
    return loaded;
}

uint32_t recordSize(const char *lid)
{
    uint32_t size = 0;
    return TAVO_NVRAM_GetRecordSize(lid, &size) == TAVO_OK ? size : 0;
}

TAVO_RESULT readField(const char *lid, const QByteArray &raw, const char *field, void *value, uint32_t size)
{
    return TAVO_NVRAM_GetField(lid, field, raw.constData(), uint32_t(raw.size()), value, size);
}

/* The compose or decompose of a record kind, on an untyped decoded record. */
TAVO_RESULT convert(const QString &kind, bool compose, void *r, void *raw, uint32_t n)
{
    if (kind == "TxDac")
        return compose ? TAVO_NVRAM_ComposeTxDac(static_cast<TavoTxDacRecord *>(r), raw, n)
                       : TAVO_NVRAM_DecomposeTxDac(static_cast<TavoTxDacRecord *>(r), raw, n);
    return compose ? TAVO_NVRAM_ComposeAfc(static_cast<TavoAfcRecord *>(r), raw, n)
                   : TAVO_NVRAM_DecomposeAfc(static_cast<TavoAfcRecord *>(r), raw, n);
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

TAVO_RESULT writeRecord(const char *lid, QByteArray bytes)
{
    return transfer(QStringLiteral("write"), lid, 1, bytes);
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
        QTest::addColumn<QByteArray>("fault"); /* as in a profile's "faults" */
        QTest::addColumn<QList<int>>("failing"); /* places in selectorFlow(), from 1 */
        QTest::newRow("by LID") << QByteArray(R"({"call": "TAVO_NVRAM_Write_r", "count": 1,
                                                  "args": {"lid": "NVRAM_EF_IMEI_IMEISV_LID"}})") << QList<int>{4};
        QTest::newRow("by record number") << QByteArray(R"({"call": "TAVO_NVRAM_Write_r", "args": {"record": 2}})")
                                          << QList<int>{5, 6};
        QTest::newRow("every input must match")
            << QByteArray(R"({"call": "TAVO_NVRAM_Write_r", "args": {"lid": "NVRAM_EF_AST_TL1_TEMP_DAC_LID", "record": 2}})")
            << QList<int>{};
        QTest::newRow("by the API a query asks about")
            << QByteArray(R"({"call": "TAVO_QueryAPISupported_r",
                              "args": {"apiName": "TAVO_MISC_CalDataIntegrity_StartRec_Ex_r"}})") << QList<int>{1};
        QTest::newRow("second matching call") << QByteArray(R"({"call": "TAVO_NVRAM_Write_r", "skip": 1, "count": 1,
                                                                "args": {"lid": "NVRAM_EF_IMEI_IMEISV_LID"}})")
                                              << QList<int>{5};
        QTest::newRow("every call, the ninth") << QByteArray(R"({"call": "*", "skip": 8, "count": 1})")
                                               << QList<int>{11};
        QTest::newRow("every call with an input") << QByteArray(R"({"call": "*", "skip": 2, "args": {"record": 2}})")
                                                  << QList<int>{7};
    }
    /* A fault armed through the control API, or by a profile (on a patch and
     * on every Reset), fails exactly the calls it selects; only those count
     * down its skip, and "*" counts every call that reaches the target.
     * ClearFaults disarms the profile's faults too. */
    void faultSelectors()
    {
        QFETCH(QByteArray, fault);
        QFETCH(QList<int>, failing);
        QJsonObject selector = json(fault);
        TavoSim::Fault armed{selector["call"].toString(), {}, TAVO_ERR_BUSY, selector["count"].toInt(-1),
                             selector["skip"].toInt()};
        const QJsonObject args = selector["args"].toObject();
        for (auto it = args.begin(); it != args.end(); ++it)
            armed.args << it.key() + '=' + it.value().toVariant().toString();
        selector["result"] = TAVO_ERR_BUSY;

        QVERIFY(useTarget({}));
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
        QTest::newRow("the target follows the database")
            << QByteArray(R"({"database": {"recordCounts": {"NVRAM_EF_IMEI_IMEISV_LID": 11}}})") << kImei
            << QList<int>{11, 20} << QList<int>{11, 20};
        QTest::newRow("two IMEI records on the target, one in the database")
            << QByteArray(R"({"database": {"recordCounts": {"NVRAM_EF_IMEI_IMEISV_LID": 1}},
                              "nvram": {"target": {"NVRAM_EF_IMEI_IMEISV_LID": {"count": 2}}}})")
            << kImei << QList<int>{1, 20} << QList<int>{2, 20};
        QTest::newRow("one IMEI record on the target, two in the database")
            << QByteArray(R"({"nvram": {"target": {"NVRAM_EF_IMEI_IMEISV_LID": {"count": 1}}}})") << kImei
            << QList<int>{2, 20} << QList<int>{1, 20};
        QTest::newRow("a LID only on the target")
            << QByteArray(R"({"database": {"withoutLids": ["NVRAM_EF_AST_TL1_CAP_DATA_LID"]},
                              "nvram": {"target": {"NVRAM_EF_AST_TL1_CAP_DATA_LID": {}}}})")
            << kCap << QList<int>{} << QList<int>{1, 4};
        QTest::newRow("a LID only in the database")
            << QByteArray(R"({"nvram": {"target": {"NVRAM_EF_AST_TL1_CAP_DATA_LID": {"count": 0}}}})") << kCap
            << QList<int>{1, 4} << QList<int>{};
        QTest::newRow("sizes differ") << QByteArray(R"({"nvram": {"target": {"NVRAM_EF_GPS_CO_CLOCK_DATA_LID": {"size": 20}}}})")
                                      << kGps << QList<int>{1, 24} << QList<int>{1, 20};
    }
    /* The database calls answer from the database, the transport from the
     * target's records; a profile can make them disagree. (The plain database
     * is read through the plug-in by tests/Controller/tst_CalItemBase.) */
    void databaseAndTarget()
    {
        QFETCH(QByteArray, patch);
        QFETCH(QString, lid);
        QFETCH(QList<int>, database);
        QFETCH(QList<int>, target);
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
        QCOMPARE(TavoSim::NvramRecord(lid, last).size(), target.value(1));
        if (!target.isEmpty())
            QCOMPARE(transfer("write", name, last + 1, buffer), TAVO_ERR_INVALID_ARGUMENT);
    }

    void codecs_data()
    {
        QTest::addColumn<QJsonObject>("patch");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("lid");
        QTest::addColumn<int>("decodedSize");
        QTest::addColumn<int>("heldSize"); /* decoded bytes the raw record holds */
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("offset"); /* of the field's element in the decoded record */
        QTest::addColumn<int>("width");
        const QJsonObject none;
        QTest::newRow("TX DAC without max PA power") << json(R"({"database": {"maxPaPowerBandGroups": []}})") << "TxDac"
                                                     << kTxDac0 << 228 << 224 << "hysteresisEnd1" << 222 << 2;
        QTest::newRow("AFC, CAP id untouched") << none << "Afc" << "NVRAM_EF_AST_TL1_AFC_DATA_LID" << 8 << 4
                                               << "slopeInverse" << 2 << 2;
    }
    /* A decoded record survives compose and decompose; the raw record holds each
     * field where the database names it; what the raw record lacks stays. (TADC:
     * through the plug-in, tests/Controller/tst_CalItemBase.) */
    void codecs()
    {
        QFETCH(QJsonObject, patch);
        QFETCH(QString, kind);
        QFETCH(QString, lid);
        QFETCH(int, decodedSize);
        QFETCH(int, heldSize);
        QFETCH(QString, field);
        QFETCH(int, offset);
        QFETCH(int, width);
        QVERIFY(useTarget(patch));
        const QByteArray name = lid.toLatin1();
        QByteArray decoded(decodedSize, '\0');
        for (int i = 0; i < decodedSize; ++i)
            decoded[i] = char(i * 37 + 11);
        QByteArray raw(int(recordSize(name)), '\0');
        QCOMPARE(convert(kind, true, decoded.data(), raw.data(), uint32_t(raw.size())), TAVO_OK);
        QVERIFY(raw != decoded.left(raw.size()));

        char value[4] = {};
        QCOMPARE(readField(name, raw, field.toLatin1(), value, sizeof value), TAVO_OK);
        QCOMPARE(QByteArray(value, width), decoded.mid(offset, width));

        QByteArray back(decodedSize, '\x5a');
        QCOMPARE(convert(kind, false, back.data(), raw.data(), uint32_t(raw.size())), TAVO_OK);
        QCOMPARE(back.left(heldSize), decoded.left(heldSize));
        QCOMPARE(back.mid(heldSize), QByteArray(decodedSize - heldSize, '\x5a'));

        QCOMPARE(convert(kind, true, decoded.data(), raw.data(), uint32_t(heldSize / 2)), TAVO_ERR_BUFFER_TOO_SMALL);
    }

    void profileRecords_data()
    {
        QTest::addColumn<QByteArray>("records"); /* nvram.records */
        QTest::addColumn<QString>("lid");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("field"); /* read as a signed 16-bit element, or one character */
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("error");
        const QByteArray tadc = R"({"NVRAM_EF_AST_TL1_TEMP_DAC_LID": {"adc": [1, 2]}})";
        QTest::newRow("seeded element") << tadc << kTadc << 1 << "adc[1]" << 2 << "";
        QTest::newRow("second record, text") << QByteArray(R"({"NVRAM_EF_IMEI_IMEISV_LID": [{}, {"imei": "1234"}]})")
                                             << kImei << 2 << "imei[3]" << int('4') << "";
        QTest::newRow("unknown field") << QByteArray(R"({"NVRAM_EF_AST_TL1_TEMP_DAC_LID": {"x": 1}})") << "" << 0 << ""
                                       << 0 << "NVRAM_EF_AST_TL1_TEMP_DAC_LID.x: a Tadc record has no such field";
    }
    void profileRecords()
    {
        QFETCH(QByteArray, records);
        QFETCH(QString, lid);
        QFETCH(int, number);
        QFETCH(QString, field);
        QFETCH(QString, error);
        QString problem;
        const QJsonObject patch{{"nvram", QJsonObject{{"records", json(records)}}}};
        QCOMPARE(TavoSim::PatchProfile(patch, &problem), error.isEmpty());
        QVERIFY2(problem.contains(error), qPrintable(problem));
        if (!error.isEmpty())
            return;
        TavoSim::LoadDatabase();
        qint16 element = 0;
        QCOMPARE(readField(lid.toLatin1(), TavoSim::NvramRecord(lid, number), field.toLatin1(), &element, sizeof element),
                 TAVO_OK);
        QTEST(field.startsWith("imei") ? int(char(element)) : int(element), "value");
    }

    void transport_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("call");
        QTest::addColumn<QString>("lid");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("extra"); /* buffer bytes beyond the record's size */
        QTest::addColumn<int>("result");
        QTest::newRow("read, larger buffer") << "default" << "read" << kTadc << 1 << 4 << 0;
        QTest::newRow("read, smaller buffer") << "default" << "read" << kTadc << 1 << -1 << int(TAVO_ERR_BUFFER_TOO_SMALL);
        QTest::newRow("write, smaller buffer") << "default" << "write" << kImei << 2 << -1 << int(TAVO_ERR_BUFFER_TOO_SMALL);
        QTest::newRow("C2K read on a 3GPP modem") << "default" << "c2kRead" << kTadc << 1 << 0 << int(TAVO_ERR_NOT_SUPPORTED);
        QTest::newRow("3GPP write on a C2K modem") << "c2k-modem" << "write" << kTadc << 1 << 0 << int(TAVO_ERR_NOT_SUPPORTED);
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
        const int size = before.isEmpty() ? 0 : before.size();
        QByteArray buffer(size + extra, '\x5a');
        if (write) {
            for (int i = 0; i < buffer.size(); ++i)
                buffer[i] = char(i + 1);
        }
        const QByteArray sent = buffer;

        QCOMPARE(int(transfer(call, lid.toLatin1(), number, buffer)), result);
        const QByteArray after = TavoSim::NvramRecord(lid, number);
        if (write) {
            QCOMPARE(after, result == TAVO_OK ? sent.left(size) : before);
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
        QVERIFY(useTarget({}));
        uint32_t status = 99;
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StopRec_Ex_r(0, 10000, &status), TAVO_ERR_FAILED);
        QVERIFY(writeRecord(kTadc, QByteArray(18, '\1')) == TAVO_OK);

        QCOMPARE(TAVO_MISC_CalDataIntegrity_StartRec_Ex_r(0, 10000), TAVO_OK);
        QVERIFY(TavoSim::IsCalDataIntegrityOpen());
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StartRec_r(0, 10000), TAVO_ERR_BUSY);
        QVERIFY(writeRecord(kTadc, QByteArray(18, '\2')) == TAVO_OK);
        QVERIFY(writeRecord(kCap, QByteArray(4, '\3')) == TAVO_OK);
        QVERIFY(writeRecord(kCap, QByteArray(3, '\3')) != TAVO_OK);
        QCOMPARE(TAVO_MISC_CalDataIntegrity_StopRec_r(0, 10000, &status), TAVO_OK);
        QCOMPARE(status, 2u);
        QVERIFY(!TavoSim::IsCalDataIntegrityOpen());
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

    /* The file's records come back with every reset and profile load, where
     * they fit the target, and when the file is opened again, as by the next
     * host process; without the file the target starts from the profile. */
    void fileOutlivesReset()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QVERIFY(useTarget({}));
        const QByteArray profileGps = TavoSim::NvramRecord(kGps);
        QVERIFY(TavoSim::SetNvramFile(dir.filePath("nvram.json")));
        QCOMPARE(TavoSim::NvramFile(), dir.filePath("nvram.json"));
        const QByteArray gps(24, '\7');
        QCOMPARE(writeRecord(kGps, gps), TAVO_OK);

        TavoSim::Reset();
        QCOMPARE(TavoSim::NvramRecord(kGps), gps);
        QVERIFY(TavoSim::LoadProfile("modern-l1"));
        QCOMPARE(TavoSim::NvramRecord(kGps), gps);

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("record 1 of NVRAM_EF_GPS_CO_CLOCK_DATA_LID does not fit"));
        QVERIFY(TavoSim::PatchProfile(json(R"({"database": {"recordSizes": {"NVRAM_EF_GPS_CO_CLOCK_DATA_LID": 20}}})")));
        QCOMPARE(TavoSim::NvramRecord(kGps), QByteArray(20, '\0'));

        QVERIFY(TavoSim::SetNvramFile(QString()));
        QVERIFY(TavoSim::LoadProfile("default"));
        QCOMPARE(TavoSim::NvramRecord(kGps), profileGps);
        QVERIFY(TavoSim::SetNvramFile(dir.filePath("nvram.json")));
        QCOMPARE(TavoSim::NvramRecord(kGps), gps);
    }

    /* A write the file cannot keep fails and leaves the record as it was. */
    void unwritableFile()
    {
        QTemporaryDir dir;
        QVERIFY(useTarget({}));
        QVERIFY(TavoSim::SetNvramFile(dir.filePath("missing-folder/nvram.json")));
        const QByteArray before = TavoSim::NvramRecord(kTadc);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("cannot keep the NVRAM in"));
        QCOMPARE(writeRecord(kTadc, QByteArray(18, '\1')), TAVO_ERR_FAILED);
        QCOMPARE(TavoSim::NvramRecord(kTadc), before);
    }
};

QTEST_GUILESS_MAIN(tst_SimNvram)
#include "tst_SimNvram.moc"
