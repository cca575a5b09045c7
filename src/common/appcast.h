// A release feed in the appcast form: RSS items whose version is given by the `sparkle:`
// attributes of their enclosure (or `sparkle:` elements of the item), and version comparison as
// people read versions (1.10 is newer than 1.9, 1.0b1 older than 1.0).
#pragma once

#include <QList>
#include <QString>
#include <QUrl>

struct AppcastItem
{
    QString version; // what is compared and shown: the short version string, else the version
    QString title;
    QUrl releaseNotes; // sparkle:releaseNotesLink, else the item's link
    QUrl download;     // the enclosure's url
};

struct AppcastFeed
{
    QList<AppcastItem> items; // only items that name a version
    QString error;            // empty when the feed was read

    bool ok() const { return error.isEmpty(); }
    // The item with the newest version; nullptr when there is none.
    const AppcastItem* latest() const;
};

namespace Appcast {
AppcastFeed parse(const QByteArray& xml);
// <0 when a is older than b, 0 when the same, >0 when newer.
int compareVersions(const QString& a, const QString& b);
} // namespace Appcast
