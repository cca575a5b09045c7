// nimbo: the launcher. A second `nimbo` hands "reopen" to the running one and exits.
#include "shell/hvcontroller.h"
#include "shell/hvtranslations.h"

#include "platform/nimbobus.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Nimbo"));
    QApplication::setDesktopFileName(QStringLiteral("com.halvorndesign.Nimbo"));
    QApplication::setQuitOnLastWindowClosed(false);
    HVTranslations::install(app, QLocale());

    QString error;
    if (NimboBus::call(QStringLiteral("Reopen"), &error))
        return 0; // the running Nimbo shows itself

    HVController controller;
    QObject::connect(&controller, &HVController::quitRequested, &app, &QApplication::quit,
                     Qt::QueuedConnection);
    if (!controller.registerBusService())
        qWarning("Nimbo could not take its name on the session bus; nimboctl cannot reach this instance");
    controller.awakeFromNib();
    controller.applicationWillFinishLaunching();
    QTimer::singleShot(0, &controller, [&controller] { controller.applicationDidFinishLaunching(); });
    return app.exec();
}
