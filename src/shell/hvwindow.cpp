#include "hvwindow.h"

#include "hvbkgndview.h"
#include "hvgeometry.h"
#include "hvpanelcontrols.h"
#include "hvpanelscreen.h"
#include "hvresizefade.h"
#include "panelalpha.h"

#include "browser/hviconoverlayview.h"
#include "browser/hviconview.h"
#include "browser/hviconviewdrag.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"
#include "platform/panelwindowhints.h"

#include <QApplication>
#include <QDialog>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace {
const QString GroupToShowKey = QStringLiteral("groupToShowWhenWindowOpens");
const QString GroupShownKey = QStringLiteral("groupShownWhenWindowClosed");
const QStringList ColorKeys = {QStringLiteral("windowAlpha"), QStringLiteral("windowColor"),
                               QStringLiteral("windowBorderColor"), QStringLiteral("drawWindowBorder")};

QPointF centerOf(const QRectF& r)
{
    return r.center();
}
} // namespace

HVWindow::HVWindow(HVIconView* iconView, HVUserDefaults* defaults, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), m_defaults(defaults), m_iconView(iconView)
{
    m_defaults->registerDefaults(registeredDefaults());
    m_isNonActivating = m_defaults->boolForKey(QStringLiteral("nonActivatingPanel"));
    m_useAnimation = m_defaults->boolForKey(QStringLiteral("animateWindowResizing"));
    setWindowTitle(QStringLiteral("Nimbo Main"));
    setAttribute(Qt::WA_TranslucentBackground);
    if (m_isNonActivating)
        setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::StrongFocus);

    m_alpha = new PanelAlpha(this);
    m_background = new HVBkgndView(this);
    m_iconView->setParent(this);
    m_iconView->move(LeftMargin, TopMargin);
    // Files dragged over the panel bring it fully on screen, and it goes back after.
    connect(m_iconView->dragController(), &HVIconViewDrag::slideOnscreenRequested, this,
            &HVWindow::slideOnscreen);
    connect(m_iconView->dragController(), &HVIconViewDrag::slideBackRequested, this, &HVWindow::slideBack);
    // The overlay sits above the icons and never takes the mouse.
    m_overlay = new HVIconOverlayView(m_iconView, m_defaults, this);
    m_overlay->raise();
    m_controls = new HVPanelControls(this, m_iconView, m_defaults);
    m_resizeFade = new HVResizeFade(m_iconView, m_overlay, this);
    connect(m_controls, &HVPanelControls::closeClicked, this, &HVWindow::closeRequested);
    connect(m_controls, &HVPanelControls::menuRequested, this, &HVWindow::menuRequested);

    observeDefaults();
    updateColors();
    HVNotificationCenter::defaultCenter()->addButFirstRemoveObserver(
        this, "subviewDidResize", HVNotificationNames::SubviewNeedsResizing);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &HVWindow::screenParametersDidChange);
    if (QScreen* screen = QGuiApplication::primaryScreen())
        connect(screen, &QScreen::availableGeometryChanged, this, &HVWindow::screenParametersDidChange);
    subviewDidResize();
}

HVWindow::~HVWindow()
{
    HVNotificationCenter::defaultCenter()->removeObserver(this);
}

QVariantMap HVWindow::registeredDefaults()
{
    return {{QStringLiteral("windowAlpha"), 0.85},
            {QStringLiteral("windowColor"), QColor::fromRgbF(0, 0, 0, 1)},
            {QStringLiteral("windowBorderColor"), QColor::fromRgbF(1, 1, 1, 1)},
            {QStringLiteral("drawWindowBorder"), false},
            {QStringLiteral("animateWindowResizing"), false},
            {QStringLiteral("openOnPointerScreen"), true}};
}

void HVWindow::observeDefaults()
{
    connect(m_defaults, &HVUserDefaults::valueChanged, this,
            [this](const QString& key, const QVariant&, const QVariant& newValue) {
                if (ColorKeys.contains(key))
                    updateColors();
                else if (key == QLatin1String("animateWindowResizing"))
                    m_useAnimation = newValue.toBool();
            });
}

