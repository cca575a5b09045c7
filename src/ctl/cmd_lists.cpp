// nimboctl favourites | exclude | include: organises the user's lists. With Nimbo running the
// change goes through it over the session bus (the panel shows it at once); otherwise the list
// files are changed with the catalogue's own code. A path that names no application entry
// changes nothing and exits 1.
#include "ctlcommand.h"

#include "catalogue/hvappgroup.h"
#include "catalogue/hvappmanager.h"
#include "catalogue/hvlisteditor.h"
#include "common/hvuserdefaults.h"
#include "platform/gioentryreader.h"
#include "platform/nimbobus.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QTextStream>

#include <functional>
#include <memory>

namespace {
// The lists as they are on disk, for when no Nimbo runs.
struct OfflineCatalogue
{
    OfflineCatalogue()
        : reader(std::make_shared<GioEntryReader>()), manager(HVUserDefaults::standardUserDefaults(), reader),
          editor(&manager, reader.get())
    {
        // As Nimbo starts: the saved catalogue, or a scan when there is none yet (excluded
        // applications the catalogue does not hold would count as gone).
        manager.readAllAppsFromDisk();
        if (manager.allApps().isEmpty())
            manager.scanSearchFoldersForAllApps();
        manager.readExcludedApps1DFromDisk();
        manager.readUserAppsFromDisk();
        manager.rebuildDependentApps();
    }
    std::shared_ptr<GioEntryReader> reader;
    HVAppManager manager;
    HVListEditor editor;
};

QStringList absolutePaths(const QStringList& paths)
{
    QStringList absolute;
    for (const QString& path : paths)
        absolute.append(path.isEmpty() ? path : QFileInfo(path).absoluteFilePath());
    return absolute;
}

// Runs the change through the running Nimbo, else on the files; prints the error, if any.
int change(const QString& method, const QVariantList& arguments,
           const std::function<QString(HVListEditor&)>& offline)
{
    QString error;
    if (NimboBus::isRunning()) {
        const std::optional<QVariant> reply = NimboBus::call(method, arguments, &error);
        if (reply)
            error = reply->toString();
    } else {
        OfflineCatalogue catalogue;
        error = offline(catalogue.editor);
    }
    if (error.isEmpty())
        return 0;
    QTextStream(stderr) << "nimboctl: " << error << "\n";
    return 1;
}

int usageError(const QString& message)
{
    QTextStream(stderr) << "nimboctl: " << message << "\n";
    return 2;
}

int runFavourites(const QStringList& args)
{
    if (args.isEmpty()) {
        QString json, error;
        if (NimboBus::isRunning()) {
            const std::optional<QVariant> reply = NimboBus::call(QStringLiteral("Favourites"), {}, &error);
            json = reply ? reply->toString() : QString();
        } else {
            json = QString::fromUtf8(
                QJsonDocument(OfflineCatalogue().editor.favourites()).toJson(QJsonDocument::Compact));
        }
        if (json.isEmpty()) {
            QTextStream(stderr) << "nimboctl: "
                                << (error.isEmpty() ? QStringLiteral("Nimbo has not read its lists yet")
                                                    : error)
                                << "\n";
            return 1;
        }
        QTextStream(stdout) << json << "\n";
        return 0;
    }
    const QString verb = args.first();
    if (verb == QLatin1String("remove") && args.size() == 2) {
        const QString path = absolutePaths({args.at(1)}).first();
        return change(QStringLiteral("RemoveFavourite"), {path},
                      [&](HVListEditor& editor) { return editor.removeFavourite(path); });
    }
    if (verb != QLatin1String("add") || args.size() < 2)
        return usageError(
            QStringLiteral("favourites [add PATH [--bunch B] [--index I] [--new-bunch] | remove PATH]"));
    const QString path = absolutePaths({args.at(1)}).first();
    qlonglong bunch = 0;
    qlonglong index = HVIndexPastEnd;
    bool newBunch = false;
    for (int i = 2; i < args.size(); ++i) {
        bool ok = true;
        if (args.at(i) == QLatin1String("--new-bunch"))
            newBunch = true;
        else if (args.at(i) == QLatin1String("--bunch") && i + 1 < args.size())
            bunch = args.at(++i).toLongLong(&ok);
        else if (args.at(i) == QLatin1String("--index") && i + 1 < args.size())
            index = args.at(++i).toLongLong(&ok);
        else
            ok = false;
        if (!ok)
            return usageError(QStringLiteral("favourites add: cannot read \"%1\"").arg(args.at(i)));
    }
    return change(QStringLiteral("AddFavourite"), {path, bunch, index, newBunch},
                  [&](HVListEditor& editor) { return editor.addFavourite(path, bunch, index, newBunch); });
}

int runExclude(const QStringList& args)
{
    const QStringList paths = absolutePaths(args);
    return change(QStringLiteral("Exclude"), {paths},
                  [&](HVListEditor& editor) { return editor.exclude(paths); });
}

int runInclude(const QStringList& args)
{
    const QStringList paths = absolutePaths(args);
    return change(QStringLiteral("Include"), {paths},
                  [&](HVListEditor& editor) { return editor.include(paths); });
}
} // namespace

NIMBOCTL_COMMAND("favourites",
                 "favourites [add PATH [--bunch B] [--index I] [--new-bunch] | remove PATH]\n"
                 "              print the favourites as JSON, or add or remove one",
                 runFavourites)
NIMBOCTL_COMMAND("exclude", "exclude PATH...   exclude applications (their desktop entries)", runExclude)
NIMBOCTL_COMMAND("include", "include PATH...   include excluded applications again", runInclude)
