// nimboctl updates [--feed URL] [--timeout SECONDS]: whether a newer Nimbo is out, as JSON.
#include "ctlcommand.h"

#include "common/hvuserdefaults.h"
#include "common/nimboinfo.h"
#include "net/hvupdatecheck.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace {
int printJson(const QJsonObject& object, int status)
{
    QTextStream(stdout) << QJsonDocument(object).toJson(QJsonDocument::Indented);
    return status;
}

int runUpdates(const QStringList& args)
{
    QUrl feed = HVUpdateCheck::configuredFeed(HVUserDefaults::standardUserDefaults());
    HVUpdateCheck check;
    for (qsizetype i = 0; i < args.size(); ++i) {
        bool ok = i + 1 < args.size();
        if (ok && args.at(i) == QLatin1String("--feed")) {
            feed = QUrl(args.at(++i));
        } else if (ok && args.at(i) == QLatin1String("--timeout")) {
            const double seconds = args.at(++i).toDouble(&ok);
            ok = ok && seconds > 0;
            check.setTimeout(int(seconds * 1000));
        } else {
            ok = false;
        }
        if (!ok) {
            QTextStream(stderr) << "usage: nimboctl updates [--feed URL] [--timeout SECONDS]\n";
            return 2;
        }
    }
    UpdateCheckResult result;
    QEventLoop loop;
    QObject::connect(&check, &HVUpdateCheck::finished, &loop, [&](const UpdateCheckResult& r) {
        result = r;
        loop.quit();
    });
    check.start(feed, NimboInfo::version());
    loop.exec();
    if (!result.error.isEmpty())
        return printJson({{"error", result.error}}, 1);
    return printJson({{"current", result.current},
                      {"latest", result.latest.version},
                      {"newer", result.newer},
                      {"url", result.latest.releaseNotes.isEmpty() ? result.latest.download.toString()
                                                                   : result.latest.releaseNotes.toString()}},
                     0);
}
} // namespace

NIMBOCTL_COMMAND("updates", "updates [--feed URL] [--timeout SECONDS]   whether a newer Nimbo is out",
                 runUpdates)
