// What a bug report needs to know about the desktop Nimbo runs on.
#pragma once

#include <QString>

namespace DesktopFacts {
// XDG_CURRENT_DESKTOP as the session set it ("GNOME", "ubuntu:GNOME", "KDE"), or empty.
QString currentDesktop();
// The window system Nimbo talks to: "x11" (also under XWayland), "wayland", or the toolkit's
// own name for any other ("offscreen").
QString windowSystem();
} // namespace DesktopFacts
