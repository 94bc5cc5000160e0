#pragma once

#include <QByteArray>
#include <QFile>

// Whole files in and out; what cannot be read reads as a null array.
namespace TestFiles {

inline QByteArray Read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool Write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace TestFiles
