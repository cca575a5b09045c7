// An icon view over a small real catalogue in private XDG folders. Apps are named by their
// entry files ("/apps/Safari.desktop" is "Safari"); the desktop actions are recorded instead of
// carried out. Also the helpers to send real events through the view.
#pragma once

#include "support/testenvironment.h"

#include "browser/hviconview.h"
#include "catalogue/hvappmanager.h"
#include "catalogue/listfilestore.h"
#include "common/hvnotificationcenter.h"
#include "common/hvuserdefaults.h"
#include "common/notificationnames.h"

#include <QKeyEvent>
#include <QMutex>
#include <QThread>
#include <QtTest>

#include <memory>

class RecordingActions : public AppActions
{
public:
    bool launch(HVApp& app, const std::optional<QList<QUrl>>&) override
    {
        QMutexLocker lock(&mutex);
        launched.append(app.name());
        launchedOnMainThread = QThread::currentThread() == qApp->thread();
        return true;
    }
    QStringList launches()
    {
        QMutexLocker lock(&mutex);
        return launched;
    }
    bool pid(const HVApp&, qint64*) const override { return false; }
    bool isVisible(const HVApp&) const override { return true; }
    void show(const HVApp&) override {}
    void hide(const HVApp&) override {}
    bool activate(const HVApp&) override { return true; }
    void quit(const HVApp&) override {}
    void revealInFinder(const HVApp& app) override { revealed.append(app.name()); }
    bool sendForDeletion(const HVApp&, const QString&) override { return false; }
    bool canAcceptURL(const HVApp&, const QUrl&) const override { return false; }
    bool prefersURL(const HVApp&, const QUrl&) const override { return false; }

    QMutex mutex;
    QStringList launched;
    bool launchedOnMainThread = true;
    QStringList revealed;
};

// Counts the notifications of one name and keeps the last one.
class NotificationSpy : public QObject
{
    Q_OBJECT
public:
    explicit NotificationSpy(const QString& name)
    {
        HVNotificationCenter::defaultCenter()->addObserver(this, "received", name);
    }
    Q_INVOKABLE void received(const HVNotification& notification)
    {
        ++count;
        last = notification;
    }
    int count = 0;
    HVNotification last;
};

// Unites the areas of the paint events the view receives.
class PaintSpy : public QObject
{
public:
    explicit PaintSpy(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion painted;
};

class IconViewFixture
{
public:
    // The list most tests show: a bunch of three apps and one of two.
    static inline const QList<QStringList> FiveApps{{"Alpha", "Beta", "Gamma"}, {"Delta", "Epsilon"}};

    // Bunches of app names; `excluded` and `favourites` name some of them.
    explicit IconViewFixture(const QList<QStringList>& bunches = FiveApps, const QStringList& excluded = {},
                             const QList<QStringList>& favourites = {})
    {
        write(HVListFileNames::AllApplications, bunches);
        write(HVListFileNames::ExcludedApplications, {excluded}, true);
        if (!favourites.isEmpty())
            write(HVListFileNames::UserApplications, favourites);
        manager->readAllAppsFromDisk();
        manager->readExcludedApps1DFromDisk();
        manager->readUserAppsFromDisk();
        manager->rebuildDependentApps();
        for (const HVAppRef& record : manager->everythingSet()) {
            record->findLetters();
            record->setPathIsValid(true);
        }
        view = std::make_unique<HVIconView>(manager.get(), defaults.get());
        view->setMaxIconViewSize(QSizeF(800, 600));
    }

    static QString path(const QString& name) { return "/apps/" + name + ".desktop"; }
    HVAppRef app(const QString& name) { return manager->appForPath(path(name)); }

    void showGroup(int group)
    {
        view->setGroupToShow(group);
        view->show();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
    }
    QPoint centreOf(const QString& name) { return view->rectOfApp(app(name)).center().toPoint(); }
    QStringList filtered() const
    {
        QStringList names;
        for (const HVAppRef& record : view->keyFilteredApps1D())
            names.append(record->name());
        return names;
    }
    // Sends a key press (Ctrl and the like in `modifiers`); true when the view took it.
    bool key(Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}, bool repeat = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text, repeat);
        QApplication::sendEvent(view.get(), &event);
        return event.isAccepted();
    }
    void type(const QString& letters)
    {
        for (QChar letter : letters)
            key(Qt::Key(letter.toUpper().unicode()), letter);
    }
    // A wheel event of whole lines (one notch is one line), time-stamped in milliseconds.
    void wheel(QPointF lines, quint64 timestamp = 0)
    {
        const QPoint angle = (lines * 120).toPoint();
        QWheelEvent event(QPointF(20, 20), view->mapToGlobal(QPointF(20, 20)), QPoint(), angle, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        event.setTimestamp(timestamp);
        QApplication::sendEvent(view.get(), &event);
    }
    void modifiers(Qt::KeyboardModifiers held)
    {
        HVNotificationCenter::defaultCenter()->postNotificationName(HVNotificationNames::EventFlagsChanged,
                                                                    {}, {{"event", int(held.toInt())}});
    }

    TestEnvironment env;
    std::unique_ptr<HVUserDefaults> defaults =
        std::make_unique<HVUserDefaults>(env.configHome() + "/Nimbo/Nimbo.conf");
    std::shared_ptr<RecordingActions> actions = std::make_shared<RecordingActions>();
    std::unique_ptr<HVAppManager> manager = std::make_unique<HVAppManager>(defaults.get(), nullptr, actions);
    std::unique_ptr<HVIconView> view;

    // Writes a list file: the bunches given, or with `flat` their names as one list.
    static void write(const QString& fileName, const QList<QStringList>& bunches, bool flat = false)
    {
        QVariantList array;
        for (const QStringList& bunch : bunches) {
            QVariantList paths;
            for (const QString& name : bunch)
                paths.append(path(name));
            array.append(flat ? paths : QVariantList{QVariant(paths)});
        }
        ListFileStore::writeArray(array, ListFileStore::userFolder() + "/" + fileName);
    }
};
