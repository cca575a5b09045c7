// The list files: XML property lists whose root is an array of paths (a flat list) or an
// array of arrays of paths (a grouped list). Writing is atomic; a file that exists but cannot
// be parsed is renamed aside ("<name>.corrupt-<UTC time>") before anything can overwrite it.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <optional>

class ListFileStore
{
public:
    // The user's folder ($XDG_DATA_HOME/Nimbo) and the machine's read-only folders
    // (<dir>/Nimbo for each $XDG_DATA_DIRS), read from the environment at each call.
    static QString userFolder();
    static QStringList localFolders();

    // The array in the file: nullopt when the file is absent, unreadable or not an array
    // (a corrupt file is set aside first). Elements are strings or lists of strings; anything
    // else inside is dropped with a log line.
    static std::optional<QVariantList> readArray(const QString& path);
    // Writes the array atomically, creating the folder; false (and a log line) on failure.
    static bool writeArray(const QVariantList& array, const QString& path);

    // Renames a file aside as "<name>.corrupt-<UTC time>"; returns the new path or empty.
    static QString setAside(const QString& path);
};
