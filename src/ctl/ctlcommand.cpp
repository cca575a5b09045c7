#include "ctlcommand.h"

namespace {
QList<CtlCommand>& registry()
{
    static QList<CtlCommand> commands;
    return commands;
}
} // namespace

bool CtlCommands::add(const CtlCommand& command)
{
    registry().append(command);
    return true;
}

const QList<CtlCommand>& CtlCommands::all()
{
    return registry();
}
