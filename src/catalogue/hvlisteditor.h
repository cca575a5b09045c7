// Organising the user's lists by path, as the command line and the session bus ask for it:
// favourites added (to a bunch, at an index, or in a bunch of their own) and removed,
// applications excluded and included. Every change goes through the catalogue, which saves
// the list files. A path that names no application entry changes nothing: the answer is an
// error message naming it (an empty answer means done).
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

class DesktopEntryReader;
class HVAppManager;

class HVListEditor
{
public:
    HVListEditor(HVAppManager* manager, const DesktopEntryReader* reader);

    // {"userApps": [[path, ...], ...], "userApps1D": [path, ...]}
    QJsonObject favourites() const;
    // A negative bunch is the first; a negative index the start, one past the end the end.
    QString addFavourite(const QString& path, qint64 bunch, qint64 index, bool newBunch);
    QString removeFavourite(const QString& path);
    QString exclude(const QStringList& paths);
    QString include(const QStringList& paths);

private:
    // Paths already in `inList` pass even when their entry is gone, so they can be taken out.
    QString problemWith(const QStringList& paths, const QStringList& inList = {}) const;

    HVAppManager* m_manager;
    const DesktopEntryReader* m_reader;
};
