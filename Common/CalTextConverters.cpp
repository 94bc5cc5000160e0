#include "CalTextConverters.h"

#include <QByteArray>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "Platform/ClassicNumericScope.h"

namespace {

// Sizes of the private copies that the list parsers split.
constexpr int kIntegerListBufferSize = 2048;
constexpr int kRealListBufferSize = 32768;

// The file's mark for a real that was never measured.
constexpr double kUnmeasuredInFile = 9.91e37;
constexpr double kUnmeasured = -987654321.0;

template <typename T>
int FormatIntegerList(char *target, const T *values, int count, char separator)
{
    int length = 0;
    target[0] = '\0';
    for (int i = 0; i < count; ++i) {
        const bool last = i == count - 1;
        length += last ? std::sprintf(target + length, "%d", int(values[i]))
                       : std::sprintf(target + length, "%d%c", int(values[i]), separator);
    }
    return length;
}

bool IsNumberCharacter(char c)
{
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || c == 'E' || c == 'e';
}

// Hands each of the first `maxCount` numbers of the text to `store`, as a
// zero-terminated token, and gives how many there were.
template <typename Store>
int SplitList(const char *text, int bufferSize, int maxCount, Store store)
{
    if (!text)
        return 0;
    const std::string copy(text, qstrnlen(text, uint(bufferSize - 1)));
    std::string token;
    int stored = 0;
    for (size_t pos = 0; pos < copy.size() && stored < maxCount;) {
        if (!IsNumberCharacter(copy[pos])) {
            ++pos;
            continue;
        }
        const size_t begin = pos;
        while (pos < copy.size() && IsNumberCharacter(copy[pos]))
            ++pos;
        token.assign(copy, begin, pos - begin);
        store(stored++, token.c_str());
    }
    return stored;
}

unsigned HexDigit(char c)
{
    // Letters of either case land on their value in the low four bits; other
    // characters give whatever they give.
    const int digit = c - '0';
    return unsigned(digit >= 0 && digit <= 9 ? digit : c - '7');
}

} // namespace

int FormatUInt16List(char *target, const quint16 *values, int count, char separator)
{
    return FormatIntegerList(target, values, count, separator);
}

int FormatInt16List(char *target, const qint16 *values, int count, char separator)
{
    return FormatIntegerList(target, values, count, separator);
}

int FormatDoubleList(char *target, const double *values, int count, char separator, int decimals)
{
    const CClassicNumericScope classic;
    int length = 0;
    target[0] = '\0';
    for (int i = 0; i < count; ++i) {
        const bool last = i == count - 1;
        length += last ? std::sprintf(target + length, "%.*f", decimals, values[i])
                       : std::sprintf(target + length, "%.*f%c", decimals, values[i], separator);
    }
    return length;
}

int ParseUInt16List(const char *text, quint16 *values, int maxCount)
{
    // strtol is what atoi does, minus its undefined behaviour on overflow.
    return SplitList(text, kIntegerListBufferSize, maxCount,
                     [values](int i, const char *token) { values[i] = quint16(std::strtol(token, nullptr, 10)); });
}

int ParseDoubleList(const char *text, double *values, int maxCount)
{
    const CClassicNumericScope classic;
    return SplitList(text, kRealListBufferSize, maxCount, [values](int i, const char *token) {
        const double value = std::atof(token);
        values[i] = value == kUnmeasuredInFile ? kUnmeasured : value;
    });
}

bool BinaryToHexText(const quint8 *source, int size, char *target, int targetCapacity)
{
    if (qint64(size) * 3 > targetCapacity)
        return false;
    if (size <= 0) {
        if (targetCapacity > 0)
            target[0] = '\0';
        return true;
    }
    const QByteArray text = QByteArray::fromRawData(reinterpret_cast<const char *>(source), size).toHex(' ').toUpper();
    std::memcpy(target, text.constData(), size_t(text.size()) + 1);
    return true;
}

bool HexTextToBinary(const char *text, int textLength, quint8 *target, int targetCapacity)
{
    // The last byte has no blank behind it.
    if ((textLength + 1) / 3 > targetCapacity)
        return false;
    int byte = 0;
    for (int pos = 0; pos < textLength; pos += 3) {
        // A lone digit at the end is no byte; taking it would also write
        // behind the capacity checked above.
        if (pos + 1 >= textLength)
            return false;
        target[byte++] = quint8((HexDigit(text[pos]) << 4) | (HexDigit(text[pos + 1]) & 0x0Fu));
        if (pos + 2 < textLength && text[pos + 2] != ' ')
            return false;
    }
    return true;
}

quint16 ScaledToStored(double value, double factor)
{
    const double steps = std::trunc(value * factor);
    return std::isfinite(steps) ? quint16(qint64(std::fmod(steps, 65536.0))) : 0;
}

quint16 RoundedToStored(float value)
{
    const float sum = value >= 0 ? value + 0.5f : value - 0.5f;
    return ScaledToStored(double(sum), 1.0);
}
