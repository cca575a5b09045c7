// The desktop ID of an entry file: its path below the first application folder that holds it,
// with "/" turned into "-" ("kde/org.kde.foo.desktop" gives "kde-org.kde.foo.desktop"); outside
// those folders its file name. Worked out from the folders themselves rather than asked of GIO,
// whose picture of the folders lags behind sub-folders made a moment ago.
#pragma once

#include <QString>

QString desktopIdOfEntry(const QString& entryPath);
