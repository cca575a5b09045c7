// nimboctl: Nimbo's command-line companion. It reads and writes Nimbo's preferences and shows
// what the catalogue, the colour analysis and the layout compute, without a display.
#include "ctlcommand.h"

#include <QCoreApplication>
#include <QTextStream>

#include <algorithm>

namespace {
int usage(QTextStream& out)
{
    out << "usage: nimboctl COMMAND [ARGS...]\n\ncommands:\n";
    QList<CtlCommand> commands = CtlCommands::all();
    std::sort(commands.begin(), commands.end(),
              [](const CtlCommand& a, const CtlCommand& b) { return qstrcmp(a.name, b.name) < 0; });
    for (const CtlCommand& command : commands)
        out << "  " << command.usage << "\n";
    return 2;
}
} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Nimbo"));
    QStringList args = QCoreApplication::arguments().mid(1);
    QTextStream err(stderr);
    if (args.isEmpty() || args.first() == QLatin1String("--help") || args.first() == QLatin1String("-h"))
        return usage(err);
    const QString name = args.takeFirst();
    for (const CtlCommand& command : CtlCommands::all()) {
        if (name == QLatin1String(command.name))
            return command.run(args);
    }
    err << "nimboctl: unknown command \"" << name << "\"\n";
    return usage(err);
}
