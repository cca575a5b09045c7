// Which entries open a document, by its MIME type: an entry can accept an item when it lists
// the item's type, a type the item's type belongs to, or application/octet-stream; it prefers
// the item when GIO recommends it for that type. A file's type is guessed from its name and
// first bytes; any other URL's type is x-scheme-handler/<scheme>.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QMutex>
#include <QStringList>
#include <QUrl>

class MimeAcceptance
{
public:
    static QString contentTypeForUrl(const QUrl& item);

    bool canAccept(const QString& entryPath, const QUrl& item) const;
    bool prefers(const QString& entryPath, const QUrl& item) const;
    // The MimeType list of the entry (read again when the file changes).
    QStringList typesOfEntry(const QString& entryPath) const;

private:
    struct Cached
    {
        QDateTime modified;
        QStringList types;
    };
    mutable QMutex m_mutex;
    mutable QHash<QString, Cached> m_types;
};
