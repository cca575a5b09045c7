// nimboctl letters: the filter letters of each name, one line per name.
#include "ctlcommand.h"

#include "catalogue/hvapp.h"

#include <QTextStream>

namespace {
int runLetters(const QStringList& names)
{
    QTextStream out(stdout);
    for (const QString& name : names)
        out << HVApp::lettersForName(name) << "\n";
    return 0;
}
} // namespace

NIMBOCTL_COMMAND("letters", "letters NAME...", runLetters)
