// Drag and drop on the icon view. A favourite dragged more than 2 points moves within the
// favourites (only inside this Nimbo); files or URLs dragged from other programs light up the
// apps that can open them, and dropping on one opens them with it.
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

    HVIconView* m_view;
    bool m_activeWhenDragBegan = true;
    bool m_acceptAll = false;
    QList<QUrl> m_items;
};
