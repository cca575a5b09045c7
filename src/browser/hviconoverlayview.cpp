#include "hviconoverlayview.h"

#include "catalogue/hvapp.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QVariantAnimation>

#include <algorithm>

namespace {
const QStringList ColorKeys = {QStringLiteral("windowAlpha"), QStringLiteral("windowColor")};
const QStringList PlacementKeys = {QStringLiteral("groupOrientation"), QStringLiteral("tabletMode"),
                                   QStringLiteral("tabletHandedness")};
constexpr double Gap = 4.0;
constexpr int MaxLabelCharacters = 120;

// Control characters and overlong texts from entry files are not drawn as they are.
QString printable(QString text)
{
    for (QChar& c : text)
        if (c.category() == QChar::Other_Control)
            c = QLatin1Char(' ');
    text = text.trimmed();
    if (text.size() > MaxLabelCharacters)
        text = text.left(MaxLabelCharacters - 1) + QChar(0x2026);
    return text;
}

// The version an entry file declares ("X-AppVersion" in its main group), empty when none.
QString entryVersion(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    bool inMainGroup = false;
    for (int lines = 0; !file.atEnd() && lines < 500; ++lines) {
        const QString line = QString::fromUtf8(file.readLine(4096)).trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inMainGroup = line == QLatin1String("[Desktop Entry]");
        else if (inMainGroup && line.startsWith(QLatin1String("X-AppVersion")))
            return printable(line.section(QLatin1Char('='), 1));
    }
    return {};
}

QColor contrasting(const QColor& color)
{
    return color.valueF() > 0.73 ? Qt::black : Qt::white;
}
} // namespace

HVIconOverlayView::HVIconOverlayView(QWidget* iconView, HVUserDefaults* defaults, QWidget* parent)
    : QWidget(parent), m_iconView(iconView), m_defaults(defaults), m_labelTimer(new QTimer(this)),
      m_filterStringTimer(new QTimer(this))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_TranslucentBackground);
    m_labelTimer->setSingleShot(true);
    m_labelTimer->setInterval(LongLabelDelayMs);
    connect(m_labelTimer, &QTimer::timeout, this, [this] {
        m_showLongLabel = true;
        repaintLabel();
        emit longLabelShown();
    });
    m_filterStringTimer->setSingleShot(true);
    connect(m_filterStringTimer, &QTimer::timeout, this, &HVIconOverlayView::startFade);
    auto* center = HVNotificationCenter::defaultCenter();
    center->addButFirstRemoveObserver(this, "selectedAppChanged", HVNotificationNames::SelectedAppChanged);
    center->addButFirstRemoveObserver(this, "filterStringChanged", HVNotificationNames::FilterStringChanged);
    connect(m_defaults, &HVUserDefaults::valueChanged, this, [this](const QString& key) {
        if (ColorKeys.contains(key))
            updateColors();
        else if (PlacementKeys.contains(key)) {
            readPlacementPreferences();
            update();
        }
    });
    readPlacementPreferences();
    updateColors();
}

HVIconOverlayView::~HVIconOverlayView()
{
    HVNotificationCenter::defaultCenter()->removeObserver(this);
}

void HVIconOverlayView::readPlacementPreferences()
{
    m_groupOrientation = int(m_defaults->integerForKey(QStringLiteral("groupOrientation")));
    m_tabletMode = m_defaults->boolForKey(QStringLiteral("tabletMode"));
    m_tabletHandedness = int(m_defaults->integerForKey(QStringLiteral("tabletHandedness")));
}

void HVIconOverlayView::updateColors()
{
    const float alpha = m_defaults->floatForKey(QStringLiteral("windowAlpha"));
    m_winAlpha = std::clamp(alpha, 0.0f, 1.0f);
    QColor color = m_defaults->colorForKey(QStringLiteral("windowColor"));
    if (!color.isValid())
        color = Qt::black;
    m_background = m_winAlpha < 0.01f ? QColor(Qt::black) : color;
    m_foreground = contrasting(m_background);
    update();
}

