// A catalogue whose icons load on the shared queue from the desktop's icon source over the real
// Debian themes, with a private cache; the source is watched (which loads started) and can be
// held shut, so that the order of the queue can be seen.
#pragma once

#include "icontestfiles.h"

#include "catalogue/iconloader.h"
#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"
#include "platform/desktopiconsource.h"
#include "support/catalogueharness.h"

#include <QMutex>
#include <QWaitCondition>
#include <QtTest>

class WatchedIconSource : public IconSource
{
public:
    explicit WatchedIconSource(DesktopIconSource::Settings settings) : m_source(std::move(settings)) {}

    LoadedIcon loadIcon(const IconRequest& request, QString* error) override
    {
        QMutexLocker locker(&m_mutex);
        m_started.append(request.path);
        m_changed.wakeAll();
        while (m_shut)
            m_opened.wait(&m_mutex);
        locker.unlock();
        return m_source.loadIcon(request, error);
    }

    void setShut(bool shut)
    {
        QMutexLocker locker(&m_mutex);
        m_shut = shut;
        m_opened.wakeAll();
    }
    // Waits (without running the main thread's events) until `count` loads have started.
    bool waitForStarted(int count)
    {
        QMutexLocker locker(&m_mutex);
        QDeadlineTimer deadline(10000);
        while (m_started.size() < count) {
            if (!m_changed.wait(&m_mutex, deadline))
                return false;
        }
        return true;
    }
    QStringList startedPaths() const
    {
        QMutexLocker locker(&m_mutex);
        return m_started;
    }
    void forget()
    {
        QMutexLocker locker(&m_mutex);
        m_started.clear();
    }

private:
    DesktopIconSource m_source;
    mutable QMutex m_mutex;
    QWaitCondition m_changed, m_opened;
    QStringList m_started;
    bool m_shut = false;
};

// Counts "N_AppIconChanged" per record, in the order they come.
class IconChangeRecorder : public QObject
{
    Q_OBJECT
public:
    IconChangeRecorder()
    {
        HVNotificationCenter::defaultCenter()->addButFirstRemoveObserver(this, "appIconChanged",
                                                                         HVNotificationNames::AppIconChanged);
    }
    ~IconChangeRecorder() override { HVNotificationCenter::defaultCenter()->removeObserver(this); }

    Q_INVOKABLE void appIconChanged(const HVNotification& notification)
    {
        records.append(notification.object.value<HVAppRef>());
    }
    int countFor(const HVAppRef& app) const { return int(records.count(app)); }

    QList<HVAppRef> records;
};

namespace IconLoadingFixture {

// The desktop's source over the test's private icon folder and the system themes, the cache in
// the test's cache folder, themes checked again at every load.
inline DesktopIconSource::Settings settings(const TestEnvironment& env, const QString& theme = "Papirus")
{
    DesktopIconSource::Settings settings;
    settings.themes = IconTestFiles::themes(env, theme);
    settings.cacheFolder = env.cacheHome() + QStringLiteral("/Nimbo/icons");
    settings.themeRecheckMs = 0;
    return settings;
}

inline std::shared_ptr<WatchedIconSource> install(const TestEnvironment& env)
{
    auto source = std::make_shared<WatchedIconSource>(settings(env));
    IconLoader::sharedIconLoader()->setIconSource(source);
    return source;
}

inline bool waitForIcons()
{
    return IconLoader::sharedIconLoader()->waitUntilIdle(20000);
}

// An entry under the test's folder naming `icon`.
inline QString entry(const TestEnvironment& env, const QString& name, const QString& icon)
{
    return env.writeFile(QStringLiteral("apps/%1.desktop").arg(name), IconTestFiles::desktopEntry(icon));
}

} // namespace IconLoadingFixture
