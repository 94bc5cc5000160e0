// Binding, the user's first impression and every later action: a stored
// model, fitted to the default simulated target, bound to a page whose form
// has all its members; then, on the largest model (TPC V3), one packing, one
// update and one band change with its relevance chain.
// Run: build/bin/bench_Binding
#include <QComboBox>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QtTest>

#include "TavoSimControl.h"
#include "TdscdmaCore.h"
#include "TestPage.h"

class BenchBinding : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void bindStoredModel_data();
    void bindStoredModel();
    void packLargestModel();
    void updateLargestModel();
    void bandChangeOnLargestModel();

private:
    std::string Model(const QString &page) const { return CTdscdmaCore::GetInstance()->GetDataModel(page); }
};

void BenchBinding::initTestCase()
{
    // The trace would be most of what is measured; the offscreen platform's
    // notes go to the default category's warnings.
    QLoggingCategory::setFilterRules("radbench.*.debug=false\ndefault.debug=false\ndefault.warning=false");
    TavoSim::LoadProfile("default");
    TavoSim::LoadDatabase();
}

void BenchBinding::bindStoredModel_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("calData");
    for (const char *page : {"AFC Control", "Continuous TX", "Temperature ADC", "Dpch TX", "Rssi", "Baseband Register"})
        QTest::newRow(page) << page << 0;
    QTest::newRow("Tpc (V3)") << "Tpc" << 1;
    QTest::newRow("Rx Pathloss (V3)") << "Rx Pathloss" << 1;
}

void BenchBinding::bindStoredModel()
{
    QFETCH(QString, page);
    QFETCH(int, calData);
    const std::string text = Model(page);
    const QJsonObject model = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();

    // Where the time goes: parsing the text, and the whole bind of a fresh
    // page (parse, widget set-up, table cells and sizing with hide/show).
    constexpr int runs = 20;
    qint64 parseNs = 0;
    qint64 bindNs = 0;
    int widgets = 0;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer clock;
        clock.start();
        QJsonDocument::fromJson(QByteArray::fromStdString(text));
        parseNs += clock.nsecsElapsed();

        TestPage testPage(calData);
        testPage.AddWidgetsFor(model);
        clock.restart();
        QVERIFY(testPage.Load(text));
        bindNs += clock.nsecsElapsed();
        widgets = testPage.findChildren<QWidget *>().size();
    }
    qInfo("%-20s parse %7.3f ms   bind %7.3f ms   (%d widgets)", qPrintable(page), parseNs / 1e6 / runs,
          bindNs / 1e6 / runs, widgets);
}

void BenchBinding::packLargestModel()
{
    const std::string text = Model("Tpc");
    TestPage page(1);
    page.AddWidgetsFor(QJsonDocument::fromJson(QByteArray::fromStdString(text)).object());
    QVERIFY(page.Load(text));
    QBENCHMARK { page.PackageMemberValue(); }
}

void BenchBinding::updateLargestModel()
{
    const std::string text = Model("Tpc");
    TestPage page(1);
    page.AddWidgetsFor(QJsonDocument::fromJson(QByteArray::fromStdString(text)).object());
    QVERIFY(page.Load(text));
    const QJsonObject answer = QJsonDocument::fromJson(QByteArray::fromStdString(page.PackageMemberValue())).object();
    QBENCHMARK { page.UpdateWidgets(answer); }
}

void BenchBinding::bandChangeOnLargestModel()
{
    const std::string text = Model("Tpc");
    TestPage page(1);
    page.AddWidgetsFor(QJsonDocument::fromJson(QByteArray::fromStdString(text)).object());
    QVERIFY(page.Load(text));
    auto *band = qobject_cast<QComboBox *>(page.Widget("calDataIf_config_group1_memberProperty_band"));
    QVERIFY(band && band->count() > 1);
    int next = 0;
    QBENCHMARK { band->setCurrentIndex(++next % band->count()); }
}

QTEST_MAIN(BenchBinding)
#include "bench_Binding.moc"
