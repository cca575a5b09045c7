// What the catalogue needs to know about a desktop entry file. The platform layer reads
// entries through GIO; tests and benchmarks may give their own answers.
#pragma once

#include <QString>

class DesktopEntryReader
{
public:
    virtual ~DesktopEntryReader() = default;

    // The entry's Name in the current locale; empty when the entry cannot be read.
    virtual QString localisedName(const QString& path) const = 0;
};
