// The icon actions the contextual menu offers: favourites, window control, the app remover, the
// entry's own actions, and the poof that sees an icon out of its group.
#include "hviconcontextmenu.h"
#include "hviconview.h"
#include "hvpoofeffect.h"

#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "common/hvuserdefaults.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>

void HVIconView::contextualMenuForEvent(const QPoint& globalPosition)
{
    QMenu* menu = HVIconContextMenu::contextualMenuForApp(this, appAtCoords(m_selectedCoords), this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(globalPosition);
}

void HVIconView::addSelectedAppToUser(const HVAppRef& app)
{
    if (app && m_manager)
        m_manager->moveApp(app, HVAppGroupUser, 0, HVIndexPastEnd);
}

void HVIconView::addSelectedAppToUserNewGroup(const HVAppRef& app)
{
    if (app && m_manager)
        m_manager->moveApp(app, HVAppGroupUser, HVIndexPastEnd, 0);
}

void HVIconView::showSelectedApp(const HVAppRef& app)
{
    if (app)
        app->show();
}

void HVIconView::hideSelectedApp(const HVAppRef& app)
{
    if (app)
        app->hide();
}

void HVIconView::quitSelectedApp(const HVAppRef& app)
{
    if (app && m_manager)
        m_manager->quitApp(app);
}

void HVIconView::sendAppForDeletion(const HVAppRef& app)
{
    if (!app)
        return;
    const QString name = m_defaults->stringForKey(QStringLiteral("appRemoverName"));
    const QString identifier = m_defaults->stringForKey(QStringLiteral("appRemoverBundleIdentifier"));
    if (!app->isApplicationInstalled(identifier)) {
        emit alertRequested(tr("Cannot locate the app remover called \"%1\".").arg(name),
                            tr("Please open %1's preferences and choose a different app remover.")
                                .arg(QCoreApplication::applicationName()));
        return;
    }
    if (!app->sendForDeletionWithAppBundleIdentifier(identifier))
        emit alertRequested(
            tr("Sending \"%1\" to the app remover \"%2\" was not successful.").arg(app->name(), name),
            QString());
}

void HVIconView::launchEntryAction(const HVAppRef& app, const QString& action)
{
    if (!app || !app->launchEntryAction(action))
        return;
    emit appLaunchRequested(app);
    if (QWidget* panel = window(); panel && panel != this)
        QMetaObject::invokeMethod(panel, "hide");
}

void HVIconView::showPoofForEvent(const QEvent* event)
{
    if (!event)
        return;
    QPoint at;
    const auto* mouse = dynamic_cast<const QMouseEvent*>(event);
    if (mouse && mouse->type() == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton)
        at = mouse->globalPosition().toPoint();
    else if (m_selectedCoords.hasCell())
        at = mapToGlobal(rectOfCoords(m_selectedCoords).center().toPoint());
    else
        return;
    HVPoofEffect::showAt(at);
}
