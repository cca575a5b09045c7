// How the scan sees one folder entry: an application to add, a folder to descend into, or
// something to leave alone. The file-system rules live here; whether an entry file is an
// application that shows on this desktop is the entry reader's answer.
#pragma once

#include <QByteArray>
#include <QString>

class DesktopEntryReader;

enum HVItemClass { HVItemClassOther = 0, HVItemClassApplication = 1, HVItemClassFolder = 2 };

namespace HVItemClassifier {
// What the folder listing already knows about an entry (a link is not followed).
enum class EntryType { Unknown, Folder, File, Link, Other };

// Entry files larger than this are not read at all.
constexpr qint64 MaxEntryFileSize = 8 * 1024 * 1024;

// Reads an entry file: a regular file (through links) no larger than the limit, opened so
// that a pipe or device put in its place cannot block or flood the reader. False otherwise.
bool readEntryFile(const QString& path, QByteArray* contents);

// "*.desktop" and not hidden: a name that can give a desktop ID.
bool isEntryFileName(const QString& name);
// The type of the entry itself, without following a link.
EntryType entryTypeOf(const QString& path);

// Hidden (a name starting with ".") -> other. A real folder (not a link) -> folder, unless its
// name ends in ".framework". A "*.desktop" regular file, or a link to one, no larger than the
// limit, that the reader shows -> application (every such entry without a reader).
// Everything else -> other.
HVItemClass classifyItem(const QString& path, const DesktopEntryReader* reader,
                         EntryType type = EntryType::Unknown);
} // namespace HVItemClassifier
