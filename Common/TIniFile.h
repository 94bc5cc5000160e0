#pragma once

#include <QString>

#include <memory>
#include <string>

class QIODevice;

// A Cal/INI file: sections of "key = value" lines in UTF-8 (a file that is
// no UTF-8 is taken as Latin-1 and kept so, byte for byte). Section and key
// names compare without regard to (ASCII) case; a byte order mark is skipped
// on reading and never written.
//
// Nothing is read on construction. The first operation loads the file, once
// in the life of the object: later changes on disk are not seen. Writes
// change memory only; `Save` replaces the file with what is in memory. The
// first write to a path without a file creates an empty one, so writing to a
// new path works. Failures never reach the caller: a file that cannot be read
// looks empty, a value that cannot be stored is lost, and a line on the
// debugger channel tells why.
//
// Narrow text (section and key names, `ReadString`, `WriteString`) is in the
// system code page; the ...W operations take and give wide text unchanged.
// Numbers are written with "%d" and "%lf" and read like atoi and atof:
// text that is no number reads as 0.
//
// Not thread-safe: one thread at a time.
class TIniFile {
public:
    explicit TIniFile(const QString &path);
    ~TIniFile();

    TIniFile(const TIniFile &) = delete;
    TIniFile &operator=(const TIniFile &) = delete;

    const QString &Path() const { return m_path; }

    bool IsSectionExist(const std::string &section);
    // True if the key has at least one value in the section.
    bool IsKeyExist(const std::string &section, const std::string &key);

    // The key's first value, else the default (also when the file cannot be read).
    std::string ReadString(const std::string &section, const std::string &key, const std::string &defaultValue);
    QString ReadStringW(const std::string &section, const std::string &key, const QString &defaultValue);
    // The default takes the way through text: ReadDouble's default 0.1234567
    // comes back as 0.123457.
    int ReadInt(const std::string &section, const std::string &key, int defaultValue);
    double ReadDouble(const std::string &section, const std::string &key, double defaultValue);

    // Replace every value the key has; section and key are created as needed.
    void WriteString(const std::string &section, const std::string &key, const std::string &value);
    void WriteStringW(const std::string &section, const std::string &key, const QString &value);
    void WriteInt(const std::string &section, const std::string &key, int value);
    void WriteDouble(const std::string &section, const std::string &key, double value);

    // Writes the whole content to the path, replacing the file. An existing
    // file that cannot be read is left alone (false).
    bool Save();

private:
    class Parser;

    bool Load();
    bool Create();
    bool WriteContent(QIODevice &file);
    void ReportReadFailure(const std::string &section, const std::string *key) const;

    std::unique_ptr<Parser> m_parser;
    QString m_path;
    bool m_loaded = false;
    bool m_latin1 = false; // the file on disk is no UTF-8
    bool m_createdHere = false; // the file on disk is the empty one this object made
};
