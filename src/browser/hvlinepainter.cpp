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
        for (const QRect& part : within.intersected(pixels))
            drawPixels(painter, part, color);
    }
}

void HVLinePainter::drawPixels(QPainter& painter, const QRect& pixels, const QColor& color)
{
    if (pixels.isEmpty())
        return;
    for (int y = pixels.top(); y <= pixels.bottom(); y += Piece)
        painter.fillRect(QRect(pixels.left(), y, pixels.width(), std::min(Piece, pixels.bottom() + 1 - y)),
                         color);
}
