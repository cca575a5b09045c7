// What the benchmarks of the panel on a real X server share: a private XDG tree of 1,000
// applications naming real Papirus icons, a watch for the panel painted, an event loop run
// until a condition holds, and running inside tests/with-desktop when there is no display.
#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <unistd.h>

namespace panelbench {
constexpr int AppCount = 1000;

inline double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values[values.size() / 2];
}

// A private XDG tree: 1,000 entries under data/applications, each naming a different Papirus
// application icon; the system folders hold only the icon themes and the MIME database.
inline QProcessEnvironment writeTree(const QString& root)
{
    const QString apps = root + "/data/applications";
    QDir().mkpath(apps);
    QDir().mkpath(root + "/system");
    QFile::link("/usr/share/icons", root + "/system/icons");
    QFile::link("/usr/share/mime", root + "/system/mime");
    const QStringList icons =
        QDir("/usr/share/icons/Papirus/64x64/apps").entryList({"*.svg"}, QDir::Files, QDir::Name);
    for (int i = 0; i < AppCount; ++i) {
        const QString icon =
            icons.isEmpty() ? QString("xterm") : QFileInfo(icons[i % icons.size()]).completeBaseName();
        QFile file(QString("%1/bench%2.desktop").arg(apps).arg(i, 4, 10, QChar('0')));
        if (file.open(QIODevice::WriteOnly))
            file.write(QString("[Desktop Entry]\nType=Application\nName=%1 %2\nExec=true\nIcon=%1\n")
                           .arg(icon)
                           .arg(i)
                           .toUtf8());
    }
    // Papirus is the chosen icon theme, for Nimbo through GTK's settings and for rofi by flag.
    QDir().mkpath(root + "/config/gtk-3.0");
    QFile settings(root + "/config/gtk-3.0/settings.ini");
    if (settings.open(QIODevice::WriteOnly))
        settings.write("[Settings]\ngtk-icon-theme-name=Papirus\n");
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("XDG_DATA_HOME", root + "/data");
    env.insert("XDG_CONFIG_HOME", root + "/config");
    env.insert("XDG_CACHE_HOME", root + "/cache");
    env.insert("XDG_DATA_DIRS", root + "/system");
    env.insert("HOME", root);
    return env;
}

// Sets the tree's folders for this process; before the application exists, as the icon
// theme's search path is read from them then.
inline void useTree(const QProcessEnvironment& env)
{
    for (const char* key : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_DIRS"})
        qputenv(key, env.value(QLatin1String(key)).toLocal8Bit());
}

// Notes when the watched window has been exposed and its contents painted (freshly, or from
// the backing store kept since the last showing) and flushed to the screen.
class PaintWatch : public QObject
{
public:
    QElapsedTimer clock;
    qint64 paintedAtNs = -1;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Expose || paintedAtNs >= 0)
            return false;
        watched->event(event);
        if (static_cast<QWindow*>(watched)->isExposed())
            paintedAtNs = clock.nsecsElapsed();
        return true;
    }
};

// Runs the event loop (a real one, as the app's, not bare processing of events, inside which
// the panel's fades would never be driven) until `done` or the time is up.
inline void waitFor(const std::function<bool()>& done, int timeoutMs)
{
    QEventLoop loop;
    QElapsedTimer timer;
    timer.start();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (done() || timer.elapsed() >= timeoutMs)
            loop.quit();
    });
    poll.start(1);
    loop.exec();
}

// Without an X server, runs this program again inside tests/with-desktop (and does not return).
inline void runOnADesktop(int argc, char** argv)
{
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        return;
    QList<char*> args{const_cast<char*>(NIMBO_SOURCE_DIR "/tests/with-desktop"), argv[0]};
    for (int i = 1; i < argc; ++i)
        args.append(argv[i]);
    args.append(nullptr);
    execv(args[0], args.data());
    std::perror("with-desktop");
    std::exit(1);
}
} // namespace panelbench
