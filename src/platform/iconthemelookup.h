// Finds the file of a named icon with the freedesktop icon-theme rules: the chosen theme, the
// themes it inherits (depth first, each once, so inheritance loops end), then hicolor, then the
// pixmap folders. Within a theme a folder meant for the size wins; otherwise the closest one,
// but never a small bitmap that would be scaled up while the theme has a larger or scalable one.
// What a folder holds is read once, when a lookup first needs it, so that finding an icon costs
// one check of the file it picks rather than one for every folder, size and extension tried.
// Otherwise immutable once made; loading threads share it freely.
#pragma once

#include "iconthemeindex.h"

#include <QByteArrayList>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

class IconThemeLookup
{
public:
    struct Settings
    {
        QString themeName;
        QStringList baseFolders;   // icon base folders in order (~/.icons, $XDG_DATA_HOME/icons, ...)
        QStringList pixmapFolders; // the unthemed last resort, /usr/share/pixmaps
    };

    // Reads the themes; each one that cannot be read is logged once, here, and left out.
    explicit IconThemeLookup(Settings settings);

    const Settings& settings() const { return m_settings; }
    // The themes searched, in order.
    QStringList themeNames() const;

    // The best file for icon `name` at `pixels`; empty when no theme and no pixmap folder has it.
    QString findIcon(const QString& name, int pixels) const;

    // Changes whenever a lookup could find another file: an index.theme, an icon folder or a
    // base folder changed (files added, removed or renamed change their folder's time).
    quint64 fingerprint() const;

private:
    struct Theme
    {
        IconThemeIndex index;
        QByteArrayList folders; // encoded theme folders
        QByteArrayList paths;   // encoded directory paths, parallel to index.directories
    };
    // Folders holding more names than this are not listed; their files are checked one by one.
    static constexpr qsizetype MaxListedNames = 100000;
    using Listing = std::shared_ptr<const QSet<QByteArray>>;

    void addTheme(const QString& name, QStringList& visited, int depth);
    QString findInTheme(const Theme& theme, const QByteArray& name, int pixels) const;
    // Whether `folder` holds the regular file (or a link to one) `fileName`.
    bool hasFile(const QByteArray& folder, const QByteArray& fileName) const;
    Listing listing(const QByteArray& folder) const;

    Settings m_settings;
    QList<Theme> m_themes;
    mutable QMutex m_listingMutex;
    mutable QHash<QByteArray, Listing> m_listings; // a null listing: not listed
};
