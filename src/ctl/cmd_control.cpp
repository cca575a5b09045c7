// nimboctl toggle | show | hide | rescan | preferences | quit: asks the running Nimbo over D-Bus.
#include "ctlcommand.h"

#include "platform/nimbobus.h"

#include <QTextStream>

namespace {
int control(const char* method)
{
    QString error;
    if (NimboBus::call(QString::fromLatin1(method), &error))
        return 0;
    QTextStream(stderr) << "nimboctl: " << error << "\n";
    return 1;
}

int runToggle(const QStringList&)
{
    return control("Toggle");
}
int runShow(const QStringList&)
{
    return control("Show");
}
int runHide(const QStringList&)
{
    return control("Hide");
}
int runRescan(const QStringList&)
{
    return control("Rescan");
}
int runPreferences(const QStringList&)
{
    return control("Preferences");
}
int runQuit(const QStringList&)
{
    return control("Quit");
}
} // namespace

NIMBOCTL_COMMAND("toggle", "toggle      show the panel, or hide it when shown", runToggle)
NIMBOCTL_COMMAND("show", "show        show the panel", runShow)
NIMBOCTL_COMMAND("hide", "hide        hide the panel", runHide)
NIMBOCTL_COMMAND("rescan", "rescan      scan for applications again", runRescan)
NIMBOCTL_COMMAND("preferences", "preferences open the preferences window", runPreferences)
NIMBOCTL_COMMAND("quit", "quit        quit Nimbo", runQuit)
