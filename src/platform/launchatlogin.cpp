#include "platform/launchatlogin.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QStandardPaths>

Q_LOGGING_CATEGORY(lcLogin, "nimbo.login")

namespace {
// The Exec value as a desktop entry quotes it: reserved characters need double quotes, and
// inside them `"`, `` ` ``, `$` and `\` take a backslash.
QString quotedProgram(const QString& program)
{
    static const QString reserved = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
    bool needsQuotes = false;
    for (QChar c : program)
        needsQuotes = needsQuotes || reserved.contains(c);
    if (!needsQuotes)
        return program;
    QString quoted;
    for (QChar c : program) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\')
            quoted += u'\\';
        quoted += c;
    }
    return u'"' + quoted + u'"';
}

// The program an Exec value starts: its first word, quotes and escapes undone.
QString execProgram(const QString& exec)
{
    QString word;
    bool inQuotes = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec.at(i);
        if (inQuotes && c == u'\\' && i + 1 < exec.size()) {
            word += exec.at(++i);
        } else if (c == u'"') {
            inQuotes = !inQuotes;
        } else if (!inQuotes && c.isSpace()) {
            if (!word.isEmpty())
                break;
        } else {
            word += c;
        }
    }
    return word;
}

struct AutostartEntry
{
    QString exec;
    bool hidden = false;
};

AutostartEntry readEntry(QFile& file)
{
    AutostartEntry entry;
    bool inMainGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(u'['))
            inMainGroup = line == QLatin1String("[Desktop Entry]");
        else if (inMainGroup && line.startsWith(QLatin1String("Exec=")))
            entry.exec = line.mid(5);
        else if (inMainGroup && line.startsWith(QLatin1String("Hidden=")))
            entry.hidden = line.mid(7).trimmed() == QLatin1String("true");
    }
    return entry;
}
} // namespace

LaunchAtLogin::LaunchAtLogin(const QString& program)
    : m_program(program.isEmpty() ? QCoreApplication::applicationFilePath() : program)
{}

QString LaunchAtLogin::autostartPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/com.halvorndesign.Nimbo.desktop");
}

bool LaunchAtLogin::launchAtLogin() const
{
    QFile file(autostartPath());
    if (QFileInfo(file).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    const AutostartEntry entry = readEntry(file);
    if (entry.hidden)
        return false;
    const QString named = execProgram(entry.exec);
    return !named.isEmpty() &&
           QFileInfo(named).canonicalFilePath() == QFileInfo(m_program).canonicalFilePath();
}

bool LaunchAtLogin::setLaunchAtLogin(bool enabled)
{
    if (launchAtLogin() == enabled)
        return true;
    const QString path = autostartPath();
    if (QFileInfo(path).isDir()) {
        qCWarning(lcLogin) << "Cannot change the autostart entry" << path << "because it is a folder";
        return false;
    }
    if (!enabled) {
        // Present but not ours (another copy of Nimbo, or hidden): already off for this program.
        if (!QFile::exists(path))
            return true;
        QFile file(path);
        if (file.open(QIODevice::ReadOnly) &&
            QFileInfo(execProgram(readEntry(file).exec)).canonicalFilePath() !=
                QFileInfo(m_program).canonicalFilePath())
            return true;
        if (!QFile::remove(path)) {
            qCWarning(lcLogin) << "Cannot remove the autostart entry" << path;
            return false;
        }
        return true;
    }
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        qCWarning(lcLogin) << "Cannot write the autostart entry" << path << ":" << file.errorString();
        return false;
    }
    file.write("[Desktop Entry]\n"
               "Type=Application\n"
               "Name=Nimbo\n"
               "Comment=Start Nimbo at login\n"
               "Icon=com.halvorndesign.Nimbo\n");
    file.write("Exec=" + quotedProgram(m_program).toUtf8() + "\n");
    file.write("X-GNOME-Autostart-enabled=true\n");
    if (!file.commit()) {
        qCWarning(lcLogin) << "Cannot write the autostart entry" << path << ":" << file.errorString();
        return false;
    }
    return true;
}
