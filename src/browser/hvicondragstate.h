// What a drag over the icon view changes in its drawing: during a favourite move the moved icon
// shows faded at its old place and the drop spot is marked; during a file drop only the apps
// that can open the files stay opaque, and the one under the pointer is highlighted.
#pragma once

#include "catalogue/hvapp.h"

#include <QSet>

struct HVIconDragState
{
    bool dragMoveInProgress = false;
    bool dragDropInProgress = false;
    HVAppRef movedApp;
    QSet<HVAppRef> droppableApps;
};
