// Draws the thin lines between bunches. Qt's raster engine hands any blend of more than about a
// hundred rows to its thread pool; a one-point line gains nothing from that and pays a hand-off
// for every 64 rows, which made the lines cost more than all the icons of a full grid. So
// horizontal and vertical lines are filled as rectangles of at most 64 rows; any other line is
// stroked.
#pragma once

#include <QColor>
#include <QLineF>
#include <QList>
#include <QRegion>

class QPainter;

class HVLinePainter
{
public:
    // One-point lines, each covering the pixels its square-capped stroke would; of the
    // horizontal and vertical ones only the pixels within `within` (all when empty).
    static void drawLines(QPainter& painter, const QList<QLineF>& lines, const QColor& color,
                          const QRegion& within = QRegion());

private:
    static constexpr int Piece = 64;
    static void drawPixels(QPainter& painter, const QRect& pixels, const QColor& color);
};
