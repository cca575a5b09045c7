// The marks between and beside the bunches of a grouped icon grid, in the view's top-left
// coordinates: a thin line through the middle of every gap between two bunches, the insertion
// lines of the gap a favourite would be dropped into, and the triangle in the outer margin
// beside a bunch that points into it.
#pragma once

#include "layout/coords.h"

#include <QLineF>
#include <QList>
#include <QPolygonF>

class HVIconLayout;

namespace HVBunchSeparators {
// The lines to draw for a grouped layout (none for a flat one). `insertionSpacer` is the gap
// under the pointer while a favourite is moved, or Coords::None.
QList<QLineF> linesForLayout(const HVIconLayout& layout, quint64 insertionSpacer);

// The margin mark while a favourite is moved: the selection is in the outer margin beside a
// bunch (its bunch and margin fields are set). Only the margins across the bunches count (left
// and right of stacked bunches, top and bottom of bunches side by side); otherwise empty.
QPolygonF marginMark(const HVIconLayout& layout, const Coords& selected);
} // namespace HVBunchSeparators
