// Finds the file of a named icon with the freedesktop icon-theme rules: the chosen theme, the
// themes it inherits (depth first, each once, so inheritance loops end), then hicolor, then the
// pixmap folders. Within a theme a folder meant for the size wins; otherwise the closest one,
// but never a small bitmap that would be scaled up while the theme has a larger or scalable one.
// Immutable once made, so loading threads share it freely.
#pragma once

#include "iconthemeindex.h"

#include <QByteArrayList>
#include <QList>
#include <QString>
#include <QStringList>

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
    void addTheme(const QString& name, QStringList& visited, int depth);
    QString findInTheme(const Theme& theme, const QByteArray& name, int pixels) const;

    Settings m_settings;
    QList<Theme> m_themes;
};
