#include <algorithm>

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include "Capability/FddRfCapability.h"
#include "Capability/GsmRfCapability.h"
#include "Capability/LteRfCapability.h"
#include "Capability/MmrfCapability.h"
#include "Capability/TdscdmaCapability.h"
#include "SimScope.h"
#include "TdscdmaCore.h"
#include "TdscdmaDataModelCapUpdater.h"

namespace {

QJsonObject Json(const char *text) { return QJsonDocument::fromJson(text).object(); }

// The range in MHz of a band's or a band group's name: "1850-1910MHz(b)".
QPair<int, int> Range(const QString &name)
{
    const QStringList bounds = name.section("MHz", 0, 0).split('-');
    return {bounds.value(0).toInt(), bounds.value(1).toInt()};
}

QString Flags(const bool *flags, int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += flags[i] ? '1' : '0';
    return text;
}

// Every cached getter of every capability class, asked once, as one line
// of "name=value" words a reader can hold against a row of the tables.
QString AllAnswers()
{
    CTdscdmaCapability td;
    CMmrfCapability mmrf;
    CGsmRfCapability gsm;
    CLteRfCapability lte;
    bool bands[CTdscdmaCapability::BAND_COUNT];
    bool groups[CTdscdmaCapability::BAND_GROUP_COUNT];
    td.GetSupportBand(bands);
    td.GetSupportBandGroup(groups);
    QStringList words{
        "bands=" + Flags(bands, CTdscdmaCapability::BAND_COUNT),
        "groups=" + Flags(groups, CTdscdmaCapability::BAND_GROUP_COUNT),
        QString("rf=%1").arg(td.GetRfChipId()),
        QString("tadcByCal=%1").arg(td.IsTadcByCalCommand()),
        QString("q3=%1").arg(td.IsDspPowerInQ3()),
        QString("rxExt=%1").arg(td.IsRxExtendModeSupported()),
        QString("plV3=%1").arg(td.IsPathlossV3()),
        QString("ubin=%1").arg(td.IsUbinSupported()),
        QString("nvram=%1/%2").arg(td.IsNvramVerValid()).arg(td.GetNvramVerNum()),
        QString("agcEx=%1").arg(td.IsAgcExSupported()),
        QString("apcEx=%1").arg(td.IsApcExSupported()),
        QString("clpc=%1").arg(td.GetTxClpcMode()),
        QString("selfCal=%1/%2").arg(mmrf.IsSelfCalSupported(1)).arg(mmrf.IsSelfCalV2()),
        QString("tadcL1=%1/%2").arg(mmrf.IsTadcByL1()).arg(mmrf.GetRficCount()),
        QString("afcL1=%1/%2").arg(mmrf.IsAfcByL1()).arg(mmrf.GetAfcVersion()),
        QString("gpsL1=%1/%2").arg(mmrf.IsGpsCoClockByL1()).arg(mmrf.GetGpsCoClockVersion()),
        QString("mmrfSelfCal=%1").arg(mmrf.IsMmrfSelfCalSupported()),
        QString("dcxo=%1").arg(mmrf.IsDcxoLpmSupported()),
        QString("tadcSum=%1").arg(gsm.IsTadcMeasureSumSupported()),
        QString("tadcSingle=%1").arg(gsm.IsTadcSingleReadSupported()),
        QString("lte=%1/%2").arg(lte.GetLteRfId()).arg(lte.IsGpsCoClockByErf()),
    };
    return words.join(' ');
}

} // namespace

