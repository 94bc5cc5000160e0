#include <QtTest>

#include <cmath>

#include "Afc/AfcSlopeCalculator.h"

// The calculator of the AFC page: the DAC at zero frequency error and the
// slope normalised to 900 MHz as the target stores it and gives it back.
class TestAfcSlopeCalculator : public QObject {
    Q_OBJECT
private slots:
    void evaluate_data()
    {
        QTest::addColumn<int>("d0");
        QTest::addColumn<int>("d1");
        QTest::addColumn<double>("f0");
        QTest::addColumn<double>("f1");
        QTest::addColumn<int>("uarfcn");
        QTest::addColumn<int>("initAfcDac");
        QTest::addColumn<int>("slopeInverse");
        QTest::addColumn<float>("slope");
        QTest::newRow("zero crossing in the middle, 900 MHz") << 1000 << 2000 << -500.0 << 500.0 << 4500 << 1500 << 4096
                                                              << 1.0f;
        QTest::newRow("2000 MHz channel") << 1000 << 2000 << -500.0 << 500.0 << 10000 << 1500 << 9102
                                          << 4096.0f / 9102;
        QTest::newRow("a zero crossing below DAC 0") << -10 << 10 << 0.5 << 3.0 << 4500 << -14 << 32768 << 0.125f;
        QTest::newRow("a half rounds away from zero") << 0 << 10 << -1.25 << 3.75 << 4500 << 3 << 8192 << 0.5f;
        QTest::newRow("and below zero too") << 0 << -10 << -1.25 << 3.75 << 4500 << -3 << 57344 << 4096.0f / 57344;
        QTest::newRow("no DAC spread: the line is vertical") << 3000 << 3000 << -100.0 << 100.0 << 10000 << 3000 << 0
                                                             << float(INFINITY);
        QTest::newRow("DACs beyond 32767 wrap as the widget's words") << 40000 << 40010 << 0.0 << 10.0 << 4500
                                                                      << -25536 << 4096 << 1.0f;
    }
    void evaluate()
    {
        QFETCH(int, d0);
        QFETCH(int, d1);
        QFETCH(double, f0);
        QFETCH(double, f1);
        QFETCH(int, uarfcn);
        const CAfcSlopeCalculator::SResult result =
            CAfcSlopeCalculator::Evaluate(int16_t(d0), int16_t(d1), f0, f1, uint16_t(uarfcn));
        QTEST(int(result.initAfcDac), "initAfcDac");
        QTEST(int(result.slopeInverse), "slopeInverse");
        QTEST(result.slope, "slope");
    }
};

QTEST_GUILESS_MAIN(TestAfcSlopeCalculator)
#include "tst_AfcSlopeCalculator.moc"
