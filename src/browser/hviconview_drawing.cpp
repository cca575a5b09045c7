// Painting the icon view: the translucent background, the scanning progress, each cell that
// needs it, and the lines and marks between and beside bunches.
#include "hviconview.h"

#include "hvbunchseparators.h"

#include "catalogue/hvappgroup.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {
QPolygonF triangleRight(const QRectF& r)
{
    return QPolygonF({r.topLeft(), r.bottomLeft(), QPointF(r.right(), r.center().y())});
}

QPolygonF triangleDown(const QRectF& r)
{
    return QPolygonF({r.topLeft(), r.topRight(), QPointF(r.center().x(), r.bottom())});
}

constexpr int CornerRadius = 9;
constexpr int BackgroundBand = 64;

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(float(alpha));
    return color;
}
} // namespace

void HVIconView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    drawBackground(painter, event->region());
    if (m_busyScanning) {
        drawScanningText(painter);
        return;
    }
    if (!m_filteredCells.isCurrentFor(m_filter.text()))
        m_filteredCells.refresh(m_cellApps, m_filter);
    m_paintRatio = devicePixelRatioF();
    // Only the cells the region meets: a filter change repaints a scattering of them.
    m_gridBands.cellsMeeting(event->region(), m_cellsToPaint);
    const int columns = m_layout.colCount();
    for (std::size_t cell = 0; cell < m_cellsToPaint.size(); ++cell) {
        if (m_cellsToPaint[cell])
            drawCellforRow(painter, int(cell / columns), int(cell % columns));
    }
    drawBunchMarks(painter, event->region());
}

void HVIconView::drawBackground(QPainter& painter, const QRegion& dirty) const
{
    const QColor colour = withAlpha(m_look.winColor, m_look.winAlpha * 0.3);
    const QRect area = dirty.boundingRect().intersected(rect());
    const int radius = CornerRadius;
    if (height() < 4 * radius || width() < 2 * radius) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(QRectF(rect()), radius, radius);
        painter.restore();
        return;
    }
    // Between the rounded ends every row is filled edge to edge, a rectangle of the region at a
    // time, in bands of rows few enough for the raster engine to blend them here rather than hand
    // them to its thread pool (a whole region at once would be as many rows as its rectangles).
    const QRect middle = rect().adjusted(0, radius, 0, -radius);
    for (const QRect& part : dirty) {
        const QRect straight = part.intersected(middle);
        for (int y = straight.top(); y <= straight.bottom(); y += BackgroundBand)
            painter.fillRect(QRect(straight.left(), y, straight.width(),
                                   std::min(BackgroundBand, straight.bottom() + 1 - y)),
                             colour);
    }
    // The rounded ends: a short rounded rectangle has the same corners as the whole.
    const QRect top(0, 0, width(), radius);
    const QRect bottom(0, height() - radius, width(), radius);
    for (const QRect& end : {top, bottom}) {
        if (!area.intersects(end))
            continue;
        painter.save();
        painter.setClipRect(end.intersected(area), Qt::IntersectClip);
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        const double y = end.top() == 0 ? 0 : height() - 4 * radius;
        painter.drawRoundedRect(QRectF(0, y, width(), 4 * radius), radius, radius);
        painter.restore();
    }
}

void HVIconView::drawScanningText(QPainter& painter) const
{
    // The step line sits with its lower edge at half the height, the label 16 points below it.
    painter.save();
    painter.setPen(m_look.textColor);
    const QFontMetricsF metrics(painter.font());
    const double lowerEdge = height() - std::floor(height() * 0.5);
    const auto drawCentred = [&](const QString& text, double bottom) {
        const double x = (width() - metrics.horizontalAdvance(text)) * 0.5;
        painter.drawText(QPointF(x, bottom - metrics.descent()), text);
    };
    drawCentred(m_scanningStep, lowerEdge);
    if (!m_scanningLabel.isEmpty())
        drawCentred(m_scanningLabel, lowerEdge + 16);
    painter.restore();
}

