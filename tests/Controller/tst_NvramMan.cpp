// Batches of whole NVRAM records against the simulated target: where a
// failure stops, what it reports, which modem's commands carry the records,
// and the integrity record around every write.

#include <QtTest>

#include <vector>

#include "Nvram/NvramMan.h"
#include "SimScope.h"
#include "TavoSimControl.h"

namespace {

const char kTadc[] = "NVRAM_EF_AST_TL1_TEMP_DAC_LID";
const char kCap[] = "NVRAM_EF_AST_TL1_CAP_DATA_LID";
const char kImei[] = "NVRAM_EF_IMEI_IMEISV_LID";
const QString kStartEx = "TAVO_MISC_CalDataIntegrity_StartRec_Ex_r";
const char *const kLids[] = {kTadc, kCap, kImei};
const uint16_t kRecords[] = {1, 1, 2};

// Three records of three LIDs, the last one record 2; each buffer holds the
// record's size of `fill`.
struct SBatch {
    std::vector<const char *> lids{std::begin(kLids), std::end(kLids)};
    std::vector<uint16_t> records{std::begin(kRecords), std::end(kRecords)};
    std::vector<uint32_t> sizes;
    std::vector<QByteArray> data;
    std::vector<uint8_t *> buffers;

    explicit SBatch(char fill)
    {
        for (size_t i = 0; i < lids.size(); ++i) {
            data.push_back(QByteArray(Held(i).size(), fill));
            sizes.push_back(uint32_t(data.back().size()));
        }
        for (QByteArray &bytes : data)
            buffers.push_back(reinterpret_cast<uint8_t *>(bytes.data()));
    }
    // What the target holds of the record, whatever entry a test took out.
    static QByteArray Held(size_t i) { return TavoSim::NvramRecord(kLids[i], kRecords[i]); }
    TAVO_RESULT Run(CNvramMan &man, bool write)
    {
        const int count = int(lids.size());
        return write ? man.WriteNvram(count, lids.data(), records.data(), sizes.data(), buffers.data())
                     : man.ReadNvram(count, lids.data(), records.data(), sizes.data(), buffers.data());
    }
};

} // namespace

