// The XDG base directories, read from the environment on every call so that a test or a
// second process can point Nimbo somewhere else.
#pragma once

#include <QString>
#include <QStringList>

namespace XdgPaths {
QString configHome();   // $XDG_CONFIG_HOME or ~/.config
QString dataHome();     // $XDG_DATA_HOME or ~/.local/share
QString cacheHome();    // $XDG_CACHE_HOME or ~/.cache
QStringList dataDirs(); // $XDG_DATA_DIRS or /usr/local/share:/usr/share

// Replaces a leading home folder with "~" (and the reverse), as folder lists are stored.
QString abbreviateHome(const QString& path);
QString expandHome(const QString& path);
} // namespace XdgPaths
