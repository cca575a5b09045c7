#include "hvitemclassifier.h"

#include "desktopentryreader.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace HVItemClassifier {

bool readEntryFile(const QString& path, QByteArray* contents)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0)
        return false;
    struct stat info;
    bool ok = ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && info.st_size <= MaxEntryFileSize;
    if (ok) {
        // The file may grow while it is read: never more than the limit.
        contents->resize(qsizetype(info.st_size));
        qsizetype done = 0;
        while (ok && done < contents->size()) {
            const ssize_t got = ::read(fd, contents->data() + done, size_t(contents->size() - done));
            if (got < 0 && errno == EINTR)
                continue;
            ok = got >= 0;
            if (got <= 0)
                break;
            done += got;
        }
        contents->truncate(done);
    }
    ::close(fd);
    return ok;
}

bool isEntryFileName(const QString& name)
{
    return !name.startsWith(QLatin1Char('.')) && name.endsWith(QLatin1String(".desktop"));
}

EntryType entryTypeOf(const QString& path)
{
    struct stat info;
    if (::lstat(QFile::encodeName(path).constData(), &info) != 0)
        return EntryType::Other;
    if (S_ISDIR(info.st_mode))
        return EntryType::Folder;
    if (S_ISREG(info.st_mode))
        return EntryType::File;
    if (S_ISLNK(info.st_mode))
        return EntryType::Link;
    return EntryType::Other;
}

HVItemClass classifyItem(const QString& path, const DesktopEntryReader* reader, EntryType type)
{
    const QString name = path.section(QLatin1Char('/'), -1);
    if (name.isEmpty() || name.startsWith(QLatin1Char('.')))
        return HVItemClassOther;
    if (type == EntryType::Unknown)
        type = entryTypeOf(path);
    if (type == EntryType::Folder)
        return name.endsWith(QLatin1String(".framework")) ? HVItemClassOther : HVItemClassFolder;
    if ((type != EntryType::File && type != EntryType::Link) || !name.endsWith(QLatin1String(".desktop")))
        return HVItemClassOther;
    // Only a regular file (through a link, too) is read: never a device, a pipe or a socket.
    struct stat info;
    if (::stat(QFile::encodeName(path).constData(), &info) != 0 || !S_ISREG(info.st_mode))
        return HVItemClassOther;
    if (info.st_size > MaxEntryFileSize) {
        qWarning("Skipped %s: an entry file of %lld bytes is too large to be one", qPrintable(path),
                 static_cast<long long>(info.st_size));
        return HVItemClassOther;
    }
    if (reader && !reader->showsApplication(path))
        return HVItemClassOther;
    return HVItemClassApplication;
}

} // namespace HVItemClassifier