void HVIconOverlayView::selectedAppChanged(const HVNotification& notification)
{
    if (m_iconView && notification.object.value<QObject*>() != m_iconView)
        return;
    m_showLongLabel = false;
    m_labelTimer->stop();
    m_selectedApp = notification.userInfo.value(QStringLiteral("app")).value<HVAppRef>();
    m_selectedAppRect =
        m_selectedApp ? notification.userInfo.value(QStringLiteral("rect")).toRectF() : QRectF();
    if (m_selectedApp)
        m_labelTimer->start();
    repaintLabel();
}

void HVIconOverlayView::filterStringChanged(const HVNotification& notification)
{
    if (m_iconView && notification.object.value<QObject*>() != m_iconView)
        return;
    m_filterStringTimer->stop();
    if (m_fade) {
        m_fade->stop();
        m_fade->deleteLater();
        m_fade = nullptr;
    }
    m_filterOpacity = 1.0;
    m_filterString = notification.userInfo.value(QStringLiteral("filterString")).toString();
    if (!notification.userInfo.isEmpty()) {
        const double seconds = notification.userInfo.value(QStringLiteral("resetInterval"), 1.0).toDouble();
        m_filterStringTimer->start(int(std::clamp(seconds, 0.0, 60.0) * 1000));
    }
    repaintFilter();
}

bool HVIconOverlayView::isFading() const
{
    return m_fade != nullptr;
}

void HVIconOverlayView::startFade()
{
    m_fade = new QVariantAnimation(this);
    m_fade->setDuration(FadeMs);
    m_fade->setStartValue(1.0);
    m_fade->setEndValue(0.0);
    connect(m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_filterOpacity = value.toDouble();
        update(m_paintedFilter.toAlignedRect().adjusted(-1, -1, 4, 4));
    });
    connect(m_fade, &QVariantAnimation::finished, this, [this] {
        m_fade->deleteLater();
        m_fade = nullptr;
        m_filterString.clear();
        m_filterOpacity = 1.0; // ready for the next text
        repaintFilter();
        emit filterFaded();
    });
    m_fade->start();
}

QString HVIconOverlayView::labelText() const
{
    if (!m_selectedApp)
        return {};
    if (!m_showLongLabel)
        return printable(m_selectedApp->name());
    const QFileInfo file(m_selectedApp->path());
    QString text = printable(file.completeBaseName());
    const QString version = entryVersion(m_selectedApp->path());
    if (!version.isEmpty())
        text += QStringLiteral("\n") + tr("Version: %1").arg(version);
    return text + QStringLiteral("\n") + printable(file.absolutePath());
}

QRectF HVIconOverlayView::labelRect(const QSizeF& size) const
{
    QRectF cell = m_selectedAppRect;
    if (m_iconView && m_iconView->window() == window()) // the view is a sibling, not a child
        cell.translate(mapFrom(window(), m_iconView->mapTo(window(), QPoint(0, 0))));
    const QRectF bounds = rect();
    QRectF label(QPointF(0, 0), size);
    // Beside the cell across the bunches' direction; in tablet mode away from the hand.
    bool sideways = m_groupOrientation == 2 || m_tabletMode;
    if (sideways) {
        const bool rightRoom = bounds.right() - cell.right() >= size.width() + Gap;
        const bool leftRoom = cell.left() - bounds.left() >= size.width() + Gap;
        bool toLeft = m_tabletMode ? m_tabletHandedness == 0 : !rightRoom;
        if (toLeft && !leftRoom && rightRoom)
            toLeft = false;
        if (!toLeft && !rightRoom && leftRoom)
            toLeft = true;
        label.moveCenter(cell.center());
        if (toLeft)
            label.moveRight(cell.left() - Gap);
        else
            label.moveLeft(cell.right() + Gap);
    } else {
        label.moveCenter(cell.center());
        if (bounds.bottom() - cell.bottom() >= size.height() + Gap)
            label.moveTop(cell.bottom() + Gap);
        else
            label.moveBottom(cell.top() - Gap);
    }
    // Kept inside the panel; a label wider than the panel starts at its left edge.
    label.moveLeft(
        std::clamp(label.left(), bounds.left(), std::max(bounds.left(), bounds.right() - size.width())));
    label.moveTop(
        std::clamp(label.top(), bounds.top(), std::max(bounds.top(), bounds.bottom() - size.height())));
    return label;
}

