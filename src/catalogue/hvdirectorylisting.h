// The entries of one folder, shallow, in the order the file system returns them, hidden ones
// included. An unreadable folder has no entries.
#pragma once

#include "hvitemclassifier.h"

#include <QList>
#include <QString>

struct HVDirectoryEntry
{
    QString name;
    HVItemClassifier::EntryType type = HVItemClassifier::EntryType::Unknown; // never Unknown here
};

namespace HVDirectoryListing {
// A folder holding more entries than this is read only this far (and says so in the log).
constexpr int MaxEntries = 1000000;

// Without "." and "..". Names that cannot be turned into a path again (bytes that are not
// valid in the file-name encoding) are skipped.
QList<HVDirectoryEntry> entries(const QString& folder);

// The folder joined with an entry name ("/" + "x" gives "/x").
QString childPath(const QString& folder, const QString& name);
} // namespace HVDirectoryListing
