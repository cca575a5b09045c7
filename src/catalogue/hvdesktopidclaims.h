// Which entry file holds each desktop ID during one scan. The first scan folder (in scan
// order) that holds an entry with an ID keeps it, even when that entry does not show; entries
// with the same ID in later folders are masked. Within one folder the entry met last in the
// walk holds the ID, as GIO has it.
#pragma once

#include <QHash>
#include <QString>

class HVDesktopIdClaims
{
public:
    enum Result { Claimed, Replaced, Masked };

    // The entry's path below the scan folder with "/" turned into "-"
    // ("<folder>/kde/org.kde.foo.desktop" gives "kde-org.kde.foo.desktop").
    static QString desktopId(const QString& scanFolder, const QString& path);

    // Records that the entry at `path`, found while walking the folder numbered `folder`,
    // carries `id`. Replaced: an earlier entry of the same folder held it (its path is put in
    // `replacedPath`). Masked: an earlier folder holds it.
    Result claim(const QString& id, int folder, const QString& path, QString* replacedPath = nullptr);

    void clear() { m_claims.clear(); }
    int count() const { return int(m_claims.size()); }

private:
    struct Holder
    {
        int folder;
        QString path;
    };
    QHash<QString, Holder> m_claims;
};
