// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "giolauncher.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace {
struct LaunchData
{
    LaunchedProcesses* launched;
    const GioLauncher::LaunchedHandler* handler;
    QString entryPath;
};

void onLaunched(GAppLaunchContext*, GAppInfo*, GVariant* platformData, gpointer data)
{
    auto* launch = static_cast<LaunchData*>(data);
    gint32 pid = 0;
    if (!platformData || !g_variant_lookup(platformData, "pid", "i", &pid) || pid <= 0)
        return;
    if (launch->launched)
        launch->launched->record(pid, launch->entryPath);
    if (*launch->handler)
        (*launch->handler)(pid, launch->entryPath);
}

// A launch context whose environment is the one Nimbo found.
GAppLaunchContext* contextWithEnvironment(const QStringList& found)
{
    GAppLaunchContext* context = g_app_launch_context_new();
    QHash<QByteArray, QByteArray> wanted;
    for (const QString& variable : found) {
        const qsizetype equals = variable.indexOf(QLatin1Char('='));
        if (equals > 0)
            wanted.insert(variable.left(equals).toLocal8Bit(), variable.mid(equals + 1).toLocal8Bit());
    }
    gchar** current = g_get_environ();
    for (gchar** variable = current; variable && *variable; ++variable) {
        const QByteArray entry(*variable);
        const QByteArray name = entry.left(entry.indexOf('='));
        if (!wanted.contains(name))
            g_app_launch_context_unsetenv(context, name.constData());
    }
    g_strfreev(current);
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it)
        g_app_launch_context_setenv(context, it.key().constData(), it.value().constData());
    return context;
}

// Something to run: a command line, or activation over D-Bus.
bool hasCommand(GDesktopAppInfo* info)
{
    const char* command = g_app_info_get_commandline(G_APP_INFO(info));
    return (command && *command) || g_desktop_app_info_get_boolean(info, "DBusActivatable");
}

bool programExists(const QByteArray& program)
{
    gchar* found = g_find_program_in_path(program.constData());
    g_free(found);
    return found != nullptr;
}
} // namespace

GioLauncher::GioLauncher(std::shared_ptr<LaunchedProcesses> launched, QStringList environment)
    : m_launched(std::move(launched)), m_environment(std::move(environment))
{}

long GioLauncher::problemWithEntry(const QString& entryPath)
{
    if (!QFileInfo::exists(entryPath))
        return LaunchOutcome::Missing;
    GKeyFile* keyFile = g_key_file_new();
    long problem = LaunchOutcome::Unusable;
    if (g_key_file_load_from_file(keyFile, QFile::encodeName(entryPath).constData(), G_KEY_FILE_NONE,
                                  nullptr)) {
        gchar* tryExec = g_key_file_get_string(keyFile, "Desktop Entry", "TryExec", nullptr);
        gchar* exec = g_key_file_get_string(keyFile, "Desktop Entry", "Exec", nullptr);
        gchar** argv = nullptr;
        if (tryExec && *tryExec && !programExists(tryExec))
            problem = LaunchOutcome::Missing;
        else if (exec && *exec && g_shell_parse_argv(exec, nullptr, &argv, nullptr) &&
                 !programExists(argv[0]))
            problem = LaunchOutcome::Missing;
        g_strfreev(argv);
        g_free(exec);
        g_free(tryExec);
    }
    g_key_file_free(keyFile);
    return problem;
}

LaunchOutcome GioLauncher::launch(const QString& entryPath, const QByteArrayList& uris) const
{
    GDesktopAppInfo* info = g_desktop_app_info_new_from_filename(QFile::encodeName(entryPath).constData());
    if (!info)
        return {problemWithEntry(entryPath), "g_desktop_app_info_new_from_filename()"};
    // GIO loads an entry whose Exec is empty and then reports launching it as a success.
    if (!hasCommand(info)) {
        g_object_unref(info);
        return {LaunchOutcome::Unusable, "g_app_info_get_commandline()"};
    }
    GList* list = nullptr;
    for (const QByteArray& uri : uris)
        list = g_list_append(list, const_cast<char*>(uri.constData()));
    GAppLaunchContext* context = contextWithEnvironment(m_environment);
    LaunchData data{m_launched.get(), &m_launchedHandler, entryPath};
    g_signal_connect(context, "launched", G_CALLBACK(onLaunched), &data);
    GError* error = nullptr;
    const bool launched = g_app_info_launch_uris(G_APP_INFO(info), list, context, &error);
    LaunchOutcome outcome{0, "g_app_info_launch_uris()"};
    if (!launched) {
        // A program that vanished after the entry was read is gone all the same.
        outcome.status = error && error->domain == G_SPAWN_ERROR && error->code == G_SPAWN_ERROR_NOENT
                             ? LaunchOutcome::Missing
                             : (error ? long(error->code) : LaunchOutcome::Unusable);
        if (outcome.status == 0)
            outcome.status = LaunchOutcome::Unusable;
    }
    g_clear_error(&error);
    g_object_unref(context);
    g_list_free(list);
    g_object_unref(info);
    return outcome;
}

QList<QPair<QString, QString>> GioLauncher::actionsOfEntry(const QString& entryPath)
{
    QList<QPair<QString, QString>> actions;
    GDesktopAppInfo* info = g_desktop_app_info_new_from_filename(QFile::encodeName(entryPath).constData());
    if (!info)
        return actions;
    for (const gchar* const* id = g_desktop_app_info_list_actions(info); id && *id; ++id) {
        gchar* name = g_desktop_app_info_get_action_name(info, *id);
        const QString title = QString::fromUtf8(name).trimmed();
        g_free(name);
        if (!title.isEmpty())
            actions.append({QString::fromUtf8(*id), title});
    }
    g_object_unref(info);
    return actions;
}

LaunchOutcome GioLauncher::launchAction(const QString& entryPath, const QString& action) const
{
    GDesktopAppInfo* info = g_desktop_app_info_new_from_filename(QFile::encodeName(entryPath).constData());
    if (!info)
        return {problemWithEntry(entryPath), "g_desktop_app_info_new_from_filename()"};
    const QByteArray id = action.toUtf8();
    // Only an action the entry lists: GIO would run whatever group of that name it finds.
    bool listed = false;
    for (const gchar* const* known = g_desktop_app_info_list_actions(info); known && *known; ++known)
        listed = listed || id == *known;
    if (!listed) {
        g_object_unref(info);
        return {LaunchOutcome::Unusable, "g_desktop_app_info_list_actions()"};
    }
    GAppLaunchContext* context = contextWithEnvironment(m_environment);
    LaunchData data{m_launched.get(), &m_launchedHandler, entryPath};
    g_signal_connect(context, "launched", G_CALLBACK(onLaunched), &data);
    g_desktop_app_info_launch_action(info, id.constData(), context);
    g_object_unref(context);
    g_object_unref(info);
    return {0, "g_desktop_app_info_launch_action()"};
}
