// How much the model work costs: path reads and writes on a real page model,
// and serving each page's model fitted to the default simulated target.
// Run: build/bin/bench_DataModel [-tickcounter|-callgrind]
#include <QFile>
#include <QJsonDocument>
#include <QtTest>

#include "JsonPath.h"
#include "RadbenchResources.h"
#include "TavoSimControl.h"
#include "TdscdmaCore.h"

class BenchDataModel : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void parseStoredModel();
    void readDeepPath();
    void writeDeepPath();
    void pathIsMissing();
    void servePageModel_data();
    void servePageModel();

private:
    QJsonObject m_model;
};

static const QString kDeepPath = "calDataIf.data.group7.memberProperty.uarfcn.trait.valuePair";

void BenchDataModel::initTestCase()
{
    // The trace would be most of what is measured.
    QLoggingCategory::setFilterRules("radbench.*.debug=false\ndefault.debug=false");
    InitRadbenchResources();
    TavoSim::LoadProfile("default");
    TavoSim::LoadDatabase();
    QFile file(":/TdscdmaTpcV3.json");
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_model = QJsonDocument::fromJson(file.readAll()).object();
    QVERIFY(!IsJsonPathMissing(m_model, kDeepPath));
}

void BenchDataModel::parseStoredModel()
{
    QFile file(":/TdscdmaTpcV3.json");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QBENCHMARK { QJsonDocument::fromJson(text).object(); }
}

void BenchDataModel::readDeepPath()
{
    QBENCHMARK { GetJsonValueConst(m_model, kDeepPath); }
}

void BenchDataModel::writeDeepPath()
{
    QJsonObject model = m_model;
    const QJsonValue value(QJsonObject{{"min", 1}, {"max", 2}});
    QBENCHMARK { SetJsonValue(model, kDeepPath, value); }
}

void BenchDataModel::pathIsMissing()
{
    QBENCHMARK { IsJsonPathMissing(m_model, "calDataIf.data.group7.memberProperty.nothing.trait"); }
}

void BenchDataModel::servePageModel_data()
{
    QTest::addColumn<QString>("page");
    for (const char *page : {"Continuous TX", "Tpc", "Rx Pathloss", "Rssi", "Temperature ADC"})
        QTest::newRow(page) << page;
}

void BenchDataModel::servePageModel()
{
    QFETCH(QString, page);
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    core->GetDataModel(page); // capability answers cached before the measure
    QBENCHMARK { core->GetDataModel(page); }
}

QTEST_GUILESS_MAIN(BenchDataModel)
#include "bench_DataModel.moc"