void HVWindow::updateColors()
{
    QColor color = m_defaults->colorForKey(QStringLiteral("windowColor"));
    QColor border = m_defaults->colorForKey(QStringLiteral("windowBorderColor"));
    if (!color.isValid())
        color = Qt::black;
    if (!border.isValid())
        border = Qt::white;
    const float alpha = std::clamp(m_defaults->floatForKey(QStringLiteral("windowAlpha")), 0.0f, 1.0f);
    m_background->setColors(alpha, color, border, m_defaults->boolForKey(QStringLiteral("drawWindowBorder")),
                            m_borderWidth);
}

QRectF HVWindow::availableGeometry() const
{
    QScreen* screen = windowHandle() && windowHandle()->screen() ? windowHandle()->screen()
                                                                 : QGuiApplication::primaryScreen();
    return screen ? QRectF(screen->availableGeometry()) : QRectF();
}

QSizeF HVWindow::maxIconViewSize() const
{
    const QRectF visible = availableGeometry();
    if (visible.isEmpty())
        return QSizeF(0, 0);
    return QSizeF(std::max(0.0, visible.width() - 16 - LeftMargin - RightMargin - 16),
                  std::max(0.0, visible.height() - 16 - TopMargin - BottomMargin - 16));
}

void HVWindow::subviewDidResize(const HVNotification&)
{
    m_iconView->setMaxIconViewSize(maxIconViewSize());
    const QSizeF content = m_iconView->viewSize();
    const QSizeF size(std::round(content.width() + LeftMargin + RightMargin),
                      std::round(TopMargin + content.height() + BottomMargin));
    QRectF frame(QPointF(0, 0), size);
    if (isPanelVisible()) {
        frame = HVGeometry::centerRectInRect(frame, QRectF(geometry()), true);
        const QRectF constrained = HVGeometry::constrainRectInRect(frame, availableGeometry(), true);
        if (!constrained.isNull())
            frame = constrained;
    } else {
        frame.moveTopLeft(pos());
    }
    auto* center = HVNotificationCenter::defaultCenter();
    center->postNotificationName(HVNotificationNames::WindowWillResize, QVariant::fromValue<QObject*>(this));
    auto apply = [this, content, frame] {
        m_iconView->resize(content.toSize());
        applyFrame(frame);
        HVNotificationCenter::defaultCenter()->postNotificationName(HVNotificationNames::WindowDidResize,
                                                                    QVariant::fromValue<QObject*>(this));
    };
    if (m_useAnimation && isPanelVisible() && QRectF(geometry()) != frame)
        m_resizeFade->run(animationResizeTime(frame), apply);
    else
        apply();
}

void HVWindow::applyFrame(const QRectF& frame)
{
    setGeometry(frame.toRect());
}

void HVWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_background->setGeometry(rect());
    m_overlay->setGeometry(rect());
    m_background->lower();
    m_overlay->raise();
}

double HVWindow::animationResizeTime(const QRectF& target) const
{
    auto diagonal = [](const QSizeF& s) {
        return std::sqrt(s.width() * s.width() + s.height() * s.height());
    };
    const double change = std::abs(diagonal(target.size()) - diagonal(QSizeF(size())));
    QScreen* screen = QGuiApplication::primaryScreen();
    const double side = screen ? std::max(screen->geometry().width(), screen->geometry().height()) : 1;
    return change / side * 0.2 + 1.2;
}

bool HVWindow::isPanelVisible() const
{
    return isVisible();
}

bool HVWindow::iconViewHasUserFocus() const
{
    const QList<QDialog*> sheets = findChildren<QDialog*>(Qt::FindDirectChildrenOnly);
    return std::none_of(sheets.cbegin(), sheets.cend(),
                        [](const QDialog* sheet) { return sheet->isVisible(); });
}

bool HVWindow::hasBeenMoved() const
{
    const QPointF offset = centerOf(QRectF(geometry())) - centerOf(availableGeometry());
    return std::abs(offset.x()) > 16 || std::abs(offset.y()) > 16;
}

void HVWindow::centerExactly()
{
    const QRectF visible = availableGeometry();
    if (!visible.isEmpty())
        applyFrame(HVGeometry::centerRectInRect(QRectF(geometry()), visible, true));
}

