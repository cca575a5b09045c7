// The desktop's kept (favourite) applications, for automatic exclusion: GNOME Shell's
// "favorite-apps" (read only when that schema is installed), KDE Plasma's task manager
// launchers and Plank's dock items, each resolved to its entry file's path.
#pragma once

#include <QStringList>

namespace DesktopFavourites {
// All of them in that order, each path once.
QStringList keptApplicationPaths();

// The desktop IDs in GNOME Shell's favourites; empty when the schema is not installed.
QStringList gnomeFavouriteIds();
// The launcher URLs of every task manager in a Plasma applets file
// ("applications:org.kde.dolphin.desktop", "file:///...", "preferred://browser").
QStringList plasmaLaunchers(const QString& appletsFile);
// The launcher URLs of Plank's dock items in the folder, in the dock's order (the names in
// `order` first, then the rest by name).
QStringList plankLaunchers(const QString& launchersFolder, const QStringList& order);
// The dock's item order from Plank's settings, when its schema is installed.
QStringList plankItemOrder();

// An entry path for a launcher URL or desktop ID; empty when it names no installed entry.
QString entryPathForLauncher(const QString& launcher);
QString entryPathForDesktopId(const QString& desktopId);
} // namespace DesktopFavourites
