// Launches a desktop entry through GIO with a list of URIs, which GIO hands to the program as
// separate arguments according to the entry's Exec field codes: never through a shell. Safe
// to call from any thread; launching from the panel runs on a worker thread.
//
// The launched program gets the environment Nimbo was started with: variables set or changed
// in this process since then are put back as they were.
#pragma once

#include "launchedprocesses.h"

#include <QByteArrayList>
#include <QPair>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

struct LaunchOutcome
{
    // Entry or program gone: the launch reports it as the file-not-found status.
    static constexpr long Missing = -43;
    // The entry cannot be launched as it stands (not an application, Exec empty or malformed).
    static constexpr long Unusable = -1;

    long status = 0; // 0 on success, else Missing, Unusable or GIO's error code
    const char* call = "";
    bool ok() const { return status == 0; }
};

class GioLauncher
{
public:
    // `environment` is the session's environment as found ("NAME=value" each).
    GioLauncher(std::shared_ptr<LaunchedProcesses> launched, QStringList environment);

    // Called with each process started, on the launching thread, as soon as it runs.
    using LaunchedHandler = std::function<void(qint64 pid, const QString& entryPath)>;
    void setLaunchedHandler(LaunchedHandler handler) { m_launchedHandler = std::move(handler); }

    LaunchOutcome launch(const QString& entryPath, const QByteArrayList& uris) const;
    // The entry's [Desktop Action ...] groups it lists in Actions: identifier and localised name.
    static QList<QPair<QString, QString>> actionsOfEntry(const QString& entryPath);
    LaunchOutcome launchAction(const QString& entryPath, const QString& action) const;

    // Why an entry GIO would not load cannot launch: its file or program is gone, or it is unusable.
    static long problemWithEntry(const QString& entryPath);

private:
    std::shared_ptr<LaunchedProcesses> m_launched;
    QStringList m_environment;
    LaunchedHandler m_launchedHandler;
};