void HVWindow::slideToCenter()
{
    m_movedFrame = QRectF(geometry());
    const QRectF centered = HVGeometry::centerRectInRect(m_movedFrame, availableGeometry(), true);
    const QPointF offset = centered.center() - m_movedFrame.center();
    if (std::abs(offset.x()) > 16 || std::abs(offset.y()) > 16)
        slideFrameTo(centered, SlideSeconds);
}

void HVWindow::slideBack()
{
    if (!m_movedFrame.isNull() && m_movedFrame != QRectF(geometry()))
        slideFrameTo(m_movedFrame, SlideSeconds);
}

void HVWindow::slideOnscreen()
{
    const QRectF visible = availableGeometry();
    if (visible.contains(QRectF(geometry())))
        return;
    m_movedFrame = QRectF(geometry());
    const QRectF constrained = HVGeometry::constrainRectInRect(m_movedFrame, visible, true);
    if (!constrained.isNull())
        slideFrameTo(constrained, SlideSeconds);
}

void HVWindow::screenParametersDidChange()
{
    m_iconView->resizeViewForced(false);
    slideFrameTo(HVGeometry::centerRectInRect(QRectF(geometry()), availableGeometry(), true), SlideSeconds);
}

void HVWindow::showPanel()
{
    int group = int(m_defaults->integerForKey(GroupToShowKey));
    if (group == -1)
        group = int(m_defaults->integerForKey(GroupShownKey));
    if (group == -1)
        group = 1;
    m_iconView->setGroupToShow(group);
    if (!isVisible() || m_alpha->opacity() < 0.01) {
        if (HVPanelScreen::moveOnto(this, HVPanelScreen::screenToOpenOn(*m_defaults)))
            m_iconView->resizeViewForced(false); // the new screen bounds the grid
        centerExactly();
    }
    if (!isVisible()) {
        m_alpha->setOpacity(0.0);
        show();
    }
    // The focus is asked for before the fade: the toolkit still counts the application active
    // for a moment after a quick hide, and would declare it inactive, hiding the panel again,
    // if the focus did not come back while the panel fades in.
    PanelWindowHints::setOnAllWorkspaces(this);
    raise();
    if (!m_isNonActivating) {
        activateWindow();
        PanelWindowHints::requestActivation(this);
    }
    setFocus();
    fadeInOver(FadeSeconds);
    adoptWindowSystemFocus();
    QTimer::singleShot(250, this, &HVWindow::adoptWindowSystemFocus);
}

void HVWindow::adoptWindowSystemFocus()
{
    // Hidden and shown again quickly, the focus can come back before the toolkit has let it go:
    // the window system then calls the panel focused while the widgets still think nothing is
    // active, and typed letters would go nowhere.
    if (isVisible() && QGuiApplication::focusWindow() == windowHandle() && !isActiveWindow())
        QApplication::setActiveWindow(this);
}

void HVWindow::hidePanel()
{
    m_defaults->setInteger(m_iconView->groupToShow(), GroupShownKey);
    m_defaults->synchronize();
    fadeOutOver(FadeSeconds);
    m_movedFrame = QRectF();
    m_iconView->resetView(); // no filter, modifier or spectrum survives to the next showing
}

void HVWindow::raisePanel()
{
    raise();
}

void HVWindow::lowerPanel()
{
    // The panel goes back to the normal level; nothing to undo on a desktop without levels.
}

void HVWindow::keyPressEvent(QKeyEvent* event)
{
    // With the focus on the view, the view has had the key already and passed it on.
    if (!m_iconView->hasFocus() && m_iconView->handleKeyDown(event))
        return;
    const bool command = event->modifiers() & Qt::ControlModifier;
    if (event->key() == Qt::Key_Escape ||
        (command && (event->key() == Qt::Key_W || event->key() == Qt::Key_Period))) {
        emit closeRequested();
        return;
    }
    QWidget::keyPressEvent(event);
}

void HVWindow::keyReleaseEvent(QKeyEvent* event)
{
    if (!m_iconView->hasFocus())
        m_iconView->handleKeyUp(event);
    QWidget::keyReleaseEvent(event);
}

void HVWindow::mousePressEvent(QMouseEvent* event)
{
    // The panel moves by its background.
    if (event->button() == Qt::LeftButton && windowHandle()) {
        windowHandle()->startSystemMove();
        return;
    }
    QWidget::mousePressEvent(event);
}
