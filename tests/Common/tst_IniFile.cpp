#include <QtTest>

#include <QScopeGuard>
#include <QTemporaryDir>

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <vector>

#include "CalTextConverters.h"
#include "TIniFile.h"
#include "TestFiles.h"

using TestFiles::Read;
using TestFiles::Write;

namespace {

QList<QByteArray> NonEmptyLines(const QByteArray &text)
{
    QList<QByteArray> lines = text.split('\n');
    lines.removeAll(QByteArray());
    return lines;
}

constexpr double kUnmeasured = -987654321.0;

// Until the guard it gives ends, file permissions bind this process even
// when it runs as root: it gives up the capabilities that override them.
auto ApplyReadPermissions()
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct saved[2]{};
    bool dropped = false;
    if (syscall(SYS_capget, &header, saved) == 0) {
        __user_cap_data_struct strict[2] = {saved[0], saved[1]};
        strict[0].effective &= ~((1u << CAP_DAC_OVERRIDE) | (1u << CAP_DAC_READ_SEARCH));
        dropped = syscall(SYS_capset, &header, strict) == 0;
    }
    return qScopeGuard([=]() mutable {
        if (dropped)
            syscall(SYS_capset, &header, saved);
    });
}

template <typename T>
std::vector<T> Numbers(const QVector<double> &values)
{
    return std::vector<T>(values.begin(), values.end());
}

} // namespace

