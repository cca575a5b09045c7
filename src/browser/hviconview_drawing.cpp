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
// The record's colour-spectrum picture where the record offers one, else its icon.
template<typename App>
QImage spectrumOrIcon(const App& app)
{
    if constexpr (requires { app.spectrumIcon(); })
        return app.spectrumIcon();
    else
        return app.icon();
}

QPolygonF triangleRight(const QRectF& r)
{
    return QPolygonF({r.topLeft(), r.bottomLeft(), QPointF(r.right(), r.center().y())});
}

QPolygonF triangleDown(const QRectF& r)
{
    return QPolygonF({r.topLeft(), r.topRight(), QPointF(r.center().x(), r.bottom())});
}

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(float(alpha));
    return color;
}
} // namespace

void HVIconView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    drawBackground(painter);
    if (m_busyScanning) {
        drawScanningText(painter);
        return;
    }
    const QRect dirty = event->rect();
    for (int row = 0; row < m_layout.rowCount(); ++row) {
        for (int column = 0; column < m_layout.colCount(); ++column) {
            if (m_layout.lookupTable().at(row, column).rect.intersects(dirty))
                drawCellforRow(painter, row, column);
        }
    }
    drawBunchMarks(painter);
}

void HVIconView::drawBackground(QPainter& painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(m_look.winColor, m_look.winAlpha * 0.3));
    painter.drawRoundedRect(QRectF(rect()), 9, 9);
    painter.restore();
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
    if (app) {
        painter.setOpacity(alpha);
        drawIcon(painter, *app, iconRect, decorated);
        painter.setOpacity(1.0);
    }
}

void HVIconView::drawIcon(QPainter& painter, const HVApp& app, const QRectF& rect, bool exactRect)
{
    const QImage source = m_showIconSpectrums ? spectrumOrIcon(app) : app.icon();
    if (exactRect || rect.width() != rect.height()) {
        painter.drawImage(rect, source);
        return;
    }
    // Whole icons come from the cache, scaled once and centred in their square.
    const QImage icon = m_iconCache.scaledIcon(&app, source, int(rect.width()), devicePixelRatioF());
    if (icon.isNull())
        return;
    const QSizeF size = icon.deviceIndependentSize();
    painter.drawImage(QPointF(rect.x() + std::floor((rect.width() - size.width()) / 2),
                              rect.y() + std::floor((rect.height() - size.height()) / 2)),
                      icon);
}

void HVIconView::drawBunchMarks(QPainter& painter)
{
    const bool moving = m_drag.dragMoveInProgress && isUserGroup(m_groupShown);
    const QList<QLineF> lines =
        HVBunchSeparators::linesForLayout(m_layout, moving ? m_selectedCoords.spacer : Coords::None);
    m_linePainter.drawLines(painter, lines, m_look.separatorColor());
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
