#include "hvlinepainter.h"

#include <QPainter>

#include <cmath>

void HVLinePainter::drawLines(QPainter& painter, const QList<QLineF>& lines, const QColor& color,
                              const QRegion& within)
{
    for (const QLineF& line : lines) {
        if (line.x1() != line.x2() && line.y1() != line.y2()) {
            painter.save();
            painter.setPen(QPen(color, 1));
            painter.drawLine(line);
            painter.restore();
            continue;
        }
        // The stroke reaches half a point beyond each end and to each side.
        const QRect pixels =
            QRectF(std::min(line.x1(), line.x2()) - 0.5, std::min(line.y1(), line.y2()) - 0.5,
                   std::abs(line.dx()) + 1, std::abs(line.dy()) + 1)
                .toRect();
        if (within.isEmpty()) {
            drawPixels(painter, pixels, color);
            continue;
        }
        for (const QRect& part : within)
            drawPixels(painter, part.intersected(pixels), color);
    }
}

void HVLinePainter::drawPixels(QPainter& painter, const QRect& pixels, const QColor& color)
{
    if (pixels.isEmpty())
        return;
    if (m_tile.isNull() || m_tileColor != color.rgba()) {
        m_tile = QImage(Piece, Piece, QImage::Format_ARGB32_Premultiplied);
        m_tile.fill(color);
        m_tileColor = color.rgba();
    }
    for (int y = pixels.top(); y <= pixels.bottom(); y += Piece) {
        for (int x = pixels.left(); x <= pixels.right(); x += Piece) {
            const QRect piece(0, 0, std::min(Piece, pixels.right() + 1 - x),
                              std::min(Piece, pixels.bottom() + 1 - y));
            painter.drawImage(QPoint(x, y), m_tile, piece);
        }
    }
}
