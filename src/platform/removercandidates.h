// The installed applications that could serve as the app remover: every desktop entry GIO knows
// that shows in the desktop's menus, by display name. Nimbo hands an application over for
// removal as an appstream:// link, so only an entry that lists x-scheme-handler/appstream among
// its MimeType can do the job.
#pragma once

#include <QList>
#include <QString>

struct RemoverCandidate
{
    QString desktopId; // "org.gnome.Software.desktop"
    QString path;      // the entry file
    QString name;      // the localised Name
    bool handlesAppstream = false;
};

namespace RemoverCandidates {
// Sorted by name (case-insensitively), then desktop ID.
QList<RemoverCandidate> installed();
} // namespace RemoverCandidates
