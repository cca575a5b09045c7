// Drag and drop on the icon view. A favourite dragged more than 2 points moves within the
// favourites (only inside this Nimbo); files or URLs dragged from other programs light up the
// apps that can open them, and dropping on one opens them with it. Files handed over by
// `nimbo FILE...` are offered the same way, and a click on a lit app opens them.
#pragma once

#include "hvdragpayload.h"

#include "catalogue/hvapp.h"

#include <QList>
#include <QObject>
#include <QPointF>
#include <QUrl>

#include <optional>

class HVIconView;
class QDragEnterEvent;
class QDragMoveEvent;
class QDropEvent;
class QMouseEvent;

class HVIconViewDrag : public QObject
{
    Q_OBJECT
public:
    explicit HVIconViewDrag(HVIconView* view);

    // A move with the left button held: starts a favourite move when it went far enough.
    // True when a drag ran (the press is then spent).
    bool mouseDragged(QMouseEvent* event, const QPointF& mouseDownPoint);

    void dragEntered(QDragEnterEvent* event);
    void dragMoved(QDragMoveEvent* event);
    void dropped(QDropEvent* event);
    void dragLeft();

    // Lights up the apps that open `items` until a click on one of them opens the items with it,
    // or the view is reset.
    void offerItemsToOpen(const QList<QUrl>& items);
    // A click on `app` while items are offered: a lit app opens them, any other beeps. False
    // when nothing is offered (the click is then an ordinary one).
    bool clickWhileOffering(const HVAppRef& app);
    // Forgets the drop or offer in hand without moving the panel (the view is being reset).
    void forget();

signals:
    // The panel is asked to come fully on screen while files are dragged over it, and back after.
    void slideOnscreenRequested();
    void slideBackRequested();

private:
    void startMove(const QPointF& from);
    void performMove(const HVDragPayload& payload, const QPointF& at);
    void beginFileDrop(QDropEvent* event);
    void updateDroppableApps(bool everyAppThatCanAccept);
    void reset();
    bool hasUserFocus() const;

    HVIconView* m_view;
    bool m_activeWhenDragBegan = true;
    bool m_acceptAll = false;
    bool m_offering = false;
    QList<QUrl> m_items;
};
