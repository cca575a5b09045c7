// What icon a file asks for. A desktop entry names it in its Icon key (read in the user's
// language with GLib's key-file parser): an absolute path is taken as it is; a name has a stray
// ".png", ".svg", ".svgz" or ".xpm" dropped, as desktops do. An entry without an Icon key gets
// the generic program icon, as in the desktop's own menus. Any other file gets the icon of its
// content type (GIO), as a file manager shows it.
#pragma once

#include <QString>
#include <QStringList>

struct EntryIcon
{
    QString filePath;  // an absolute icon file, or
    QStringList names; // theme icon names, best first
    bool isEmpty() const { return filePath.isEmpty() && names.isEmpty(); }
};

namespace EntryIconName {

constexpr qint64 MaxEntryBytes = 1024 * 1024;

// Empty, with `error` set, when the file cannot be read or names nothing usable.
EntryIcon iconForFile(const QString& path, QString* error);

// The Icon key's value as a name or a path (exposed for the tests of the rules above).
EntryIcon fromIconValue(const QString& value);

} // namespace EntryIconName
