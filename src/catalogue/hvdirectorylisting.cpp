#include "hvdirectorylisting.h"

#include <QFile>

#include <dirent.h>

#include <cstring>

namespace {
using EntryType = HVItemClassifier::EntryType;

EntryType typeFromDirent(unsigned char type)
{
    switch (type) {
    case DT_DIR:
        return EntryType::Folder;
    case DT_REG:
        return EntryType::File;
    case DT_LNK:
        return EntryType::Link;
    case DT_UNKNOWN:
        return EntryType::Unknown;
    default:
        return EntryType::Other;
    }
}
} // namespace

namespace HVDirectoryListing {

QString childPath(const QString& folder, const QString& name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

QList<HVDirectoryEntry> entries(const QString& folder)
{
    QList<HVDirectoryEntry> list;
    DIR* dir = ::opendir(QFile::encodeName(folder).constData());
    if (!dir)
        return list; // unreadable or gone: nothing to find there
    int undecodable = 0;
    while (const dirent* entry = ::readdir(dir)) {
        const char* raw = entry->d_name;
        if (std::strcmp(raw, ".") == 0 || std::strcmp(raw, "..") == 0)
            continue;
        if (list.size() >= MaxEntries) {
            qWarning("Folder %s holds more than %d entries; read only the first ones", qPrintable(folder),
                     MaxEntries);
            break;
        }
        const QByteArray bytes(raw);
        const QString name = QFile::decodeName(bytes);
        if (QFile::encodeName(name) != bytes) {
            ++undecodable;
            continue;
        }
        EntryType type = typeFromDirent(entry->d_type);
        if (type == EntryType::Unknown)
            type = HVItemClassifier::entryTypeOf(childPath(folder, name));
        list.append({name, type});
    }
    ::closedir(dir);
    if (undecodable)
        qWarning("Skipped %d entries of %s whose names are not valid file names here", undecodable,
                 qPrintable(folder));
    return list;
}

} // namespace HVDirectoryListing
