// What a full self calibration export and import of the radio's blocks cost
// (the seventh generation, 40 blocks of 30,000 bytes, 1.2 MB), against the
// hexadecimal conversion of the same bytes alone and SimpleIni alone writing
// and reading the same texts.
// Run: build/bin/bench_SelfCal [-tickcounter]
#include <QJsonArray>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

// As the file layer takes it: the ICU converter, UTF-16 code units.
#define SI_CONVERT_ICU
#include <SimpleIni.h>

#include <string>
#include <vector>

#include "CalTextConverters.h"
#include "GeneralCore.h"
#include "Items/MultiRatSelfCalV7.h"
#include "TIniFile.h"
#include "TavoSimControl.h"

namespace {

constexpr int kBlocks = 40;
constexpr int kBlockSize = 30000;

} // namespace

class BenchSelfCal : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void exportFile();
    void importFile();
    void hexConversionAlone();
    void simpleIniAlone();

private:
    QTemporaryDir m_dir;
    QString m_file;
    CMultiRatSelfCalV7 m_item;
};

void BenchSelfCal::initTestCase()
{
    QLoggingCategory::setFilterRules("radbench.*.debug=false\ndefault.debug=false");
    QVERIFY(m_dir.isValid());
    QJsonArray blocks;
    for (int i = 0; i < kBlocks; ++i)
        blocks << QJsonObject{{"index", i}, {"key", QString("MMRF_SELFCAL_%1").arg(i)}, {"size", kBlockSize}};
    QVERIFY(TavoSim::LoadProfile("default"));
    QVERIFY(TavoSim::PatchProfile({{"selfCal", QJsonObject{{"mmrf", blocks}}}}, TavoSim::Patch::Reset));
    CGeneralCore::GetInstance()->ResetCapability();
    QCOMPARE(int(m_item.UploadFromFlash()), 0);
    m_file = m_dir.filePath("selfcal.ini");
    TIniFile file(m_file);
    QCOMPARE(int(m_item.WriteToFile(&file)), 0);
    QVERIFY(file.Save());
}

void BenchSelfCal::exportFile()
{
    const QString path = m_dir.filePath("export.ini");
    QBENCHMARK {
        QFile::remove(path);
        TIniFile file(path);
        m_item.WriteToFile(&file);
        file.Save();
    }
}

void BenchSelfCal::importFile()
{
    QBENCHMARK {
        TIniFile file(m_file);
        m_item.ReadFromFile(&file);
    }
    QVERIFY(m_item.IsDataValid());
}

void BenchSelfCal::hexConversionAlone()
{
    std::vector<uint8_t> bytes(kBlockSize, 0x5a);
    std::string text(size_t(kBlockSize) * 3, '\0');
    QBENCHMARK {
        for (int i = 0; i < kBlocks; ++i) {
            BinaryToHexText(bytes.data(), kBlockSize, text.data(), int(text.size()));
            HexTextToBinary(text.c_str(), int(text.size()) - 1, bytes.data(), kBlockSize);
        }
    }
}

// The same texts written to a file and read back by SimpleIni, in the
// instantiation the file layer uses, without the layer.
void BenchSelfCal::simpleIniAlone()
{
    using Ini = CSimpleIniTempl<char16_t, SI_NoCase<char16_t>, SI_ConvertW<char16_t>>;
    const std::u16string section = u"RF SELF CALIBRATION";
    const std::u16string text(size_t(kBlockSize) * 3 - 1, u'0');
    std::vector<std::u16string> keys;
    for (int i = 0; i < kBlocks; ++i)
        keys.push_back(QString("MMRF_SELFCAL_%1").arg(i).toStdU16String());
    const std::string path = m_dir.filePath("simpleini.ini").toStdString();
    QBENCHMARK {
        Ini out(true, true, false);
        for (const std::u16string &key : keys)
            out.SetValue(section.c_str(), key.c_str(), text.c_str());
        out.SaveFile(path.c_str());
        Ini in(true, true, false);
        in.LoadFile(path.c_str());
        for (const std::u16string &key : keys)
            in.GetValue(section.c_str(), key.c_str(), u"");
    }
}

QTEST_GUILESS_MAIN(BenchSelfCal)
#include "bench_SelfCal.moc"
