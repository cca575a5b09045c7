// What the desktop does for a record: launching, window control, revealing, handing to the
// remover and asking about documents. The platform layer implements it; the core only calls it.
#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QUrl>

#include <optional>

class HVApp;

class AppActions
{
public:
    virtual ~AppActions() = default;

    // Launches with the items (absent: no pasteboard, empty: a pasteboard without files).
    virtual bool launch(HVApp& app, const std::optional<QList<QUrl>>& items) = 0;
    virtual bool pid(const HVApp& app, qint64* pid) const = 0;
    virtual bool isVisible(const HVApp& app) const = 0;
    virtual void show(const HVApp& app) = 0;
    virtual void hide(const HVApp& app) = 0;
    virtual bool activate(const HVApp& app) = 0;
    virtual void quit(const HVApp& app) = 0;
    virtual void revealInFinder(const HVApp& app) = 0;
    virtual bool sendForDeletion(const HVApp& app, const QString& removerIdentifier) = 0;
    virtual bool canAcceptURL(const HVApp& app, const QUrl& item) const = 0;
    virtual bool prefersURL(const HVApp& app, const QUrl& item) const = 0;

    // Whether show, hide and the windows' order can be asked of other applications' windows
    // (not on Wayland, which gives no client the windows of others): menus leave them out if not.
    virtual bool canControlWindows() const { return true; }
    // Whether an application of that desktop ID ("org.gnome.Software.desktop") is installed.
    virtual bool isApplicationInstalled(const QString& desktopId) const
    {
        Q_UNUSED(desktopId);
        return false;
    }
    // The entry's extra actions ("New Window"...): identifier and localised name, in its order.
    virtual QList<QPair<QString, QString>> entryActions(const HVApp& app) const
    {
        Q_UNUSED(app);
        return {};
    }
    virtual bool launchEntryAction(const HVApp& app, const QString& action)
    {
        Q_UNUSED(app);
        Q_UNUSED(action);
        return false;
    }
};
