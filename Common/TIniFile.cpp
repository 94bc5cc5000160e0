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

    // Hands the output straight to the file, through the file's own buffer;
    // the first failing write ends the output.
    class DeviceWriter : public OutputWriter {
    public:
        explicit DeviceWriter(QIODevice &device) : m_device(device) {}
        void Write(const char *text) override
        {
            if (m_ok)
                m_ok = m_device.write(text) >= 0;
        }
        bool Ok() const { return m_ok; }

    private:
        QIODevice &m_device;
        bool m_ok = true;
    };
};

namespace {

// QString's code unit is the parser's character: its text is handed over as
// it stands, kept alive by the QString for the length of the call.
const char16_t *Chars(const QString &text)
{
    return reinterpret_cast<const char16_t *>(text.utf16());
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
    return m_parser->GetSectionSize(Chars(WidenSystemText(section))) >= 0;
}

bool TIniFile::IsKeyExist(const std::string &section, const std::string &key)
{
    if (!Load()) {
        ReportReadFailure(section, &key);
        return false;
    }
    return m_parser->GetValue(Chars(WidenSystemText(section)), Chars(WidenSystemText(key)), nullptr) != nullptr;
}

QString TIniFile::ReadStringW(const std::string &section, const std::string &key, const QString &defaultValue)
{
    if (!Load()) {
        ReportReadFailure(section, &key);
        return defaultValue;
    }
    const char16_t *value = m_parser->GetValue(Chars(WidenSystemText(section)), Chars(WidenSystemText(key)), nullptr);
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
        if (!QFileInfo::exists(m_path) && !Create()) {
            Platform::OutputDebuggerLine("Write " + what + " to " + m_path + " failed (create file failed)");
            return;
        }
        if (!Load()) {
            Platform::OutputDebuggerLine("Write " + what + " to " + m_path + " failed (load file failed)");
            return;
        }
    }
    m_parser->SetValue(Chars(WidenSystemText(section)), Chars(WidenSystemText(key)), Chars(value), nullptr,
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
    const bool exists = QFileInfo::exists(m_path);
    if ((!Load() && exists) || m_path.isEmpty())
        return false;
    if (m_createdHere || !exists) {
        // Nothing of the user's is in the file yet: it is written in place.
        QFile file(m_path);
        return file.open(QIODevice::WriteOnly) && WriteContent(file) && file.flush();
    }
    // The user's content stays until the new one is complete on disk. Where
    // the folder takes no new files, the file is written in place.
    QSaveFile file(m_path);
    file.setDirectWriteFallback(true);
    return file.open(QIODevice::WriteOnly) && WriteContent(file) && file.commit();
}

bool TIniFile::WriteContent(QIODevice &file)
{
    if (m_latin1) {
        std::string text;
        if (m_parser->Save(text, /*addSignature*/ false) < 0)
            return false;
        const QByteArray bytes = QString::fromUtf8(text.data(), int(text.size())).toLatin1();
        return file.write(bytes) == bytes.size();
    }
    Parser::DeviceWriter writer(file);
    return m_parser->Save(writer, /*addSignature*/ false) >= 0 && writer.Ok();
}

bool TIniFile::Create()
{
    // The first write to a path without a file: an empty file, which this
    // object may then replace in place, since it holds nothing of the user's.
    QFile file(m_path);
    m_createdHere = !m_path.isEmpty() && file.open(QIODevice::NewOnly | QIODevice::WriteOnly);
    return m_createdHere;
}
