// The figures the tool is held to that no other benchmark measures: a full
// calibration export from the simulated target to a Cal/INI file; the
// Cal/INI layer against SimpleIni alone writing the same full export; and
// how long the user interface's event loop waits while a target call of one
// second runs. Run: build/bin/bench_Budgets (scripts/bench.sh puts every
// figure beside its budget).
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#define SI_CONVERT_ICU
#include <SimpleIni.h>

#include <tuple>
#include <vector>

#include "CalDataSession.h"
#include "GeneralCore.h"
#include "Median.h"
#include "TIniFile.h"
#include "TavoSimControl.h"
#include "TdscdmaCore.h"

class BenchBudgets : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void fullExportFromTarget();
    void calIniLayerOnFullExport();
    void simpleIniAloneOnFullExport();
    void eventLoopDelayDuringLongCall();

private:
    bool WriteThroughLayer();
    bool WriteThroughSimpleIniAlone();

    QTemporaryDir m_dir;
    double m_simpleIniAlone = 0;
    // Every value of the full export: section, key, value.
    std::vector<std::tuple<std::string, std::string, std::string>> m_values;
};

void BenchBudgets::initTestCase()
{
    QLoggingCategory::setFilterRules("radbench.*.debug=false\ndefault.debug=false");
    QVERIFY(TavoSim::LoadProfile("default"));
    TavoSim::LoadDatabase();
    // What a full export writes, once, as the two file layers will write it.
    const QString path = m_dir.filePath("full.ini");
    CCalDataSession session;
    QVector<SEachItemOperationResult> results;
    QString error;
    QVERIFY2(session.Upload(path, {}, results, error), qPrintable(error));
    CSimpleIniA ini;
    QCOMPARE(int(ini.LoadFile(qPrintable(path))), int(SI_OK));
    CSimpleIniA::TNamesDepend sections, keys;
    ini.GetAllSections(sections);
    for (const auto &section : sections) {
        ini.GetAllKeys(section.pItem, keys);
        for (const auto &key : keys)
            m_values.emplace_back(section.pItem, key.pItem, ini.GetValue(section.pItem, key.pItem, ""));
    }
    QVERIFY(m_values.size() > 100);
}

void BenchBudgets::fullExportFromTarget()
{
    const QString path = m_dir.filePath("export.ini");
    CCalDataSession session;
    QBENCHMARK {
        QVector<SEachItemOperationResult> results;
        QString error;
        QVERIFY(session.Upload(path, {}, results, error));
    }
}

void BenchBudgets::calIniLayerOnFullExport()
{
    // The two writers take turns, so that whatever else the machine does
    // weighs on both alike; SimpleIni's figure is told by the next function.
    std::vector<double> layer, alone;
    QElapsedTimer clock;
    for (int run = 0; run < 31; ++run) {
        clock.start();
        QVERIFY(WriteThroughLayer());
        layer.push_back(clock.nsecsElapsed() / 1e6);
        clock.start();
        QVERIFY(WriteThroughSimpleIniAlone());
        alone.push_back(clock.nsecsElapsed() / 1e6);
    }
    m_simpleIniAlone = Median(alone);
    QTest::setBenchmarkResult(Median(layer), QTest::WalltimeMilliseconds);
}

void BenchBudgets::simpleIniAloneOnFullExport()
{
    QVERIFY(m_simpleIniAlone > 0);
    QTest::setBenchmarkResult(m_simpleIniAlone, QTest::WalltimeMilliseconds);
}

bool BenchBudgets::WriteThroughLayer()
{
    // As an export to a new file does it.
    const QString path = m_dir.filePath("layer.ini");
    QFile::remove(path);
    TIniFile file(path);
    for (const auto &[section, key, value] : m_values)
        file.WriteString(section, key, value);
    return file.Save();
}

bool BenchBudgets::WriteThroughSimpleIniAlone()
{
    // The same values, converted as the layer converts them.
    const std::string path = m_dir.filePath("alone.ini").toStdString();
    CSimpleIniW ini;
    for (const auto &[section, key, value] : m_values) {
        const QString s = QString::fromStdString(section), k = QString::fromStdString(key),
                      v = QString::fromStdString(value);
        ini.SetValue(reinterpret_cast<const UChar *>(s.utf16()), reinterpret_cast<const UChar *>(k.utf16()),
                     reinterpret_cast<const UChar *>(v.utf16()));
    }
    return ini.SaveFile(path.c_str()) == SI_OK;
}

void BenchBudgets::eventLoopDelayDuringLongCall()
{
    // An RSSI measure that takes the target a second, started as a page
    // starts it; meanwhile a timer of 1 ms measures how late the loop is.
    CTdscdmaCore *core = CTdscdmaCore::GetInstance();
    core->GetRatSupportStatus();
    TavoSim::SetLatency("AST_CAL_agc_ex_r", 1000);
    QEventLoop loop;
    QObject::connect(core, &CTdscdmaCore::Signal_TestDone, &loop, &QEventLoop::quit);
    QElapsedTimer clock;
    qint64 last = 0, worst = 0;
    QTimer ticks;
    ticks.setTimerType(Qt::PreciseTimer);
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        const qint64 now = clock.nsecsElapsed();
        worst = qMax(worst, now - last);
        last = now;
    });
    clock.start();
    ticks.start(1);
    core->TestStart("Rssi", core->GetDataModel("Rssi"));
    loop.exec();
    ticks.stop();
    TavoSim::SetLatency("AST_CAL_agc_ex_r", 0);
    QVERIFY(clock.elapsed() >= 1000);
    // The figure: the longest wait between two ticks, beyond their 1 ms.
    QTest::setBenchmarkResult(qMax<qint64>(0, worst - 1000000) / 1e6, QTest::WalltimeMilliseconds);
}

QTEST_MAIN(BenchBudgets)
#include "bench_Budgets.moc"
