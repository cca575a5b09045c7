#include "hviconcache.h"

QImage HVIconCache::scaledIcon(const HVApp* app, const QImage& source, int edge, qreal devicePixelRatio)
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
        entry = Entry{source.cacheKey(), edge, devicePixelRatio, scaled};
    }
    return entry.image;
}

void HVIconCache::retainOnly(const QSet<const HVApp*>& apps)
{
    m_entries.removeIf(
        [&apps](const QHash<const HVApp*, Entry>::iterator& it) { return !apps.contains(it.key()); });
}