// Cal/INI files and the converters of their values. Every file lies in a
// folder whose name is not ASCII. Converter buffers are heap blocks of
// exactly the size a function may use, so that the sanitizer build catches a
// byte written behind them.
class TestIniFile : public QObject {
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(m_tmp.isValid());
        m_dir = m_tmp.path() + QString::fromUtf8("/Kalibrierung Äö 校准");
        QVERIFY(QDir().mkpath(m_dir));
    }

    void typedValuesRoundTrip()
    {
        const QString path = FilePath("round trip.ini");
        const QString wide = QString::fromUtf8("校准 \xF0\x9F\x93\xA1");
        {
            TIniFile file(path);
            file.WriteInt("TPC Band 0", "Int", -2147483647 - 1);
            file.WriteDouble("TPC Band 0", "Small", 0.1);
            file.WriteString("TPC Band 0", "Narrow", "Gr\xC3\xBC\xC3\x9F" "e = 1;2");
            file.WriteStringW("TPC Band 0", "Wide", wide);
            QVERIFY(file.Save());
        }
        QCOMPARE(NonEmptyLines(Read(path)), QList<QByteArray>({"[TPC Band 0]", "Int = -2147483648",
                                                                   "Small = 0.100000",
                                                                   "Narrow = Gr\xC3\xBC\xC3\x9F" "e = 1;2",
                                                                   "Wide = " + wide.toUtf8()}));
        TIniFile file(path);
        QCOMPARE(file.ReadInt("tpc band 0", "INT", 0), -2147483647 - 1);
        QCOMPARE(file.ReadDouble("tpc band 0", "small", 0.0), 0.1);
        QCOMPARE(file.ReadString("tpc band 0", "NARROW", ""), std::string("Gr\xC3\xBC\xC3\x9F" "e = 1;2"));
        QCOMPARE(file.ReadStringW("tpc band 0", "WIDE", QString()), wide);
    }

    // A file as found: what the reads of section "band 1", key "GAIN" give
    // (defaults "absent", 77 and 0.1234567; a second load would double every
    // value), and what the file holds after TPC::Max is written twice in
    // different letter case and the file saved.
    void filesAsFound_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("sectionExists");
        QTest::addColumn<bool>("keyExists");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("number");
        QTest::addColumn<double>("real");
        QTest::addColumn<QList<QByteArray>>("after");
        using Lines = QList<QByteArray>;
        QTest::newRow("byte order mark and CRLF, not written back")
            << QByteArray("\xEF\xBB\xBF[Band 1]\r\ngain = 12.5\r\n") << true << true << "12.5" << 12 << 12.5
            << Lines{"[Band 1]", "gain = 12.5", "[TPC]", "MAX = 6"};
        QTest::newRow("letters read as 0, not the default") << QByteArray("[Band 1]\ngain = abc\n") << true << true
                                                            << "abc" << 0 << 0.0
                                                            << Lines{"[Band 1]", "gain = abc", "[TPC]", "MAX = 6"};
        QTest::newRow("first of two values")
            << QByteArray("[Band 1]\ngain = 1\ngain = 2\n") << true << true << "1" << 1 << 1.0
            << Lines{"[Band 1]", "gain = 1", "gain = 2", "[TPC]", "MAX = 6"};
        // The double default takes the way through "%lf".
        QTest::newRow("section without keys") << QByteArray("[Band 1]\n") << true << false << "absent" << 77
                                              << 0.123457 << Lines{"[Band 1]", "[TPC]", "MAX = 6"};
        QTest::newRow("other sections and keys survive")
            << QByteArray("[AFC]\ncap = 1\n\n[tpc]\nMin = 0\nmax = 1\n\n[RX]\nloss = 3\n") << false << false << "absent"
            << 77 << 0.123457 << Lines{"[AFC]", "cap = 1", "[tpc]", "Min = 0", "MAX = 6", "[RX]", "loss = 3"};
        QTest::newRow("letters of an 8-bit code page keep their bytes")
            << QByteArray("[AFC]\n; f\xFCr B\xE4nder\ncap = 1\nname = M\xFCller\n") << false << false << "absent" << 77
            << 0.123457 << Lines{"[AFC]", "; f\xFCr B\xE4nder", "cap = 1", "name = M\xFCller", "[TPC]", "MAX = 6"};
    }
    void filesAsFound()
    {
        QFETCH(QByteArray, content);
        const QString path = FilePath("as found.ini");
        QVERIFY(Write(path, content));
        TIniFile file(path);
        QTEST(file.IsSectionExist("band 1"), "sectionExists");
        QTEST(file.IsKeyExist("band 1", "GAIN"), "keyExists");
        QTEST(file.ReadStringW("band 1", "GAIN", "absent"), "text");
        QTEST(file.ReadInt("band 1", "GAIN", 77), "number");
        QTEST(file.ReadDouble("band 1", "GAIN", 0.1234567), "real");
        file.WriteInt("TPC", "Max", 5);
        file.WriteInt("tpc", "MAX", 6);
        QVERIFY(file.Save());
        const QByteArray text = Read(path);
        QVERIFY(!text.contains('\r'));
        QTEST(NonEmptyLines(text), "after");
    }

    void unusablePathOnlyReports_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content"); // null: no file
        QTest::newRow("folder missing") << "missing/cal.ini" << QByteArray();
        QTest::newRow("path is a folder") << "folder.ini" << QByteArray();
        // The user's file is never replaced by what little is in memory.
        QTest::newRow("file that can be written, not read") << "write only.ini" << QByteArray("[S]\nK = 1\n");
    }
    void unusablePathOnlyReports()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QVERIFY(QDir().mkpath(FilePath("folder.ini")));
        const QString path = FilePath(name);
        if (!content.isNull()) {
            QVERIFY(Write(path, content));
            QVERIFY(QFile::setPermissions(path, QFile::WriteOwner));
        }
        {
            const auto strict = ApplyReadPermissions();
            if (!content.isNull() && QFile(path).open(QIODevice::ReadOnly))
                QSKIP("this process reads files whatever their permissions say");

            TIniFile file(path);
            QVERIFY(!file.IsSectionExist("S"));
            QCOMPARE(file.ReadInt("S", "K", 7), 7);
            file.WriteInt("S", "K", 2);
            QVERIFY(!file.Save());
        }
        if (!content.isNull()) {
            QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
            QCOMPARE(Read(path), content);
        }
        QVERIFY(QFileInfo(FilePath("folder.ini")).isDir());
        QVERIFY(!QFileInfo::exists(FilePath("missing")));
    }

    void formatLists_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QVector<double>>("values");
        QTest::addColumn<char>("separator");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("unsigned") << "u16" << QVector<double>{1, 2, 65535} << ',' << 0 << QByteArray("1,2,65535");
        QTest::newRow("signed") << "i16" << QVector<double>{-32768, 0, 32767} << ';' << 0
                                << QByteArray("-32768;0;32767");
        QTest::newRow("reals") << "real" << QVector<double>{1.5, 2} << ',' << 3 << QByteArray("1.500,2.000");
    }
    void formatLists()
    {
        QFETCH(QString, type);
        QFETCH(QVector<double>, values);
        QFETCH(char, separator);
        QFETCH(int, decimals);
        QFETCH(QByteArray, text);
        std::vector<char> target(size_t(text.size()) + 1, 'x');
        const int count = values.size();
        const int length =
            type == "real" ? FormatDoubleList(target.data(), values.data(), count, separator, decimals)
            : type == "i16" ? FormatInt16List(target.data(), Numbers<qint16>(values).data(), count, separator)
                            : FormatUInt16List(target.data(), Numbers<quint16>(values).data(), count, separator);
        QCOMPARE(QByteArray(target.data()), text);
        QCOMPARE(length, text.size());
    }

    void parseLists_data()
    {
        QTest::addColumn<bool>("real");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("maxCount");
        QTest::addColumn<QVector<double>>("values");
        QTest::newRow("separators of every kind") << false << QByteArray(",1,,2;3 4") << 3 << QVector<double>{1, 2, 3};
        QTest::newRow("low 16 bits") << false << QByteArray("-1 70000") << 8 << QVector<double>{65535, 4464};
        QTest::newRow("number ends at character 2047") << false << QByteArray(2042, ',') + "12345678" << 8
                                                       << QVector<double>{12345};
        QTest::newRow("number cut at character 2047") << false << QByteArray(2043, ',') + "12345678" << 8
                                                      << QVector<double>{1234};
        QTest::newRow("reals") << true << QByteArray("1.5, -2e3;+.25") << 8 << QVector<double>{1.5, -2000, 0.25};
        QTest::newRow("unmeasured mark") << true << QByteArray("9.91e37,1,9.91E+37") << 8
                                         << QVector<double>{kUnmeasured, 1, kUnmeasured};
        QTest::newRow("real cut at character 32767") << true << QByteArray(32763, ' ') + "1.2345" << 8
                                                     << QVector<double>{1.23};
    }
    void parseLists()
    {
        QFETCH(bool, real);
        QFETCH(QByteArray, text);
        QFETCH(int, maxCount);
        QFETCH(QVector<double>, values);
        // One slot more than maxCount shows that nothing is stored behind it.
        const double untouched = 4242;
        std::vector<double> reals(size_t(maxCount) + 1, untouched);
        std::vector<quint16> integers(size_t(maxCount) + 1, quint16(untouched));
        const int count = real ? ParseDoubleList(text.constData(), reals.data(), maxCount)
                               : ParseUInt16List(text.constData(), integers.data(), maxCount);
        const QVector<double> stored = real ? QVector<double>(reals.begin(), reals.end())
                                            : QVector<double>(integers.begin(), integers.end());
        QCOMPARE(count, values.size());
        QCOMPARE(stored, values + QVector<double>(maxCount + 1 - count, untouched));
    }

    // Bytes as "01 AB" text and back, into targets of a given capacity; a
    // conversion that does not fit or cannot be read says so.
    void hexText_data()
    {
        QTest::addColumn<bool>("toText");
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<int>("capacity");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QByteArray>("written"); // what lies in front; the rest stays untouched
        const QByteArray four("\x01\xAB\x00\xFF", 4);
        QTest::newRow("to text, capacity 3n") << true << four << 12 << true << QByteArray("01 AB 00 FF\0", 12);
        QTest::newRow("to text, one short") << true << four << 11 << false << QByteArray();
        QTest::newRow("capacity n") << false << QByteArray("AB cd") << 2 << true << QByteArray("\xAB\xCD");
        QTest::newRow("one short") << false << QByteArray("AB CD") << 1 << false << QByteArray();
        QTest::newRow("blank behind the last byte") << false << QByteArray("00 ") << 1 << true << QByteArray("\x00", 1);
        QTest::newRow("bad separator after a good byte")
            << false << QByteArray("AB-CD") << 2 << false << QByteArray("\xAB");
        QTest::newRow("lone digit at the end") << false << QByteArray("AB C") << 1 << false << QByteArray("\xAB");
    }
    void hexText()
    {
        QFETCH(bool, toText);
        QFETCH(QByteArray, input);
        QFETCH(int, capacity);
        QFETCH(QByteArray, written);
        std::vector<char> target(size_t(capacity), '\xEE');
        auto *bytes = reinterpret_cast<quint8 *>(toText ? input.data() : target.data());
        QTEST(toText ? BinaryToHexText(bytes, input.size(), target.data(), capacity)
                     : HexTextToBinary(input.constData(), input.size(), bytes, capacity),
              "ok");
        QCOMPARE(QByteArray(target.data(), capacity), written + QByteArray(capacity - written.size(), '\xEE'));
    }

private:
    QString FilePath(const QString &name) const { return m_dir + "/" + name; }

    QTemporaryDir m_tmp;
    QString m_dir;
};

QTEST_GUILESS_MAIN(TestIniFile)
#include "tst_IniFile.moc"
