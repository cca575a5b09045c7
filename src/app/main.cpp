// nimbo: the launcher. A second `nimbo` hands "reopen" to the running one and exits;
// `nimbo --preferences` opens the preferences window, in the running Nimbo when there is one.
#include "shell/hvcontroller.h"
#include "shell/hvtranslations.h"

#include "platform/nimbobus.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char* argv[])
{
    // On a Wayland desktop Nimbo is a Wayland client (falling back to X11 when it cannot be).
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "wayland;xcb");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Nimbo"));
    QApplication::setDesktopFileName(QStringLiteral("com.halvorndesign.Nimbo"));
    QApplication::setQuitOnLastWindowClosed(false);
    HVTranslations::install(app, QLocale());

    const bool preferences = app.arguments().contains(QStringLiteral("--preferences"));
    QString error;
    if (NimboBus::call(preferences ? QStringLiteral("Preferences") : QStringLiteral("Reopen"), &error))
        return 0; // the running Nimbo shows itself

    HVController controller;
    QObject::connect(&controller, &HVController::quitRequested, &app, &QApplication::quit,
                     Qt::QueuedConnection);
    if (!controller.registerBusService())
        qWarning("Nimbo could not take its name on the session bus; nimboctl cannot reach this instance");
    controller.awakeFromNib();
    controller.applicationWillFinishLaunching();
    QTimer::singleShot(0, &controller, [&controller, preferences] {
        controller.applicationDidFinishLaunching();
        if (preferences)
            controller.openPrefs();
    });
    return app.exec();
}
