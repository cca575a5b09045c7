#include "hviconviewdrag.h"

#include "dropstack.h"
#include "hviconview.h"

#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

#include <system_error>
#include <thread>

namespace {
constexpr double DragThreshold = 2.0;

bool carriesPayload(const QMimeData* data)
{
    return data && data->hasFormat(QString::fromLatin1(HVDragPayload::MimeType));
}
} // namespace

HVIconViewDrag::HVIconViewDrag(HVIconView* view) : QObject(view), m_view(view) {}

bool HVIconViewDrag::mouseDragged(QMouseEvent* event, const QPointF& mouseDownPoint)
{
    const int group = m_view->groupShown();
    if (mouseDownPoint.isNull() || group == HVAppGroupRunning || group == HVAppGroupMissing)
        return false;
    const QPointF moved = event->position() - mouseDownPoint;
    if (std::abs(moved.x()) <= DragThreshold && std::abs(moved.y()) <= DragThreshold)
        return false;
    if (!m_view->appAtPoint(mouseDownPoint))
        return false;
    startMove(mouseDownPoint);
    return true;
}

void HVIconViewDrag::startMove(const QPointF& from)
{
    const Coords coords = m_view->coordsOfPoint(from);
    const HVAppRef app = m_view->appAtCoords(coords);
    const appInfo& cell = m_view->iconLayout().lookupTable().at(int(coords.row), int(coords.col));
    HVDragPayload payload{app->path(), quint64(m_view->groupShown()), cell.bunch, cell.index};

    // The icon at half strength, the size of the icon rectangle (the cell less its padding).
    const QRectF cellRect = m_view->rectOfCoords(coords);
    const double padding = m_view->iconLayout().cellPaddingForIconWidth(m_view->iconLayout().iconWidth());
    const QRectF iconRect = cellRect.adjusted(padding, padding, -padding, -padding);
    const qreal ratio = m_view->devicePixelRatioF();
    QPixmap image((iconRect.size() * ratio).toSize());
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setOpacity(0.5);
        painter.drawImage(QRectF(QPointF(), iconRect.size()), app->icon());
    }

    HVIconDragState state;
    state.dragMoveInProgress = true;
    state.movedApp = app;
    m_view->setDragState(state);

    auto* data = new QMimeData;
    data->setData(QString::fromLatin1(HVDragPayload::MimeType), payload.encoded());
    auto* drag = new QDrag(m_view);
    drag->setMimeData(data);
    drag->setPixmap(image);
    drag->setHotSpot((from - iconRect.topLeft()).toPoint());
    drag->exec(Qt::MoveAction, Qt::MoveAction);
    reset();
}

bool HVIconViewDrag::hasUserFocus() const
{
    // The panel answers whether a sheet covers the icons; a view on its own always has the focus.
    bool focus = true;
    QWidget* panel = m_view->window();
    if (panel != m_view && panel->metaObject()->indexOfMethod("iconViewHasUserFocus()") >= 0)
        QMetaObject::invokeMethod(panel, "iconViewHasUserFocus", Qt::DirectConnection,
                                  Q_RETURN_ARG(bool, focus));
    return focus;
}

void HVIconViewDrag::dragEntered(QDragEnterEvent* event)
{
    if (!hasUserFocus()) {
        QApplication::beep();
        m_view->setDragState(HVIconDragState());
        event->ignore();
        return;
    }
    m_activeWhenDragBegan = QApplication::activeWindow() != nullptr;
    if (!m_activeWhenDragBegan)
        m_view->activateWindow();
    m_view->selectCoords(m_view->coordsOfPoint(event->position()));
    if (carriesPayload(event->mimeData())) {
        // Only a drag this Nimbo started: payloads of other programs never land in its lists.
        if (!event->source() || event->source() != m_view) {
            qWarning("Refusing an app dragged in from another program");
            event->ignore();
            return;
        }
        event->setDropAction(Qt::MoveAction);
        event->accept();
        return;
    }
    if (event->mimeData()->hasUrls()) {
        beginFileDrop(event);
        return;
    }
    event->ignore();
}

namespace {
QList<QUrl> usableItems(QList<QUrl> items)
{
    items.removeIf([](const QUrl& url) { return !url.isValid() || url.isEmpty(); });
    if (items.size() > 1000)
        qInfo("%lld items to open: the first decides which apps can open them", qlonglong(items.size()));
    return items;
}
} // namespace

