// Writes desktop entries, links and folders for the scanning tests.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QVariantList>

#include <fcntl.h>
#include <unistd.h>

namespace EntryTree {
// "[Desktop Entry]" with Type=Application, the name, Exec=sh and the extra lines.
inline QByteArray entry(const QByteArray& name, const QByteArray& extra = QByteArray())
{
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=sh\n" + extra;
}

// For a name that need not be UTF-8, which QFile cannot give a file.
inline bool writeNamedBytes(const QByteArray& name, const QByteArray& contents)
{
    const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const bool written =
        fd >= 0 && ::write(fd, contents.constData(), size_t(contents.size())) == contents.size();
    if (fd >= 0)
        ::close(fd);
    return written;
}

inline QString write(const QString& path, const QByteArray& contents)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    writeNamedBytes(QFile::encodeName(path), contents);
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

// The scan folders as the "searchDirectories" preference holds them.
inline QVariantList folderList(const QStringList& paths)
{
    QVariantList list;
    for (const QString& path : paths)
        list.append(QVariantMap{{"path", path}});
    return list;
}
} // namespace EntryTree
