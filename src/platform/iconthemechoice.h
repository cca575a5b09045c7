// Which icon theme is the user's. In order: the environment variable NIMBO_ICON_THEME; a theme
// the user chose for the desktop (GNOME's org.gnome.desktop.interface icon-theme when set,
// GTK's settings.ini gtk-icon-theme-name, KDE's kdeglobals [Icons] Theme); the desktop's
// default (GNOME's schema default, "Adwaita" on Debian); and last "hicolor". A headless machine
// with no desktop settings therefore uses the GNOME default when its schema is installed.
#pragma once

#include <QString>

namespace IconThemeChoice {

QString currentThemeName();

// The steps, exposed for tests: a theme named in an ini-style file under `configHome`.
QString gtkSettingsTheme(const QString& configHome);
QString kdeGlobalsTheme(const QString& configHome);

} // namespace IconThemeChoice
