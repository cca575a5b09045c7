// The menu a right click on the icon view opens: the actions that apply to the app under the
// pointer in the group shown, always in the same order, and the entry's own extra actions
// ("New Window"...) at the end. On an empty cell it holds one inert item.
#pragma once

#include "catalogue/hvapp.h"

class HVIconView;
class QMenu;
class QWidget;

namespace HVIconContextMenu {
// A new menu titled "Contextual Menu", owned by `parent`, for `app` (null: an empty cell).
QMenu* contextualMenuForApp(HVIconView* view, const HVAppRef& app, QWidget* parent);
} // namespace HVIconContextMenu
