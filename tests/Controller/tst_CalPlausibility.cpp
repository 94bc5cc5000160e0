// The plausibility check of TPC and path loss curves.

#include <QJsonDocument>
#include <QtTest>

#include "Plausibility/CalPlausibility.h"

namespace {

// Healthy curves: every mode rising, neighbours overlapping by 1 dB, a
// hysteresis of 1 dB at each switch point.
STpcCurves Healthy()
{
    STpcCurves curves;
    curves.dac = {QVector<double>{2300, 2590, 2880, 3170}, {1910, 2200, 2490, 2780}, {1520, 1810, 2100, 2390}};
    curves.power = {QVector<double>{12, 16, 20, 24}, {2, 6, 9, 13}, {-8, -4, -1, 3}};
    curves.hysteresisStart = {12, 24};
    curves.hysteresisEnd = {13, 25};
    return curves;
}

// "kind curve:point curve:point", one string a fault.
QStringList Described(const QVector<SCalFault> &faults)
{
    QStringList described;
    for (const SCalFault &fault : faults) {
        QString text = QString::number(int(fault.kind));
        for (const auto &[curve, point] : fault.points)
            text += QString(" %1:%2").arg(curve).arg(point);
        described << text;
    }
    return described;
}

using Edit = std::function<void(STpcCurves &)>;

// JSON written with single quotes.
QByteArray Json(const char *text) { return QByteArray(text).replace('\'', '"'); }

} // namespace

Q_DECLARE_METATYPE(Edit)

