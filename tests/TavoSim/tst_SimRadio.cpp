#include <QtTest>

#include "TavoCore.h"
#include "TavoSimControl.h"

// The radio behind the test commands: one test at a time, stops that are
// harmless.
class TestSimRadio : public QObject {
    Q_OBJECT
private slots:
    void init() { TavoSim::LoadProfile("default"); }

    void oneTestAtATime_data()
    {
        QTest::addColumn<QString>("steps"); // command, comma separated
        QTest::addColumn<QString>("results");
        QTest::addColumn<QString>("activity");
        QTest::newRow("tx on, tx off") << "tx9550,txoff9550" << "0,0" << "idle";
        QTest::newRow("second tx on refused") << "tx9550,tx9600" << "0,6" << "tx 9550";
        QTest::newRow("rx while transmitting refused") << "tx9550,rx9550" << "0,6" << "tx 9550";
        QTest::newRow("rx off leaves tx running") << "tx9550,rxoff9550" << "0,0" << "tx 9550";
        QTest::newRow("stop ends any test") << "rx10087,stop" << "0,0" << "idle";
        QTest::newRow("stop with nothing running") << "stop,stop" << "0,0" << "idle";
        QTest::newRow("dpch while receiving refused") << "rx9550,dpch9550" << "0,6" << "rx 9550";
        QTest::newRow("measure while transmitting refused") << "tx9550,agc9550" << "0,6" << "tx 9550";
        QTest::newRow("measure while receiving") << "rx9550,agc9550" << "0,0" << "rx 9550";
    }
    void oneTestAtATime()
    {
        QFETCH(QString, steps);
        QStringList answers;
        for (const QString &step : steps.split(',')) {
            const uint16_t channel = uint16_t(step.mid(step.indexOf(QRegularExpression("[0-9]"))).toUInt());
            TAVO_RESULT result = TAVO_ERR_FAILED;
            int8_t rssi = 0;
            uint16_t dsp = 0;
            uint8_t gain = 0;
            if (step.startsWith("txoff"))
                result = AST_RFTEST_TXOn_r(0, 10000, channel, 0);
            else if (step.startsWith("tx"))
                result = AST_RFTEST_TXOn_r(0, 10000, channel, 1);
            else if (step.startsWith("rxoff"))
                result = AST_RFTEST_RXOn_r(0, 10000, channel, 0);
            else if (step.startsWith("rx"))
                result = AST_RFTEST_RXOn_r(0, 10000, channel, 1);
            else if (step.startsWith("dpch"))
                result = AST_CAL_apc_start_r(0, 10000, channel, 4096, 0, 12, 2, 0);
            else if (step.startsWith("agc"))
                result = AST_CAL_agc_r(0, 10000, channel, 4096, 0, 60, 0, &rssi, &dsp, &gain);
            else if (step == "stop")
                result = AST_CAL_stop_r(0, 10000);
            answers << QString::number(result);
        }
        QTEST(answers.join(','), "results");
        QTEST(TavoSim::RadioActivity(), "activity");
    }

    // Measures and registers are read through the plug-in in
    // tests/PluginInterface/tst_TestPages; tracking is not.
    void trackingPicksTheIdealGain()
    {
        int16_t rssi = 0;
        uint16_t dsp = 0;
        uint8_t used = 0;
        QCOMPARE(AST_CAL_agc_ex_r(0, 10000, 9550, 4096, 0, 0, 1, &rssi, &dsp, &used), TAVO_OK);
        QCOMPARE(QString("%1/%2").arg(rssi).arg(used), QString("-584/63")); // -73 dBm arrive on 9550
    }
};

QTEST_GUILESS_MAIN(TestSimRadio)
#include "tst_SimRadio.moc"