void HVIconOverlayView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_selectedApp)
        drawLabel(painter);
    if (!m_filterString.isEmpty())
        drawFilterString(painter);
}

QFont HVIconOverlayView::labelFont() const
{
    QFont small = font();
    small.setPointSizeF(m_showLongLabel ? small.pointSizeF() : small.pointSizeF() * 0.9);
    return small;
}

QRectF HVIconOverlayView::labelBox() const
{
    if (!m_selectedApp)
        return {};
    const QRectF limit(0, 0, std::max(40, width() - 8), std::max(20, height()));
    const QRectF textBox =
        QFontMetricsF(labelFont()).boundingRect(limit, Qt::AlignCenter | Qt::TextWordWrap, labelText());
    return labelRect(textBox.size() + QSizeF(16, 6));
}

QFont HVIconOverlayView::filterFont() const
{
    QFont large = font();
    large.setPixelSize(72);
    return large;
}

QRectF HVIconOverlayView::filterBox() const
{
    if (m_filterString.isEmpty())
        return {};
    const QFontMetricsF metrics(filterFont());
    QRectF box(0, 0, std::min(metrics.horizontalAdvance(m_filterString) + 16, double(width())),
               metrics.height() + 8);
    box.moveCenter(QRectF(rect()).center());
    return box;
}

void HVIconOverlayView::repaintLabel()
{
    // Only the label's old and new places: the grid under the rest need not be drawn again.
    update(m_paintedLabel.toAlignedRect().adjusted(-1, -1, 1, 1));
    m_paintedLabel = labelBox();
    update(m_paintedLabel.toAlignedRect().adjusted(-1, -1, 1, 1));
}

void HVIconOverlayView::repaintFilter()
{
    constexpr int Reach = FilterTextImage::ShadowReach + 1;
    update(m_paintedFilter.toAlignedRect().adjusted(-1, -1, Reach, Reach));
    m_paintedFilter = filterBox();
    update(m_paintedFilter.toAlignedRect().adjusted(-1, -1, Reach, Reach));
}

void HVIconOverlayView::drawLabel(QPainter& painter)
{
    const QString text = labelText();
    painter.setFont(labelFont());
    const QRectF box = labelBox();
    QColor backing = m_background;
    backing.setAlphaF(std::max(0.6f, m_winAlpha));
    painter.setPen(Qt::NoPen);
    painter.setBrush(backing);
    const double radius = m_showLongLabel ? 8.0 : box.height() / 2;
    painter.drawRoundedRect(box, radius, radius);
    painter.setPen(m_foreground);
    painter.drawText(box, Qt::AlignCenter | Qt::TextWordWrap, text);
}

void HVIconOverlayView::drawFilterString(QPainter& painter)
{
    const QRectF area = filterBox();
    QColor shadow = contrasting(m_foreground);
    shadow.setAlphaF(0.35);
    const QImage& text = m_filterText.image(m_filterString, {filterFont(), m_foreground, shadow}, area.size(),
                                            devicePixelRatioF());
    painter.setOpacity(m_filterOpacity);
    painter.drawImage(area.topLeft(), text);
    painter.setOpacity(1.0);
}

void HVIconOverlayView::drawBigIconForApp(QPainter& painter, const HVApp& app, const QPointF& center) const
{
    const QRectF icon(center.x() - 32, center.y() - 32, 64, 64);
    painter.drawImage(icon, app.icon());
    const QFileInfo file(app.path());
    QFont font = painter.font();
    font.setPixelSize(20);
    painter.setFont(font);
    painter.setPen(m_foreground);
    const QRectF nameBox(center.x() - 200, icon.bottom() + 4, 400, 26);
    painter.drawText(nameBox, Qt::AlignHCenter | Qt::AlignTop, printable(file.completeBaseName()));
    font.setPixelSize(11);
    painter.setFont(font);
    painter.drawText(nameBox.translated(0, 26), Qt::AlignHCenter | Qt::AlignTop,
                     printable(file.absolutePath()));
}
