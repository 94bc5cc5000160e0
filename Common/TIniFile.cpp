#include "TIniFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextCodec>

#include <cstdio>
#include <cstdlib>

#include "Platform/ClassicNumericScope.h"
#include "Platform/DebuggerChannel.h"
#include "Platform/SystemCodePage.h"

// Converter choice. Debian ships SimpleIni as a library built with ICU that
// holds the char16_t instantiation of the template, with ICU's converter.
// With SI_CONVERT_ICU the wide character is char16_t: the code unit of
// QString, so wide text passes between Qt and the parser as a plain copy, and
// UTF-8 on disk is converted by ICU. The other route, a 4-byte wchar_t, would
// mean instantiating the template here with a converter of our own and
// converting every string to UTF-32 and back, for nothing gained.
#define SI_CONVERT_ICU
#include <SimpleIni.h>

using Platform::NarrowSystemText;
using Platform::WidenSystemText;

// Stores UTF-8, several values under one key, no multi-line values, blanks
// around the equals sign.
class TIniFile::Parser : public CSimpleIniTempl<char16_t, SI_NoCase<char16_t>, SI_ConvertW<char16_t>> {
public:
    Parser() : CSimpleIniTempl(/*isUtf8*/ true, /*multiKey*/ true, /*multiLine*/ false) { SetSpaces(true); }
};

namespace {

std::u16string ToParser(const std::string &narrow)
{
    return WidenSystemText(narrow).toStdU16String();
}

} // namespace

TIniFile::TIniFile(const QString &path) : m_parser(std::make_unique<Parser>()), m_path(path) {}

TIniFile::~TIniFile() = default;

bool TIniFile::Load()
{
    if (m_loaded)
        return true;
    if (m_path.isEmpty())
        return false;
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray data = file.readAll();
    file.close();
    // A file written in an 8-bit code page is no UTF-8: the parser would put
    // replacement characters where its letters were and a save would lose
    // them. It is read byte for byte as Latin-1 and saved back the same way.
    QTextCodec::ConverterState state;
    QTextCodec::codecForMib(106)->toUnicode(data.constData(), data.size(), &state);
    m_latin1 = state.invalidChars > 0;
    if (m_latin1)
        data = QString::fromLatin1(data).toUtf8();
    if (m_parser->LoadData(data.constData(), size_t(data.size())) < 0) {
        m_parser->Reset();
        return false;
    }
    m_loaded = true;
    return true;
}

void TIniFile::ReportReadFailure(const std::string &section, const std::string *key) const
{
    QString what = WidenSystemText(section);
    if (key)
        what += "::" + WidenSystemText(*key);
    Platform::OutputDebuggerLine("Read " + what + " from " + m_path + " failed (load file failed)");
}

bool TIniFile::IsSectionExist(const std::string &section)
{
    if (!Load()) {
        ReportReadFailure(section, nullptr);
        return false;
    }
    // The parser's own comparison folds case the same way as its lookups.
    return m_parser->GetSectionSize(ToParser(section).c_str()) >= 0;
}

bool TIniFile::IsKeyExist(const std::string &section, const std::string &key)
{
    if (!Load()) {
        ReportReadFailure(section, &key);
        return false;
    }
    return m_parser->GetValue(ToParser(section).c_str(), ToParser(key).c_str(), nullptr) != nullptr;
}

QString TIniFile::ReadStringW(const std::string &section, const std::string &key, const QString &defaultValue)
{
    if (!Load()) {
        ReportReadFailure(section, &key);
        return defaultValue;
    }
    const char16_t *value = m_parser->GetValue(ToParser(section).c_str(), ToParser(key).c_str(), nullptr);
    return value ? QString::fromUtf16(value) : defaultValue;
}

std::string TIniFile::ReadString(const std::string &section, const std::string &key, const std::string &defaultValue)
{
    return NarrowSystemText(ReadStringW(section, key, WidenSystemText(defaultValue)));
}

int TIniFile::ReadInt(const std::string &section, const std::string &key, int defaultValue)
{
    char text[16];
    std::snprintf(text, sizeof text, "%d", defaultValue);
    const std::string value = ReadString(section, key, text);
    // What atoi does, without its undefined behaviour on overflow.
    return int(std::strtol(value.c_str(), nullptr, 10));
}

double TIniFile::ReadDouble(const std::string &section, const std::string &key, double defaultValue)
{
    const CClassicNumericScope classic;
    char text[128];
    std::snprintf(text, sizeof text, "%lf", defaultValue);
    const std::string value = ReadString(section, key, text);
    return std::atof(value.c_str());
}

void TIniFile::WriteString(const std::string &section, const std::string &key, const std::string &value)
{
    WriteStringW(section, key, WidenSystemText(value));
}

void TIniFile::WriteStringW(const std::string &section, const std::string &key, const QString &value)
{
    if (!Load()) {
        const QString what = WidenSystemText(section) + "::" + WidenSystemText(key);
        // Only a missing file is created: an existing one that cannot be
        // read must not be replaced by an empty one.
        if (!QFileInfo::exists(m_path) && !Save()) {
            Platform::OutputDebuggerLine("Write " + what + " to " + m_path + " failed (create file failed)");
            return;
        }
        if (!Load()) {
            Platform::OutputDebuggerLine("Write " + what + " to " + m_path + " failed (load file failed)");
            return;
        }
    }
    m_parser->SetValue(ToParser(section).c_str(), ToParser(key).c_str(), value.toStdU16String().c_str(), nullptr,
                       /*forceReplace*/ true);
}

void TIniFile::WriteInt(const std::string &section, const std::string &key, int value)
{
    char text[16];
    std::snprintf(text, sizeof text, "%d", value);
    WriteString(section, key, text);
}

void TIniFile::WriteDouble(const std::string &section, const std::string &key, double value)
{
    // Values beyond about 1e120 do not fit and are cut short.
    char text[128];
    {
        const CClassicNumericScope classic;
        std::snprintf(text, sizeof text, "%lf", value);
    }
    WriteString(section, key, text);
}

bool TIniFile::Save()
{
    // A file that exists but cannot be read is never replaced: what is in
    // memory then holds nothing of it, and writing it out would empty the
    // user's file. This is also why saving an object that nothing has read
    // yet keeps what the file holds. Only a path without a file gets one.
    if (!Load() && QFileInfo::exists(m_path))
        return false;
    std::string text;
    if (m_path.isEmpty() || m_parser->Save(text, /*addSignature*/ false) < 0)
        return false;
    const QByteArray bytes =
        m_latin1 ? QString::fromUtf8(text.data(), int(text.size())).toLatin1() : QByteArray::fromStdString(text);
    // The old content stays until the new one is complete on disk. Where the
    // folder takes no new files, the file is written in place.
    QSaveFile file(m_path);
    file.setDirectWriteFallback(true);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}
