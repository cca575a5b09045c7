// Draws the thin lines between bunches. Qt's raster engine hands any blend of more than about a
// hundred rows to its thread pool; a one-point line gains nothing from that and pays a hand-off
// for every 64 rows, which made the lines cost more than all the icons of a full grid. So
// horizontal and vertical lines are copied from a small image of their colour, tall lines in
// pieces of 64 rows; any other line is stroked.
#pragma once

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QList>
#include <QRegion>

class QPainter;

class HVLinePainter
{
public:
    // One-point lines, each covering the pixels its square-capped stroke would; of the
    // horizontal and vertical ones only the pixels within `within` (all when empty).
    void drawLines(QPainter& painter, const QList<QLineF>& lines, const QColor& color,
                   const QRegion& within = QRegion());

private:
    static constexpr int Piece = 64;
    void drawPixels(QPainter& painter, const QRect& pixels, const QColor& color);

    QImage m_tile; // Piece x Piece pixels of m_tileColor
    QRgb m_tileColor = 0;
};
