// Writes desktop entries, links and folders for the scanning tests.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

namespace EntryTree {
// "[Desktop Entry]" with Type=Application, the name, Exec=sh and the extra lines.
inline QByteArray entry(const QByteArray& name, const QByteArray& extra = QByteArray())
{
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=sh\n" + extra;
}

inline QString write(const QString& path, const QByteArray& contents)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(contents);
    return path;
}

inline QString app(const QString& path, const QByteArray& extra = QByteArray())
{
    return write(path, entry(QFileInfo(path).completeBaseName().toUtf8(), extra));
}

inline QString link(const QString& target, const QString& path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile::link(target, path);
    return path;
}
} // namespace EntryTree