class TestCalPlausibility : public QObject {
    Q_OBJECT

private slots:
    void tpc_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QStringList>("faults");
        QTest::newRow("monotonic") << Edit([](STpcCurves &) {}) << QStringList();
        QTest::newRow("flat step") << Edit([](STpcCurves &c) { c.power[1][2] = 6; }) << QStringList{"0 1:2"};
        QTest::newRow("a single dip") << Edit([](STpcCurves &c) { c.power[0][2] = 15.5; }) << QStringList{"0 0:2"};
        // The point after a dip rises again: only the dip is marked.
        QTest::newRow("a dip, then a rise") << Edit([](STpcCurves &c) { c.power[1][1] = 1.5; }) << QStringList{"0 1:1"};
        QTest::newRow("a dip that also parts two modes")
            << Edit([](STpcCurves &c) { c.power[2][3] = -2; }) << QStringList{"0 2:3", "1 1:0 2:2"};
        QTest::newRow("DAC words out of order")
            << Edit([](STpcCurves &c) { std::swap(c.dac[0][1], c.dac[0][2]); }) << QStringList{"3 0:2"};
        QTest::newRow("overlap exactly the hysteresis") << Edit([](STpcCurves &) {}) << QStringList();
        QTest::newRow("overlap short by one unit")
            << Edit([](STpcCurves &c) { c.hysteresisEnd[0] = 14; }) << QStringList{"1 0:0 1:3"};
        QTest::newRow("ranges apart") << Edit([](STpcCurves &c) { c.power[2] = {-8, -4, -1, 1}; })
                                      << QStringList{"1 1:0 2:3"};
        QTest::newRow("an uncalibrated mode is left alone")
            << Edit([](STpcCurves &c) {
                   c.dac[2].fill(0);
                   c.power[2].fill(0);
               })
            << QStringList();
    }
    void tpc()
    {
        QFETCH(Edit, edit);
        STpcCurves curves = Healthy();
        edit(curves);
        QTEST(Described(CCalPlausibility::CheckTpc(curves)), "faults");
    }

    void pathloss_data()
    {
        QTest::addColumn<QVector<double>>("loss");
        QTest::addColumn<QStringList>("faults");
        QTest::newRow("smooth") << QVector<double>{0.5, 0.5, 0.375, 0.5, 0.625} << QStringList();
        QTest::newRow("a jump exactly at the threshold") << QVector<double>{0.5, 3.5, 3.5, 3.5, 3.5} << QStringList();
        QTest::newRow("just over the threshold") << QVector<double>{0.5, 3.625, 3.5, 3.5, 3.5} << QStringList{"2 0:1"};
        QTest::newRow("a spike: up and down again")
            << QVector<double>{0.5, 0.5, 4.0, 0.5, 0.5} << QStringList{"2 0:2", "2 0:3"};
        // Channel 0 is an unused sub-band: its neighbours are compared.
        QTest::newRow("across an unused sub-band") << QVector<double>{0.5, 0.5, 9, 0.5, 0.5} << QStringList();
    }
    void pathloss()
    {
        QFETCH(QVector<double>, loss);
        SPathlossCurves curves;
        curves.channels = {10055, 10060, 10065, 10070, 10075};
        if (QTest::currentDataTag() == QByteArray("across an unused sub-band"))
            curves.channels[2] = 0;
        curves.losses = QVector<QVector<double>>{loss};
        curves.modes = QStringList{"LNA_H_LOSS"};
        QTEST(Described(CCalPlausibility::CheckPathloss(curves, 3.0)), "faults");
    }

    // The curves come out of the model the controller answers, found by
    // group name whichever number the group has.
    void fromModel_data()
    {
        QTest::addColumn<QByteArray>("model");
        QTest::addColumn<QString>("curves");
        QTest::newRow("TPC") << Json("{'calDataIf':{'data':{"
                                     "'group2':{'groupName':'Hysteresis','memberProperty':{"
                                     "'hysteresisStart0':{'trait':{'defaultValue':'12'}},"
                                     "'hysteresisEnd0':{'trait':{'defaultValue':'14'}}}},"
                                     "'group5':{'groupName':'VGA DAC','memberProperty':{"
                                     "'paH':{'trait':{'defaultValue':['1','2']}},"
                                     "'paM':{'trait':{'defaultValue':['3']}}}},"
                                     "'group6':{'groupName':'Power (dBm)','memberProperty':{"
                                     "'paH':{'trait':{'defaultValue':['5.5','6']}}}}}}}")
                             << "dac 1,2|3| power 5.5,6|| hysteresis 12-14";
        QTest::newRow("path loss") << Json("{'calDataIf':{'data':{'group1':{'groupName':'RX Main',"
                                           "'memberList':['uarfcn','loss0','loss1'],'memberProperty':{"
                                           "'uarfcn':{'defaultSupport':1,'trait':{'defaultValue':['10055','10060']}},"
                                           "'loss0':{'caption':'LNA_H_LOSS','defaultSupport':1,"
                                           "'trait':{'defaultValue':['0.5','0.625']}},"
                                           "'loss1':{'caption':'LNA_M_LOSS','defaultSupport':0,"
                                           "'trait':{'defaultValue':['1','1']}}}}}}}")
                                   << "channels 10055,10060 LNA_H_LOSS 0.5,0.625";
        QTest::newRow("no data") << QByteArray("{}") << "none";
    }
    void fromModel()
    {
        QFETCH(QByteArray, model);
        const QJsonObject object = QJsonDocument::fromJson(model).object();
        const auto join = [](const QVector<double> &values) {
            QStringList texts;
            for (double value : values)
                texts << QString::number(value);
            return texts.join(',');
        };
        STpcCurves tpc;
        SPathlossCurves loss;
        QString curves = "none";
        if (CCalPlausibility::TpcFromModel(object, tpc))
            curves = QString("dac %1|%2| power %3|| hysteresis %4-%5")
                         .arg(join(tpc.dac[0]), join(tpc.dac[1]), join(tpc.power[0]))
                         .arg(tpc.hysteresisStart[0])
                         .arg(tpc.hysteresisEnd[0]);
        else if (CCalPlausibility::PathlossFromModel(object, loss))
            curves = QString("channels %1 %2 %3").arg(join(loss.channels), loss.modes.join('+'), join(loss.losses.value(0)));
        QTEST(curves, "curves");
    }
};

QTEST_GUILESS_MAIN(TestCalPlausibility)
#include "tst_CalPlausibility.moc"
