// The three diagnostic images of an icon's colours, drawn as seen on screen (angles counter-
// clockwise from the right, bars standing on the bottom edge).
#include "colorconversions.h"
#include "hvcolourstate.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {
// Diagnostic images are never larger than this, whatever the icon size preference says.
constexpr quint64 MaximumImageSize = 2048;

QImage blankImage(quint64 size)
{
    const int edge = int(std::min(size, MaximumImageSize));
    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    if (!image.isNull())
        image.fill(Qt::transparent);
    return image;
}

// A rectangle given with its origin at the lower left, as the image's own rectangle.
QRectF flipped(double x, double y, double w, double h, double imageHeight)
{
    return QRectF(x, imageHeight - y - h, w, h);
}
} // namespace

QImage HVColourState::spectrumIcon(const QImage& icon) const
{
    if (m_params.iconSize == 0 || m_sortedColors.isEmpty())
        return icon;
    QImage image = blankImage(m_params.iconSize);
    if (image.isNull())
        return icon;
    const double size = image.width();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);

    quint64 total = 0;
    for (qsizetype i = 1; i < m_sortedColors.size(); ++i)
        total += m_sortedColors.at(i).count;
    const QPointF center(size / 2.0, size / 2.0);
    const double radius = size * 8.0 / 10.0 / 2.0 - 1.0;
    const QRectF circle(center.x() - radius, center.y() - radius, 2.0 * radius, 2.0 * radius);
    double start = 0.0;
    for (qsizetype i = 1; total > 0 && radius > 0.0 && i < m_sortedColors.size(); ++i) {
        const double span = double(m_sortedColors.at(i).count) / double(total) * 360.0;
        if (i == 1)
            start = 90.0 - span / 2.0; // the first wedge is centred on the top
        QPainterPath wedge(center);
        wedge.arcTo(circle, start, span);
        wedge.closeSubpath();
        painter.fillPath(wedge, m_sortedColors.at(i).color());
        start += span;
    }
    QPainterPath ring;
    ring.setFillRule(Qt::OddEvenFill);
    ring.addEllipse(QRectF(0.0, 0.0, size, size));
    const double inset = size / 10.0;
    ring.addEllipse(QRectF(inset, inset, size - 2.0 * inset, size - 2.0 * inset));
    painter.fillPath(ring, m_sortedColors.first().color());
    return image;
}

QImage HVColourState::spectrumIconSquare(const QImage& icon) const
{
    if (m_params.iconSize == 0)
        return icon;
    QImage image = blankImage(m_params.iconSize);
    if (image.isNull())
        return icon;
    const double size = image.width();
    image.fill(Qt::black);
    quint64 largest = 0;
    for (const SortedColor& entry : m_sortedColors)
        largest = std::max(largest, entry.count);
    if (m_sortedColors.isEmpty() || largest == 0)
        return image;
    QPainter painter(&image);
    painter.setPen(Qt::NoPen);
    const double barWidth = size / double(m_sortedColors.size());
    const double scale = size / double(largest);
    for (qsizetype k = 0; k < m_sortedColors.size(); ++k) {
        const double x = double(k) * barWidth, height = double(m_sortedColors.at(k).count) * scale;
        if (barWidth <= 0.0 || height <= 0.0)
            continue;
        // Snapped outwards to whole pixels.
        const double left = std::floor(x), right = std::ceil(x + barWidth), top = std::ceil(height);
        painter.fillRect(flipped(left, 0.0, right - left, top, size), m_sortedColors.at(k).color());
    }
    return image;
}

QImage HVColourState::spectrumTestIcon(const QImage& icon) const
{
    if (m_params.iconSize == 0)
        return icon;
    QImage image = blankImage(m_params.iconSize);
    if (image.isNull())
        return icon;
    const double size = image.width();
    const double cell = size / 100.0;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (int i = 0; i <= 100; ++i) {
        for (int j = 0; j <= 100; ++j) {
            const ColorQuad lch{double(j), double(i), 2.792526803190927, 1.0};
            ColorQuad rgb = LinearRGB_From_XYZ(XYZ_From_Luv(Luv_From_LChuv(lch)));
            GammaRGB_From_LinearRGB(&rgb, 2.2);
            const QColor color = QColor::fromRgbF(float(rgb.c1), float(rgb.c2), float(rgb.c3));
            painter.fillRect(flipped(i * cell, j * cell, cell, cell, size), color);
        }
    }
    return image;
}