class TestCapability : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        TavoSim::Reset();
        CTdscdmaCore::GetInstance()->ResetCapability();
    }
    void cleanup()
    {
        TavoSim::LoadProfile("default");
        CTdscdmaCore::GetInstance()->ResetCapability();
    }

    void answers_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("failingCall");
        QTest::addColumn<QString>("answers");
        QTest::newRow("default") << "default" << ""
            << "bands=11111111 groups=11111 rf=16 tadcByCal=0 q3=1 rxExt=1 plV3=1 ubin=1 nvram=1/2 agcEx=1 apcEx=1 "
               "clpc=1 selfCal=1/1 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=1 dcxo=1 tadcSum=1 tadcSingle=1 lte=5/1";
        QTest::newRow("legacy-v1") << "legacy-v1" << ""
            << "bands=11110000 groups=11100 rf=3 tadcByCal=1 q3=0 rxExt=0 plV3=0 ubin=0 nvram=0/0 agcEx=0 apcEx=0 "
               "clpc=0 selfCal=0/0 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=0 dcxo=0 tadcSum=0 tadcSingle=1 lte=0/0";
        QTest::newRow("modern-l1") << "modern-l1" << ""
            << "bands=11111111 groups=11111 rf=16 tadcByCal=0 q3=1 rxExt=1 plV3=1 ubin=1 nvram=1/2 agcEx=1 apcEx=1 "
               "clpc=1 selfCal=1/1 tadcL1=1/2 afcL1=1/3 gpsL1=1/3 mmrfSelfCal=1 dcxo=1 tadcSum=0 tadcSingle=0 lte=1/0";
        QTest::newRow("v1-pathloss-v2") << "v1-pathloss-v2" << ""
            << "bands=00001110 groups=10010 rf=32 tadcByCal=1 q3=0 rxExt=1 plV3=0 ubin=1 nvram=1/1 agcEx=1 apcEx=0 "
               "clpc=1 selfCal=1/0 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=0 dcxo=0 tadcSum=1 tadcSingle=1 lte=5/1";
        QTest::newRow("no-tdscdma: self cal of GSM only") << "no-tdscdma" << ""
            << "bands=11111111 groups=11111 rf=16 tadcByCal=0 q3=1 rxExt=1 plV3=1 ubin=1 nvram=1/2 agcEx=1 apcEx=1 "
               "clpc=1 selfCal=0/1 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=1 dcxo=1 tadcSum=1 tadcSingle=1 lte=5/1";
        // A failed query answers zeros.
        QTest::newRow("query-failure: multi-RAT") << "query-failure" << ""
            << "bands=11111111 groups=11111 rf=16 tadcByCal=0 q3=1 rxExt=1 plV3=1 ubin=1 nvram=1/2 agcEx=1 apcEx=1 "
               "clpc=1 selfCal=0/0 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=0 dcxo=0 tadcSum=1 tadcSingle=1 lte=5/1";
        // The option word is asked by the chip id query and the capability query.
        QTest::newRow("option word") << "default" << "TAVO_Util_QueryTargetOptionInfo"
            << "bands=00000000 groups=00000 rf=0 tadcByCal=0 q3=0 rxExt=0 plV3=0 ubin=0 nvram=0/0 agcEx=0 apcEx=0 "
               "clpc=0 selfCal=1/1 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=1 dcxo=1 tadcSum=1 tadcSingle=1 lte=5/1";
        QTest::newRow("chip id") << "default" << "AST_CAL_get_chipid_r"
            << "bands=11111111 groups=11111 rf=0 tadcByCal=0 q3=1 rxExt=1 plV3=1 ubin=1 nvram=1/2 agcEx=1 apcEx=1 "
               "clpc=1 selfCal=1/1 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=1 dcxo=1 tadcSum=1 tadcSingle=1 lte=5/1";
        QTest::newRow("RF capability record") << "default" << "AST_GetRfCapability_r"
            << "bands=00000000 groups=00000 rf=16 tadcByCal=0 q3=0 rxExt=0 plV3=0 ubin=0 nvram=0/0 agcEx=1 apcEx=1 "
               "clpc=0 selfCal=1/1 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=1 dcxo=1 tadcSum=1 tadcSingle=1 lte=5/1";
        QTest::newRow("GSM Ex2") << "default" << "TAVO_Rf_QueryMSCapabilityEx2_r"
            << "bands=11111111 groups=11111 rf=16 tadcByCal=0 q3=1 rxExt=1 plV3=1 ubin=1 nvram=1/2 agcEx=1 apcEx=1 "
               "clpc=1 selfCal=1/1 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=1 dcxo=1 tadcSum=0 tadcSingle=0 lte=5/1";
        QTest::newRow("LTE") << "default" << "TAVO_ERf_GetRfCapability_r"
            << "bands=11111111 groups=11111 rf=16 tadcByCal=0 q3=1 rxExt=1 plV3=1 ubin=1 nvram=1/2 agcEx=1 apcEx=1 "
               "clpc=1 selfCal=1/1 tadcL1=0/0 afcL1=0/0 gpsL1=0/0 mmrfSelfCal=1 dcxo=1 tadcSum=1 tadcSingle=1 lte=0/0";
    }
    // Each query is made once, also when it failed, until a reset.
    void answers()
    {
        QFETCH(QString, profile);
        QFETCH(QString, failingCall);
        SimScope sim(profile);
        QVERIFY(sim.IsLoaded());
        if (!failingCall.isEmpty())
            TavoSim::FailAlways(failingCall);
        QTEST(AllAnswers(), "answers");
        const int calls = TavoSim::CallLog().size();
        if (!failingCall.isEmpty())
            TavoSim::ClearFaults();
        QTEST(AllAnswers(), "answers");
        QCOMPARE(TavoSim::CallLog().size(), calls);
        if (!failingCall.isEmpty())
            return;
        CTdscdmaCore::GetInstance()->ResetCapability();
        QTEST(AllAnswers(), "answers");
        QCOMPARE(TavoSim::CallLog().size(), 2 * calls);
    }

    void bandsAndGroups_data()
    {
        QTest::addColumn<QString>("band");
        for (const char *band : {"a", "b", "c", "d", "e", "f"})
            QTest::newRow(band) << band;
    }
    // A target of one band offers the test bands of that band and the band
    // groups whose range holds one of them.
    void bandsAndGroups()
    {
        QFETCH(QString, band);
        SimScope sim("default");
        QVERIFY(TavoSim::PatchProfile({{"tdscdma", QJsonObject{{"bands", QJsonArray{band}}}}}));
        CTdscdmaCapability capability;
        const QStringList &bands = CTdscdmaDataModelCapUpdater::BandNames();
        const QStringList &groups = CTdscdmaDataModelCapUpdater::BandGroupNames();
        QList<QPair<int, int>> offered;
        for (int i = 0; i < bands.size(); ++i) {
            QCOMPARE(capability.IsBandSupported(i), bands[i].endsWith("(" + band + ")"));
            if (capability.IsBandSupported(i))
                offered << Range(bands[i]);
        }
        for (int i = 0; i < groups.size(); ++i) {
            const QPair<int, int> group = Range(groups[i]);
            const bool holds = std::any_of(offered.begin(), offered.end(), [&group](const QPair<int, int> &range) {
                return range.first >= group.first && range.second <= group.second;
            });
            QCOMPARE(capability.IsBandGroupSupported(i), holds);
        }
        QVERIFY(!capability.IsBandSupported(-1) && !capability.IsBandSupported(bands.size()));
        QVERIFY(!capability.IsBandGroupSupported(-1) && !capability.IsBandGroupSupported(groups.size()));
    }

    // Mode 1 and an invalid field: the profiles' answers above.
    void txClpcMode_data()
    {
        QTest::addColumn<QJsonObject>("patch");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("nvramVersion");
        QTest::addColumn<bool>("ubin");
        QTest::newRow("value 0") << Json(R"({"tdscdma": {"rfCapability": {"txClpcMode": 0}}})") << 0 << 2 << true;
        QTest::newRow("value 5") << Json(R"({"tdscdma": {"rfCapability": {"txClpcMode": 5}}})") << 2 << 2 << true;
        QTest::newRow("no RF capability record") << Json(R"({"tdscdma": {"rfCapability": null}})") << 0 << 0 << false;
    }
    void txClpcMode()
    {
        QFETCH(QJsonObject, patch);
        QFETCH(int, nvramVersion);
        SimScope sim("default");
        QVERIFY(TavoSim::PatchProfile(patch));
        CTdscdmaCapability capability;
        QCOMPARE(int(capability.GetNvramVerNum()), nvramVersion);
        QTEST(capability.GetTxClpcMode(), "mode");
        QTEST(capability.IsUbinSupported(), "ubin");
        if (nvramVersion == 0)
            QCOMPARE(TavoSim::CallCount("AST_GetRfCapability_r"), 0);
    }

    void rfIdsAreAskedEachTime()
    {
        SimScope sim("default");
        CGsmRfCapability gsm;
        CFddRfCapability fdd;
        QCOMPARE(gsm.GetGsmRfId(), 3u);
        QCOMPARE(fdd.GetFddRfId(), 2u);
        TavoSim::FailOnce("TAVO_Rf_GetRFID_r");
        QCOMPARE(gsm.GetGsmRfId(), 0u);
        QCOMPARE(gsm.GetGsmRfId(), 3u);
    }
};

QTEST_GUILESS_MAIN(TestCapability)
#include "tst_Capability.moc"
