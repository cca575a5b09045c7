// A nimboctl sub-command: each command file registers itself with NIMBOCTL_COMMAND.
#pragma once

#include <QList>
#include <QStringList>

struct CtlCommand
{
    const char* name;
    const char* usage;
    int (*run)(const QStringList& args); // args without the command name; returns the exit status
};

class CtlCommands
{
public:
    static bool add(const CtlCommand& command);
    static const QList<CtlCommand>& all();
};

#define NIMBOCTL_COMMAND(name, usage, function)                                                              \
    namespace {                                                                                              \
    const bool registered_##function = CtlCommands::add({name, usage, function});                            \
    }
