#include "hviconcontextmenu.h"

#include "hviconview.h"

#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"

#include <QEvent>
#include <QMenu>

namespace {
// Actions chosen from the menu play the poof at the selected cell, as for any event that is not
// a click.
const QEvent MenuEvent(QEvent::ContextMenu);
} // namespace

QMenu* HVIconContextMenu::contextualMenuForApp(HVIconView* view, const HVAppRef& app, QWidget* parent)
{
    auto* menu = new QMenu(parent);
    menu->setTitle(QStringLiteral("Contextual Menu"));
    menu->setObjectName(QStringLiteral("ContextualMenu"));
    if (!app) {
        // Kept deliberately: the item changes nothing.
        menu->addAction(QObject::tr("Hide Group"), view, &HVIconView::updateCursor);
        return menu;
    }
    const int group = view->groupShown();
    HVAppManager* manager = view->manager();
    if (isUserGroup(group)) {
        menu->addAction(QObject::tr("Move to New Group"), view,
                        [view, app] { view->addSelectedAppToUserNewGroup(app); });
        menu->addAction(QObject::tr("Remove Favorite"), view,
                        [view, app] { view->removeSelectedAppFromUser(app); });
    } else {
        if (manager && manager->excludedApps1D().contains(app))
            menu->addAction(QObject::tr("Include"), view,
                            [view, app] { view->includeSelectedApp(app, &MenuEvent); });
        else
            menu->addAction(QObject::tr("Exclude"), view,
                            [view, app] { view->excludeSelectedApp(app, &MenuEvent); });
        if (manager && !manager->userApps1D().contains(app)) {
            menu->addSeparator();
            menu->addAction(QObject::tr("Add Favorite"), view,
                            [view, app] { view->addSelectedAppToUser(app); });
            menu->addAction(QObject::tr("Add Favorite in New Group"), view,
                            [view, app] { view->addSelectedAppToUserNewGroup(app); });
        }
    }
    if (!menu->isEmpty())
        menu->addSeparator();
    menu->addAction(QObject::tr("Show in File Manager"), view, [view, app] { view->showAppInFinder(app); });

    const QString remover = view->defaults()->stringForKey(QStringLiteral("appRemoverName"));
    if (!remover.isEmpty() && group != HVAppGroupRunning) {
        menu->addSeparator();
        menu->addAction(QObject::tr("Send to %1").arg(remover), view,
                        [view, app] { view->sendAppForDeletion(app); });
    }
    if (manager && manager->runningApps().contains(app)) {
        menu->addSeparator();
        // Where the windows of others are out of reach (Wayland), only quitting is offered.
        if (app->canControlWindows() && app->isVisible())
            menu->addAction(QObject::tr("Hide"), view, [view, app] { view->hideSelectedApp(app); });
        else if (app->canControlWindows())
            menu->addAction(QObject::tr("Show"), view, [view, app] { view->showSelectedApp(app); });
        menu->addAction(QObject::tr("Quit"), view, [view, app] { view->quitSelectedApp(app); });
    }

    // Beyond the panel's own items: what the entry itself offers.
    const QList<QPair<QString, QString>> extra = app->entryActions();
    if (!extra.isEmpty())
        menu->addSeparator();
    for (const auto& [id, title] : extra) {
        menu->addAction(title, view, [view, app, id = id] { view->launchEntryAction(app, id); });
    }
    return menu;
}
