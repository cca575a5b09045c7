// What the catalogue needs to know about a desktop entry file. The platform layer reads
// entries through GIO; tests and benchmarks may give their own answers.
#pragma once

#include <QString>

// What an entry says about itself for display and search, read in one go.
struct DesktopEntryText
{
    QString name;       // the localised Name
    QString searchText; // Keywords, GenericName and the program's name, lower case, one per line
};

class DesktopEntryReader
{
public:
    virtual ~DesktopEntryReader() = default;

    // The entry's Name in the current locale; empty when the entry cannot be read.
    virtual QString localisedName(const QString& path) const = 0;
    // The name together with the words it is also found by; readers without them give the name.
    virtual DesktopEntryText entryText(const QString& path) const { return {localisedName(path), QString()}; }

    // Whether the entry file is an application that should show on this desktop (not hidden,
    // not NoDisplay, meant for this desktop, its program present). The scan only asks about
    // regular files of a bounded size. Without a platform to ask, every entry shows.
    virtual bool showsApplication(const QString& path) const
    {
        Q_UNUSED(path);
        return true;
    }
};
