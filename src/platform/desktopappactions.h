// What the desktop does for a record, on Linux: launching through GIO (activating the running
// application instead when no files are given and its window can be raised), window control on
// X11, quitting, revealing through the file manager, handing over to the software centre, and
// documents by MIME type.
#pragma once

#include "catalogue/appactions.h"
#include "catalogue/hvapp.h"
#include "giolauncher.h"
#include "launchedprocesses.h"
#include "mimeacceptance.h"
#include "runningappcontrol.h"

#include <functional>
#include <memory>

class DesktopAppActions : public AppActions
{
public:
    // `running` reaches running applications (their windows on X11, their units on Wayland);
    // without it, or without windows to reach, window control does nothing. It hears of every
    // process launched. `environment` is the session's environment as Nimbo found it (see
    // GioLauncher).
    DesktopAppActions(std::shared_ptr<RunningAppControl> running, std::shared_ptr<LaunchedProcesses> launched,
                      QStringList environment);

    // How a failed launch finds the catalogue's record to announce as missing (called on the
    // main thread); without it a new record of the same path is announced.
    void setRecordLookup(std::function<HVAppRef(const QString& path)> lookup)
    {
        m_lookup = std::move(lookup);
    }
    // What the shell does when a launch finds its application gone, before the catalogue hears
    // of it: it brings its panel back (called on the main thread).
    void setOpenUntitledFile(std::function<void()> openUntitledFile)
    {
        m_openUntitledFile = std::move(openUntitledFile);
    }

    bool launch(HVApp& app, const std::optional<QList<QUrl>>& items) override;
    bool pid(const HVApp& app, qint64* pid) const override;
    bool isVisible(const HVApp& app) const override;
    void show(const HVApp& app) override;
    void hide(const HVApp& app) override;
    bool activate(const HVApp& app) override;
    void quit(const HVApp& app) override;
    void revealInFinder(const HVApp& app) override;
    bool sendForDeletion(const HVApp& app, const QString& removerIdentifier) override;
    bool canAcceptURL(const HVApp& app, const QUrl& item) const override;
    bool prefersURL(const HVApp& app, const QUrl& item) const override;
    bool canControlWindows() const override;
    bool isApplicationInstalled(const QString& desktopId) const override;
    QList<QPair<QString, QString>> entryActions(const HVApp& app) const override;
    bool launchEntryAction(const HVApp& app, const QString& action) override;

    // The appstream: URI the software centre is given for an entry.
    static QByteArray appstreamUriForEntry(const QString& entryPath);

private:
    void announceMissing(const QString& path);
    void terminateProcessesOf(const QString& entryPath);

    std::shared_ptr<RunningAppControl> m_running;
    std::shared_ptr<LaunchedProcesses> m_launched;
    GioLauncher m_launcher;
    MimeAcceptance m_mime;
    std::function<HVAppRef(const QString&)> m_lookup;
    std::function<void()> m_openUntitledFile;
};
