// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gio.h>

#include "filemanagerreveal.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QThread>
#include <QUrl>

namespace {
constexpr int CallTimeoutMs = 5000;
} // namespace

namespace FileManagerReveal {
bool openFolder(const QString& folder)
{
    const QByteArray uri = QUrl::fromLocalFile(folder).toEncoded();
    GError* error = nullptr;
    const bool opened = g_app_info_launch_default_for_uri(uri.constData(), nullptr, &error);
    if (!opened)
        qWarning("Cannot open the folder %s: %s", uri.constData(), error ? error->message : "no handler");
    g_clear_error(&error);
    return opened;
}

void reveal(const QString& path)
{
    QCoreApplication* app = QCoreApplication::instance();
    if (app && QThread::currentThread() != app->thread()) {
        // The answer is read by the main thread's event loop.
        QMetaObject::invokeMethod(
            app, [path] { reveal(path); }, Qt::QueuedConnection);
        return;
    }
    const QString folder = QFileInfo(path).absolutePath();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!app || !bus.isConnected()) {
        openFolder(folder);
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded())} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, CallTimeoutMs), app);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, app, [watcher, folder] {
        if (watcher->isError())
            openFolder(folder);
        watcher->deleteLater();
    });
}
} // namespace FileManagerReveal