class TestNvramMan : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { TavoSim::Reset(); }

    void batch_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<bool>("write");
        QTest::addColumn<int>("failAt"); // index of the record that fails; -1: none
        QTest::addColumn<QString>("fault"); // "call": its transfer fails; else the entry left out of the record
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("modemQuery"); // fails on every record
        QTest::newRow("read fails on the second") << "default" << false << 1 << "call" << int(TAVO_ERR_TIMEOUT) << "";
        QTest::newRow("write fails on the second") << "default" << true << 1 << "call" << int(TAVO_ERR_LID_NOT_FOUND)
                                                   << "";
        QTest::newRow("C2K read") << "c2k-modem" << false << -1 << "" << 0 << "";
        QTest::newRow("C2K write fails on the first") << "c2k-modem" << true << 0 << "call" << int(TAVO_ERR_FAILED)
                                                      << "";
        // A whole batch, by the plain commands.
        QTest::newRow("read, modem unknown") << "default" << false << -1 << "" << 0 << "TavoConn_GetMdActiveIdx";
        QTest::newRow("write, service unknown") << "default" << true << -1 << "" << 0 << "TavoConn_GetMdSrv";
        // An entry the target could not take ends the batch with 1 before any call for it.
        QTest::newRow("read, no lid") << "default" << false << 1 << "lid" << 1 << "";
        QTest::newRow("write, no record") << "default" << true << 1 << "record" << 1 << "";
        QTest::newRow("read, no size") << "default" << false << 1 << "size" << 1 << "";
        QTest::newRow("write, no buffer") << "default" << true << 1 << "buffer" << 1 << "";
    }
    // The records before a failure are done, the failing one and those after it
    // are untouched, and the result and the done signal carry the failure. A
    // connection that cannot tell its modem goes on with the plain commands.
    void batch()
    {
        QFETCH(QString, profile);
        QFETCH(bool, write);
        QFETCH(int, failAt);
        QFETCH(QString, fault);
        QFETCH(int, result);
        QFETCH(QString, modemQuery);
        SimScope sim(profile);
        QVERIFY(sim.IsLoaded());
        if (!modemQuery.isEmpty())
            TavoSim::FailAlways(modemQuery);
        const bool c2k = profile == "c2k-modem";
        const QString transport =
            QString(c2k ? "TAVO_C2K_NVRAM_%1_r" : "TAVO_NVRAM_%1_r").arg(write ? "Write" : "Read");
        if (fault == "call")
            TavoSim::InjectFault(transport, result, 1, failAt);

        SBatch batch('\x5a');
        if (fault == "lid")
            batch.lids[1] = nullptr;
        else if (fault == "record")
            batch.records[1] = 0;
        else if (fault == "size")
            batch.sizes[1] = 0;
        else if (fault == "buffer")
            batch.buffers[1] = nullptr;
        std::vector<QByteArray> before;
        for (size_t i = 0; i < batch.lids.size(); ++i)
            before.push_back(batch.Held(i));
        CNvramMan man;
        QSignalSpy readDone(&man, &CNvramMan::Signal_ReadNvramDone);
        QSignalSpy writeDone(&man, &CNvramMan::Signal_WriteNvramDone);

        QCOMPARE(batch.Run(man, write), result);

        QSignalSpy &done = write ? writeDone : readDone;
        QCOMPARE(done.count(), 1);
        QCOMPARE(done.first().first().toInt(), result);
        QCOMPARE((write ? readDone : writeDone).count(), 0);

        const size_t doneRecords = failAt < 0 ? batch.lids.size() : size_t(failAt);
        QStringList transfers, expected;
        for (const TavoSim::CallRecord &call : TavoSim::CallLog()) {
            if (call.name.contains("NVRAM_Read_r") || call.name.contains("NVRAM_Write_r"))
                transfers << call.name + ' ' + call.args.join(' ');
        }
        for (size_t i = 0; i < doneRecords + (fault == "call" ? 1 : 0); ++i)
            expected << QString("%1 lid=%2 record=%3 size=%4")
                            .arg(transport, batch.lids[i])
                            .arg(batch.records[i])
                            .arg(batch.sizes[i]);
        QCOMPARE(transfers, expected);
        for (size_t i = 0; i < batch.lids.size(); ++i) {
            const QByteArray sent(batch.data[i].size(), '\x5a');
            if (write)
                QCOMPARE(batch.Held(i), i < doneRecords ? sent : before[i]);
            else
                QCOMPARE(batch.data[i], i < doneRecords ? before[i] : sent);
        }
        QCOMPARE(TavoSim::CallCount(kStartEx), write ? 1 : 0);
        QVERIFY(!TavoSim::IsCalDataIntegrityOpen());
    }

    void integrity_data()
    {
        QTest::addColumn<QString>("commands"); // "nvram.integrity" of the target
        QTest::addColumn<QString>("fault");    // the call that fails once
        QTest::addColumn<QStringList>("calls");
        QTest::addColumn<bool>("openAtDone"); // the record is open when the done signal comes
        const QString write = "TAVO_NVRAM_Write_r";
        const QString stopEx = "TAVO_MISC_CalDataIntegrity_StopRec_Ex_r";
        const QString start = "TAVO_MISC_CalDataIntegrity_StartRec_r";
        const QString stop = "TAVO_MISC_CalDataIntegrity_StopRec_r";
        QTest::newRow("Ex commands") << "ex" << "" << QStringList{kStartEx, write, write, write, stopEx} << true;
        QTest::newRow("older commands only") << "plain" << "" << QStringList{start, write, write, write, stop} << true;
        QTest::newRow("no integrity commands") << "none" << "" << QStringList{write, write, write} << false;
        QTest::newRow("write fails") << "ex" << write << QStringList{kStartEx, write, stopEx} << true;
        QTest::newRow("start fails") << "ex" << kStartEx << QStringList{kStartEx, write, write, write, stopEx} << false;
    }
    // One record around the whole batch, opened before the first write, closed
    // after the done signal; a failing integrity call changes nothing.
    void integrity()
    {
        QFETCH(QString, commands);
        QFETCH(QString, fault);
        QFETCH(bool, openAtDone);
        SimScope sim;
        QVERIFY(TavoSim::PatchProfile({{"nvram", QJsonObject{{"integrity", commands}}}}));
        if (!fault.isEmpty())
            TavoSim::FailOnce(fault);
        SBatch batch('\2');
        CNvramMan man;
        bool wasOpen = !openAtDone;
        connect(&man, &CNvramMan::Signal_WriteNvramDone, this, [&] { wasOpen = TavoSim::IsCalDataIntegrityOpen(); });

        QCOMPARE(batch.Run(man, true), fault == "TAVO_NVRAM_Write_r" ? TAVO_ERR_FAILED : TAVO_OK);
        QTEST(TavoSim::CallNames().filter(QRegularExpression("_StartRec|_StopRec|NVRAM_Write")), "calls");
        QCOMPARE(wasOpen, openAtDone);
        QVERIFY(!TavoSim::IsCalDataIntegrityOpen());
    }
};

QTEST_GUILESS_MAIN(TestNvramMan)
#include "tst_NvramMan.moc"
