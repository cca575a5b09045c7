// One icon theme as its index.theme describes it: the folders that hold it (one per icon base
// folder), the themes it inherits from, and its icon folders with the sizes they serve, read
// with GLib's key-file parser. A theme without a readable index.theme does not exist.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

struct IconThemeDirectory
{
    enum Type { Fixed, Scalable, Threshold };

    QString path; // relative to the theme folder, e.g. "48x48/apps"
    int size = 0;
    int scale = 1;
    int minSize = 0;
    int maxSize = 0;
    int threshold = 2;
    Type type = Threshold;

    // The freedesktop rules: whether the folder's icons are meant for `size` pixels, and how
    // far from that size they are.
    bool matchesSize(int pixels) const;
    int sizeDistance(int pixels) const;
    // Whether the folder's icons are at least `pixels` big, so none of them is scaled up.
    bool reachesSize(int pixels) const;
};

struct IconThemeIndex
{
    QString name;
    QString indexPath;   // the index.theme that was read
    QStringList folders; // every <base>/<name> folder that exists, in base-folder order
    QStringList inherits;
    QList<IconThemeDirectory> directories; // scale-1 folders only, in the theme's order

    // The theme `name` as found under the base folders (the first index.theme wins). No value
    // when the theme is not installed (`error` left empty) or its index.theme cannot be read
    // (`error` says why).
    static std::optional<IconThemeIndex> load(const QString& name, const QStringList& baseFolders,
                                              QString* error);
};
