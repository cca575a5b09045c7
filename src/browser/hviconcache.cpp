#include "hviconcache.h"

#include <QPainter>

#include <algorithm>

QImage HVIconCache::scaledIcon(const HVApp* app, const QImage& source, int edge, qreal devicePixelRatio,
                               double opacity)
{
    if (source.isNull() || edge < 1)
        return QImage();
    Entry& entry = m_entries[app];
    if (entry.sourceKey != source.cacheKey() || entry.edge != edge || entry.ratio != devicePixelRatio ||
        entry.image.isNull()) {
        const int pixels = qMax(1, qRound(edge * devicePixelRatio));
        QImage scaled = source.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        scaled.setDevicePixelRatio(devicePixelRatio);
        entry = Entry{source.cacheKey(), edge, devicePixelRatio, scaled, 1, QImage()};
    }
    if (!(opacity < 1.0))
        return entry.image;
    if (entry.faded.isNull() || entry.fadedOpacity != opacity) {
        QImage faded(entry.image.size(), QImage::Format_ARGB32_Premultiplied);
        faded.setDevicePixelRatio(devicePixelRatio);
        faded.fill(Qt::transparent);
        QPainter painter(&faded);
        painter.setOpacity(std::max(0.0, opacity));
        painter.drawImage(QPoint(0, 0), entry.image);
        painter.end();
        entry.faded = faded;
        entry.fadedOpacity = opacity;
    }
    return entry.faded;
}

void HVIconCache::retainOnly(const QSet<const HVApp*>& apps)
{
    m_entries.removeIf(
        [&apps](const QHash<const HVApp*, Entry>::iterator& it) { return !apps.contains(it.key()); });
}