void HVIconView::drawCellforRow(QPainter& painter, int row, int column)
{
    const HVApp* app = appPointerAtCell(row, column);
    const double alpha = isOpaqueCell(app, row, column) ? 1.0 : m_look.excludedOpacity;
    const QColor color =
        withAlpha(app && isAppRunning(app) ? m_look.iconHighlightColor : m_look.textColor, alpha);
    const double padding = m_layout.preferences().iconPadding;
    QRectF cellRect = m_layout.lookupTable().at(row, column).rect;
    QRectF iconRect = cellRect.adjusted(padding, padding, -padding, -padding);
    const double q = std::floor(iconRect.width() / 5);

    // The drop spot of a moved favourite gives up a strip for a triangle pointing into it.
    const bool decorated = isDecoratedCell(app, row, column);
    QPolygonF triangle;
    if (decorated) {
        const int orientation = m_layout.preferences().groupOrientation;
        const int direction = orientation != 0 ? orientation : m_layout.preferences().iconReadingOrder;
        if (direction == 1) {
            triangle =
                triangleRight(QRectF(cellRect.x(), cellRect.y() + q / 2, padding + q, cellRect.height() - q));
            cellRect.adjust(q, 0, 0, 0);
            iconRect.adjust(q, 0, 0, 0);
        } else {
            triangle =
                triangleDown(QRectF(cellRect.x() + q / 2, cellRect.y(), cellRect.width() - q, padding + q));
            cellRect.adjust(0, q, 0, 0);
            iconRect.adjust(0, q, 0, 0);
        }
    }

    if (isHighlightedCell(app, row, column)) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, true);
        const bool filled = m_look.drawFilledIconHighlight;
        const bool stroked = m_look.drawStrokedIconHighlight;
        if (filled && stroked) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(color);
            painter.drawRoundedRect(cellRect, 4, 4);
        } else if (filled) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(color);
            painter.drawRoundedRect(cellRect.adjusted(1, 1, -1, -1), 3, 3);
        } else if (stroked) {
            painter.setPen(QPen(color, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(cellRect.adjusted(1, 1, -1, -1), 3, 3);
        }
        painter.restore();
    }
    if (decorated) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(Qt::NoPen);
        painter.setBrush(withAlpha(m_look.textColor, alpha));
        painter.drawPolygon(triangle);
        painter.restore();
    }
    if (app)
        drawIcon(painter, *app, iconRect, decorated, alpha);
}

void HVIconView::drawIcon(QPainter& painter, const HVApp& app, const QRectF& rect, bool exactRect,
                          double opacity)
{
    const QImage source = m_showIconSpectrums ? app.spectrumIcon() : app.icon();
    if (exactRect || rect.width() != rect.height()) {
        // Scaled as drawn; the cached icons below are copied pixel for pixel.
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter.setOpacity(opacity);
        painter.drawImage(rect, source);
        painter.restore();
        return;
    }
    // Whole icons come from the cache, scaled (and faded) once and centred in their square.
    const QImage icon = m_iconCache.scaledIcon(&app, source, int(rect.width()), m_paintRatio, opacity);
    if (icon.isNull())
        return;
    const QSizeF size = icon.deviceIndependentSize();
    painter.drawImage(QPointF(rect.x() + std::floor((rect.width() - size.width()) / 2),
                              rect.y() + std::floor((rect.height() - size.height()) / 2)),
                      icon);
}

void HVIconView::drawBunchMarks(QPainter& painter, const QRegion& dirty)
{
    const bool moving = m_drag.dragMoveInProgress && isUserGroup(m_groupShown);
    const QList<QLineF> lines =
        HVBunchSeparators::linesForLayout(m_layout, moving ? m_selectedCoords.spacer : Coords::None);
    m_linePainter.drawLines(painter, lines, m_look.separatorColor(), dirty);
    if (!moving)
        return;
    const QPolygonF mark = HVBunchSeparators::marginMark(m_layout, m_selectedCoords);
    if (mark.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_look.textColor);
    painter.drawPolygon(mark);
    painter.restore();
}

void HVIconView::setNeedsDisplayForApp(const HVAppRef& app)
{
    const QRectF rect = rectOfApp(app);
    if (!rect.isEmpty())
        update(rect.toAlignedRect());
}

void HVIconView::repaintCell(const Coords& coords)
{
    const QRectF rect = rectOfCoords(coords);
    if (!rect.isEmpty())
        repaint(rect.toAlignedRect());
}

void HVIconView::updateAppIcon(const HVNotification& notification)
{
    setNeedsDisplayForApp(notification.object.value<HVAppRef>());
}

void HVIconView::showProgressStep(const HVNotification& notification)
{
    const int count = notification.userInfo.value(QStringLiteral("count")).toInt();
    if (count < 1) {
        m_busyScanning = false;
        m_scanningStep.clear();
        m_scanningLabel.clear();
    } else {
        const int step = notification.userInfo.value(QStringLiteral("step")).toInt();
        m_busyScanning = true;
        m_scanningStep = QStringLiteral("Scanning %1 of %2").arg(step).arg(count);
        m_scanningLabel = notification.userInfo.value(QStringLiteral("label")).toString();
    }
    repaint(); // at once: the main thread is busy scanning
}
