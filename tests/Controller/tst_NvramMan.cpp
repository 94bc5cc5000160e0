// Batches of whole NVRAM records against the simulated target: where a
// failure stops, what it reports, which modem's commands carry the records,
// and the integrity record around every write.

#include <QJsonDocument>
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

// Three records of three LIDs, the last one record 2; each buffer holds the
// record's size of `fill`.
struct SBatch {
    std::vector<const char *> lids{kTadc, kCap, kImei};
    std::vector<uint16_t> records{1, 1, 2};
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
    QByteArray Held(size_t i) const { return TavoSim::NvramRecord(lids[i], records[i]); }
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
        QTest::addColumn<int>("failAt"); // index of the record whose call fails; -1: none
        QTest::addColumn<int>("result");
        QTest::addColumn<QString>("modemQuery"); // fails on every record
        QTest::newRow("read fails on the second") << "default" << false << 1 << int(TAVO_ERR_TIMEOUT) << "";
        QTest::newRow("write fails on the second") << "default" << true << 1 << int(TAVO_ERR_LID_NOT_FOUND) << "";
        QTest::newRow("C2K read") << "c2k-modem" << false << -1 << 0 << "";
        QTest::newRow("C2K write fails on the first") << "c2k-modem" << true << 0 << int(TAVO_ERR_FAILED) << "";
        // A whole batch, by the plain commands.
        QTest::newRow("read, modem unknown") << "default" << false << -1 << 0 << "TavoConn_GetMdActiveIdx";
        QTest::newRow("write, service unknown") << "default" << true << -1 << 0 << "TavoConn_GetMdSrv";
    }
    // The records before a failure are done, the failing one and those after it
    // are untouched, and the result and the done signal carry the failure. A
    // connection that cannot tell its modem goes on with the plain commands.
    void batch()
    {
        QFETCH(QString, profile);
        QFETCH(bool, write);
        QFETCH(int, failAt);
        QFETCH(int, result);
        QFETCH(QString, modemQuery);
        SimScope sim(profile);
        QVERIFY(sim.IsLoaded());
        if (!modemQuery.isEmpty())
            TavoSim::FailAlways(modemQuery);
        const bool c2k = profile == "c2k-modem";
        const QString transport = QString(c2k ? "TAVO_C2K_NVRAM_%1_r" : "TAVO_NVRAM_%1_r").arg(write ? "Write" : "Read");
        if (failAt >= 0)
            TavoSim::InjectFault(transport, result, 1, failAt);

        SBatch batch('\x5a');
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
        const QVector<TavoSim::CallRecord> log = TavoSim::CallLog();
        QStringList transfers;
        for (const TavoSim::CallRecord &call : log) {
            if (call.name.contains("NVRAM_Read_r") || call.name.contains("NVRAM_Write_r"))
                transfers << call.name + ' ' + call.args.join(' ');
        }
        QCOMPARE(transfers.size(), int(failAt < 0 ? batch.lids.size() : size_t(failAt) + 1));
        for (int i = 0; i < transfers.size(); ++i) {
            QCOMPARE(transfers[i], QString("%1 lid=%2 record=%3 size=%4")
                                       .arg(transport, batch.lids[size_t(i)])
                                       .arg(batch.records[size_t(i)])
                                       .arg(batch.sizes[size_t(i)]));
        }
        for (size_t i = 0; i < batch.lids.size(); ++i) {
            const QByteArray sent(batch.data[i].size(), '\x5a');
            if (write)
                QCOMPARE(batch.Held(i), i < doneRecords ? sent : before[i]);
            else
                QCOMPARE(batch.data[i], i < doneRecords ? before[i] : sent);
        }
        QCOMPARE(TavoSim::CallCount(kStartEx), write ? 1 : 0);
    }

    void badEntry_data()
    {
        QTest::addColumn<bool>("write");
        QTest::addColumn<QString>("entry");
        for (const bool write : {false, true}) {
            for (const char *entry : {"lid", "record", "size", "buffer"})
                QTest::addRow("%s, no %s", write ? "write" : "read", entry) << write << entry;
        }
    }
    // An entry the target could not take ends the batch with 1 before any call
    // for it; the integrity record still closes.
    void badEntry()
    {
        QFETCH(bool, write);
        QFETCH(QString, entry);
        SimScope sim;
        SBatch batch('\1');
        if (entry == "lid")
            batch.lids[1] = nullptr;
        else if (entry == "record")
            batch.records[1] = 0;
        else if (entry == "size")
            batch.sizes[1] = 0;
        else
            batch.buffers[1] = nullptr;
        CNvramMan man;
        QSignalSpy done(&man, write ? &CNvramMan::Signal_WriteNvramDone : &CNvramMan::Signal_ReadNvramDone);

        QCOMPARE(batch.Run(man, write), 1);
        QCOMPARE(done.count(), 1);
        QCOMPARE(done.first().first().toInt(), 1);
        QCOMPARE(TavoSim::CallNames().filter("NVRAM_").size(), 1);
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
