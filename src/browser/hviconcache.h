// Icons scaled once to the grid's icon size, and faded once to the faded icons' opacity, so that
// painting a full grid only blends pixels at full strength. An entry is made again when the
// record's image or the size changes, its faded copy when the opacity changes.
#pragma once

#include <QHash>
#include <QImage>
#include <QSet>

class HVApp;

class HVIconCache
{
public:
    // `source` fitted into `edge` x `edge` points (keeping its shape) at the device pixel ratio;
    // below an `opacity` of 1 already faded, so that drawing it blends at full strength.
    QImage scaledIcon(const HVApp* app, const QImage& source, int edge, qreal devicePixelRatio,
                      double opacity = 1.0);
    // Forgets every record not in `apps`.
    void retainOnly(const QSet<const HVApp*>& apps);
    void clear() { m_entries.clear(); }
    int count() const { return int(m_entries.size()); }

private:
    struct Entry
    {
        qint64 sourceKey = 0;
        int edge = 0;
        qreal ratio = 1;
        QImage image;
        double fadedOpacity = 1;
        QImage faded;
    };
    QHash<const HVApp*, Entry> m_entries;
};
