// A private desktop for one test program: XDG folders of its own, set before anything (GLib
// caches them) reads them, with the system's MIME database and nothing else of the system's;
// desktop entries written into it; the recorder program's output read back; Nimbo started over
// it as its main() starts it; and other programs (xdotool, nimbo, nimboctl) run to their end
// while this process keeps answering the X server and the bus.
#pragma once

#include "support/startnimbo.h"
#include "support/testenvironment.h"

#include "common/hvuserdefaults.h"
#include "shell/hvcontroller.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <memory>

// What a program run to its end said: its exit code (-1 when it did not start, crashed or hung).
struct ProgramRun
{
    int exitCode = -1;
    QByteArray out, err;
};

inline ProgramRun runToEnd(const QString& program, const QStringList& args, int timeoutMs = 20000)
{
    QProcess process; // one still running at the end is killed with it
    process.start(program, args);
    const bool ended =
        QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, timeoutMs) &&
        process.error() == QProcess::UnknownError && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

inline bool xdotool(const QStringList& args)
{
    return runToEnd(QStringLiteral("xdotool"), args).exitCode == 0;
}

// Moves the real pointer to the point of the screen, and lets the move settle for the seconds given.
inline bool moveTo(const QPoint& at, double settle = 0)
{
    return xdotool(
        {"mousemove", QString::number(at.x()), QString::number(at.y()), "sleep", QString::number(settle)});
}

inline ProgramRun nimboctl(const QStringList& args)
{
    return runToEnd(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), args);
}

class DesktopFixture
{
public:
    DesktopFixture()
    {
        QDir().mkpath(m_env.dataHome() + QStringLiteral("/applications"));
        QFile::link(QStringLiteral("/usr/share/mime"), m_env.systemDataDir() + QStringLiteral("/mime"));
    }

    const TestEnvironment& env() const { return m_env; }
    QString applicationsDir() const { return m_env.dataHome() + QStringLiteral("/applications"); }
    QString entryPath(const QString& id) const
    {
        return applicationsDir() + '/' + id + QStringLiteral(".desktop");
    }

    // Writes <data home>/applications/<fileName> with Type=Application and the lines, named after
    // the file unless the lines give a Name.
    QString writeEntry(const QString& fileName, const QByteArray& lines) const
    {
        const QByteArray name = ('\n' + lines).contains("\nName=")
                                    ? QByteArray()
                                    : "Name=" + fileName.section('.', 0, 0).toUtf8() + "\n";
        return m_env.writeFile(QStringLiteral("data/applications/") + fileName,
                               "[Desktop Entry]\nType=Application\n" + name + lines);
    }

    // Where the recorder program writes the arguments it was launched with, and those arguments
    // once it has written them.
    QString recordFile(const QString& name) const { return m_env.root() + QStringLiteral("/argv-") + name; }
    static QList<QByteArray> recordedArguments(const QString& file)
    {
        QFile f(file);
        if (!QTest::qWaitFor([&f] { return f.exists(); }, 10000) || !f.open(QIODevice::ReadOnly))
            return {QByteArrayLiteral("(nothing recorded)")};
        QList<QByteArray> arguments = f.readAll().split('\0');
        arguments.removeLast(); // each argument ends with a NUL
        return arguments;
    }

    // Nimbo's preferences in these folders.
    HVUserDefaults& defaults() { return m_defaults; }
    // Nimbo started with `settings` written first; the alerts about missing input access stay closed.
    HVController* startNimbo(const QVariantMap& settings = {})
    {
        defaults().setBool(false, QStringLiteral("showNoUIAccessWarning"));
        defaults().setBool(false, QStringLiteral("showNoMouseAccessWarning"));
        for (auto setting = settings.begin(); setting != settings.end(); ++setting)
            defaults().setObject(setting.value(), setting.key());
        m_nimbo = ::startNimbo(&m_defaults);
        return m_nimbo.get();
    }
    void stopNimbo() { m_nimbo.reset(); }

private:
    TestEnvironment m_env;
    HVUserDefaults m_defaults{m_env.configHome() + QStringLiteral("/Nimbo/Nimbo.conf")};
    std::unique_ptr<HVController> m_nimbo;
};