void HVIconViewDrag::beginFileDrop(QDropEvent* event)
{
    forget();
    m_items = usableItems(event->mimeData()->urls());
    if (m_items.isEmpty()) {
        qWarning("Refusing a drop that names no usable file or URL");
        event->ignore();
        return;
    }
    DropStack::sharedDropStack().push(QVariant::fromValue(m_items));
    updateDroppableApps(HVModifierKeys::fromQt(event->modifiers()).command);
    emit slideOnscreenRequested();
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void HVIconViewDrag::updateDroppableApps(bool everyAppThatCanAccept)
{
    m_acceptAll = everyAppThatCanAccept;
    HVIconDragState state;
    state.dragDropInProgress = true;
    if (HVAppManager* manager = m_view->manager()) {
        // The first item decides, as the apps offered for the whole lot.
        const QUrl& first = m_items.constFirst();
        const HVAppBunch apps = everyAppThatCanAccept ? manager->allAppsThatCanAcceptURL(first)
                                                      : manager->allAppsThatPreferURL(first);
        for (const HVAppRef& app : apps)
            state.droppableApps.insert(app);
        if (apps.isEmpty())
            qInfo("No application opens %s", qPrintable(first.toDisplayString()));
    }
    m_view->setDragState(state);
}

void HVIconViewDrag::dragMoved(QDragMoveEvent* event)
{
    if (!hasUserFocus()) {
        m_view->setDragState(HVIconDragState());
        event->ignore();
        return;
    }
    m_view->selectCoords(m_view->coordsOfPoint(event->position()));
    const HVIconDragState& state = m_view->dragState();
    if (carriesPayload(event->mimeData()) && state.dragMoveInProgress) {
        if (isUserGroup(m_view->groupShown())) {
            event->setDropAction(Qt::MoveAction);
            event->accept();
        } else {
            event->ignore();
        }
        return;
    }
    if (state.dragDropInProgress) {
        const bool all = HVModifierKeys::fromQt(event->modifiers()).command;
        if (all != m_acceptAll)
            updateDroppableApps(all); // Ctrl pressed or let go mid-drag
        event->setDropAction(Qt::CopyAction);
        event->accept();
        return;
    }
    event->ignore();
}

void HVIconViewDrag::dropped(QDropEvent* event)
{
    event->accept();
    if (carriesPayload(event->mimeData())) {
        const auto payload =
            HVDragPayload::decoded(event->mimeData()->data(QString::fromLatin1(HVDragPayload::MimeType)));
        event->setDropAction(Qt::MoveAction);
        if (payload && event->source() == m_view)
            performMove(*payload, event->position());
        return;
    }
    const HVIconDragState state = m_view->dragState();
    const HVAppRef app = m_view->appAtPoint(event->position());
    if (state.dragDropInProgress && app && state.droppableApps.contains(app)) {
        qInfo("Opening %lld dropped item(s) with %s", qlonglong(m_items.size()), qPrintable(app->path()));
        const QList<QUrl> items = m_items;
        m_activeWhenDragBegan = true; // the launched app takes the front, not the one before
        reset();
        m_view->launchApp(app, items);
        return;
    }
    reset();
}

void HVIconViewDrag::performMove(const HVDragPayload& payload, const QPointF& at)
{
    HVAppManager* manager = m_view->manager();
    const int group = m_view->groupShown();
    if (!manager || !isUserGroup(group))
        return;
    // The lists may have been rebuilt during the drag: the record of today for that path.
    const HVAppRef app = manager->appForPath(payload.appPath);
    if (!app) {
        qWarning("The dragged app %s is no longer in the catalogue", qPrintable(payload.appPath));
        return;
    }
    const Coords coords = m_view->coordsOfPoint(at);
    const HVLookupTable& table = m_view->iconLayout().lookupTable();
    if (coords.hasCell() && table.isValidRow(int(coords.row), int(coords.col))) {
        const appInfo& cell = table.at(int(coords.row), int(coords.col));
        manager->moveApp(app, group, qint64(cell.bunch), qint64(cell.index));
    } else if (!Coords::isNone(coords.bunch)) {
        manager->moveApp(app, group, qint64(coords.bunch), coords.margin == 0 ? 0 : HVIndexPastEnd);
    } else if (!Coords::isNone(coords.spacer)) {
        manager->moveAppToNewBunch(app, group, qint64(coords.spacer));
    } else if (manager->userApps().isEmpty()) {
        manager->moveAppToNewBunch(app, group, 0);
    } else {
        qInfo("A favourite dropped outside every bunch and gap stays where it was");
        QApplication::beep();
    }
}

void HVIconViewDrag::dragLeft()
{
    m_view->selectCoords(Coords());
    if (m_view->dragState().dragDropInProgress)
        reset();
}

void HVIconViewDrag::offerItemsToOpen(const QList<QUrl>& items)
{
    forget();
    m_items = usableItems(items);
    if (m_items.isEmpty()) {
        qWarning("Nothing to open among the items handed over");
        return;
    }
    m_offering = true;
    updateDroppableApps(false);
}

bool HVIconViewDrag::clickWhileOffering(const HVAppRef& app)
{
    if (!m_offering)
        return false;
    if (!app || !m_view->dragState().droppableApps.contains(app)) {
        QApplication::beep();
        return true;
    }
    qInfo("Opening %lld item(s) handed over with %s", qlonglong(m_items.size()), qPrintable(app->path()));
    const QList<QUrl> items = m_items;
    forget();
    m_view->setDragState(HVIconDragState());
    m_view->launchApp(app, items);
    return true;
}

void HVIconViewDrag::forget()
{
    if (m_offering || m_view->dragState().dragDropInProgress)
        DropStack::sharedDropStack().free();
    m_items.clear();
    m_acceptAll = false;
    m_offering = false;
}

void HVIconViewDrag::reset()
{
    const bool fileDrop = m_view->dragState().dragDropInProgress && !m_offering;
    forget();
    m_view->setDragState(HVIconDragState());
    if (!fileDrop)
        return;
    emit slideBackRequested();
    if (!m_activeWhenDragBegan) {
        // The app that was in front before the drag comes back.
        // Where windows are out of reach (Wayland) nothing is known to have been in front, and
        // launching the latest application again would open a window rather than bring one back.
        const HVAppRef previous = m_view->manager() ? m_view->manager()->lastActiveApp() : HVAppRef();
        if (previous && previous->canControlWindows()) {
            try {
                std::thread([previous] { previous->launchWithItems(std::nullopt); }).detach();
            } catch (const std::system_error& error) {
                qWarning("Cannot re-activate %s: %s", qPrintable(previous->path()), error.what());
            }
        }
    }
    m_activeWhenDragBegan = true;
}
