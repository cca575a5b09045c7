// The screen the panel opens on. With several monitors it opens where the user is looking: on
// the screen holding the pointer ("openOnPointerScreen", on by default); with that off, on the
// main screen as it always did.
#pragma once

class HVUserDefaults;
class QScreen;
class QWidget;

namespace HVPanelScreen {
QScreen* screenToOpenOn(const HVUserDefaults& defaults);
// Moves a hidden or fading window, centred, onto `screen`; nothing when it is there already.
// Answers whether it moved.
bool moveOnto(QWidget* window, QScreen* screen);
} // namespace HVPanelScreen
