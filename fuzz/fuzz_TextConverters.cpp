// The list and hexadecimal converters of the Cal/INI values: any text
// parses without harm, and what parses formats and parses back the same.
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "CalTextConverters.h"
#include "FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string text(reinterpret_cast<const char *>(data), size);
    constexpr int kMax = 64;

    quint16 words[kMax] = {};
    const int wordCount = ParseUInt16List(text.c_str(), words, kMax);
    if (wordCount > 0) {
        std::vector<char> formatted(size_t(wordCount) * 8 + 8);
        FormatUInt16List(formatted.data(), words, wordCount, ',');
        quint16 again[kMax] = {};
        if (ParseUInt16List(formatted.data(), again, kMax) != wordCount ||
            std::memcmp(words, again, sizeof(quint16) * size_t(wordCount)) != 0)
            std::abort();
    }

    double values[kMax] = {};
    const int valueCount = ParseDoubleList(text.c_str(), values, kMax);
    if (valueCount > 0) {
        std::vector<char> formatted(size_t(valueCount) * 400 + 8);
        FormatDoubleList(formatted.data(), values, valueCount, ',', 6);
    }

    std::vector<quint8> binary(size / 3 + 1);
    if (HexTextToBinary(text.c_str(), int(size), binary.data(), int(binary.size()))) {
        std::vector<char> hex(binary.size() * 3);
        std::vector<quint8> again(binary.size());
        if (!BinaryToHexText(binary.data(), int(binary.size()), hex.data(), int(hex.size())) ||
            !HexTextToBinary(hex.data(), int(std::strlen(hex.data())), again.data(), int(again.size())) ||
            again != binary)
            std::abort();
    }
    return 0;
}
