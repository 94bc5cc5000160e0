#include <QtTest>

#include <vector>

#include "CalTextConverters.h"

namespace {

constexpr double kUnmeasured = -987654321.0;

template <typename T>
std::vector<T> Numbers(const QVector<double> &values)
{
    return std::vector<T>(values.begin(), values.end());
}

} // namespace

// Buffers are heap blocks of exactly the size a function may use, so that the
// sanitizer build catches a byte written behind them.
class TestConverters : public QObject {
    Q_OBJECT
private slots:
    void formatLists_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QVector<double>>("values");
        QTest::addColumn<char>("separator");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("unsigned") << "u16" << QVector<double>{1, 2, 65535} << ',' << 0 << QByteArray("1,2,65535");
        QTest::newRow("one value, no separator") << "u16" << QVector<double>{7} << ',' << 0 << QByteArray("7");
        QTest::newRow("signed") << "i16" << QVector<double>{-32768, 0, 32767} << ';' << 0 << QByteArray("-32768;0;32767");
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
        QTest::newRow("empty text") << false << QByteArray("") << 3 << QVector<double>{};
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

    void binaryToHexText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("capacity");
        QTest::addColumn<QByteArray>("text"); // null: false, target untouched
        const QByteArray four("\x01\xAB\x00\xFF", 4);
        QTest::newRow("capacity 3n") << four << 12 << QByteArray("01 AB 00 FF");
        QTest::newRow("one short") << four << 11 << QByteArray();
        QTest::newRow("one byte") << QByteArray("\x0A") << 3 << QByteArray("0A");
        QTest::newRow("one byte, one short") << QByteArray("\x0A") << 2 << QByteArray();
    }
    void binaryToHexText()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, capacity);
        QFETCH(QByteArray, text);
        std::vector<char> target(size_t(capacity), 'x');
        const auto *source = reinterpret_cast<const quint8 *>(bytes.constData());
        QCOMPARE(BinaryToHexText(source, bytes.size(), target.data(), capacity), !text.isNull());
        if (text.isNull())
            QCOMPARE(QByteArray(target.data(), capacity), QByteArray(capacity, 'x'));
        else
            QCOMPARE(QByteArray(target.data()), text);
    }

    void hexTextToBinary_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("capacity");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QByteArray>("written"); // the bytes in front; the rest stays untouched
        QTest::newRow("capacity n") << QByteArray("AB CD") << 2 << true << QByteArray("\xAB\xCD");
        QTest::newRow("one short") << QByteArray("AB CD") << 1 << false << QByteArray();
        QTest::newRow("lower case") << QByteArray("ab cd 7f") << 3 << true << QByteArray("\xAB\xCD\x7F");
        QTest::newRow("blank behind the last byte") << QByteArray("00 ") << 1 << true << QByteArray("\x00", 1);
        QTest::newRow("bad separator after a good byte") << QByteArray("AB-CD") << 2 << false << QByteArray("\xAB");
        // The second blank is taken as a digit, as any character is.
        QTest::newRow("two blanks") << QByteArray("AB  CD") << 2 << false << QByteArray("\xAB\x9C");
        QTest::newRow("lone digit at the end") << QByteArray("AB C") << 1 << false << QByteArray("\xAB");
    }
    void hexTextToBinary()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, capacity);
        QFETCH(QByteArray, written);
        std::vector<quint8> target(size_t(capacity), 0xEE);
        QTEST(HexTextToBinary(text.constData(), text.size(), target.data(), capacity), "ok");
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(target.data()), capacity),
                 written + QByteArray(capacity - written.size(), '\xEE'));
    }
};

QTEST_GUILESS_MAIN(TestConverters)
#include "tst_Converters.moc"
