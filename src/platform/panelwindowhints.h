// What the desktop needs to know about the panel: it shows on every workspace, and it has a
// taskbar entry only when the user wants one.
#pragma once

class QWidget;

namespace PanelWindowHints {
// Call after the window is created (and again after each showing; window managers may reset it).
void setOnAllWorkspaces(QWidget* window);
void setSkipTaskbar(QWidget* window, bool skip);
// Asks the window manager to give the window the focus (a _NET_ACTIVE_WINDOW request).
void requestActivation(QWidget* window);
} // namespace PanelWindowHints
