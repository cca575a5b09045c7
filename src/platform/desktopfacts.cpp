#include "desktopfacts.h"

#include <QGuiApplication>

QString DesktopFacts::currentDesktop()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP");
}

QString DesktopFacts::windowSystem()
{
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("xcb"))
        return QStringLiteral("x11");
    if (platform.startsWith(QLatin1String("wayland")))
        return QStringLiteral("wayland");
    return platform;
}
