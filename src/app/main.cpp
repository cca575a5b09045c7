// nimbo: the launcher. A second `nimbo` hands "reopen" to the running one and exits;
// `nimbo --preferences` opens the preferences window, in the running Nimbo when there is one;
// `nimbo FILE...` hands the files (or URLs) over to be opened with an app picked in the panel.
#include "shell/hvcontroller.h"
#include "shell/hvtranslations.h"

#include "platform/nimbobus.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>
#include <QUrl>

namespace {
// The files and URLs named on the command line, as encoded URLs holding the very bytes given:
// a file name need not be UTF-8.
QStringList itemsToOpen(int argc, char** argv)
{
    QStringList uris;
    bool options = true;
    for (int i = 1; i < argc; ++i) {
        const QByteArray argument(argv[i]);
        if (options && argument == "--") {
            options = false;
        } else if (options && argument.startsWith('-')) {
            continue;
        } else if (!argument.startsWith('/') && argument.contains(":/")) {
            uris.append(QUrl::fromUserInput(QString::fromUtf8(argument)).toString(QUrl::FullyEncoded));
        } else if (!argument.isEmpty()) {
            const QByteArray path =
                argument.startsWith('/') ? argument : QFile::encodeName(QDir::currentPath()) + '/' + argument;
            uris.append(QStringLiteral("file://") + QString::fromLatin1(path.toPercentEncoding("/")));
        }
    }
    return uris;
}
} // namespace

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
    const QStringList items = itemsToOpen(argc, argv);
    QString error;
    if (!items.isEmpty()) {
        if (NimboBus::call(QStringLiteral("OpenFiles"), {items}, &error))
            return 0; // the running Nimbo offers them
    } else if (NimboBus::call(preferences ? QStringLiteral("Preferences") : QStringLiteral("Reopen"),
                              &error)) {
        return 0; // the running Nimbo shows itself
    }

    HVController controller;
    QObject::connect(&controller, &HVController::quitRequested, &app, &QApplication::quit,
                     Qt::QueuedConnection);
    if (!controller.registerBusService())
        qWarning("Nimbo could not take its name on the session bus; nimboctl cannot reach this instance");
    controller.awakeFromNib();
    controller.applicationWillFinishLaunching();
    QTimer::singleShot(0, &controller, [&controller, preferences, items] {
        controller.applicationDidFinishLaunching();
        if (preferences)
            controller.openPrefs();
        if (!items.isEmpty())
            controller.applicationOpenFiles(items);
    });
    return app.exec();
}
