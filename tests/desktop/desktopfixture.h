// A private desktop for one test program: XDG folders of its own, set before anything (GLib
// caches them) reads them, with the system's MIME database and nothing else of the system's;
// desktop entries written into it; and the recorder program's output read back.
#pragma once

#include "support/testenvironment.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <memory>

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

    // Writes <data home>/applications/<fileName> with Type=Application, the name and the lines.
    QString writeEntry(const QString& fileName, const QByteArray& lines) const
    {
        return m_env.writeFile(
            QStringLiteral("data/applications/") + fileName,
            "[Desktop Entry]\nType=Application\nName=" + fileName.section('.', 0, 0).toUtf8() + "\n" + lines);
    }

    // Where the recorder program writes the arguments it was launched with.
    QString recordFile(const QString& name) const { return m_env.root() + QStringLiteral("/argv-") + name; }
    static QList<QByteArray> recordedArguments(const QString& file)
    {
        QFile f(file);
        if (!f.open(QIODevice::ReadOnly))
            return {};
        QList<QByteArray> arguments = f.readAll().split('\0');
        arguments.removeLast(); // each argument ends with a NUL
        return arguments;
    }

    // The session's environment as the launched programs are to get it.
    static QStringList environment() { return QProcess::systemEnvironment(); }

private:
    TestEnvironment m_env;
};

// main() for a desktop test: the private folders exist before the application object
// (QApplication, or QCoreApplication for a test without Qt's own X connection).
#define NIMBO_DESKTOP_TEST_MAIN(TestClass, ApplicationClass)                                                 \
    int main(int argc, char** argv)                                                                          \
    {                                                                                                        \
        auto fixture = std::make_unique<DesktopFixture>();                                                   \
        ApplicationClass app(argc, argv);                                                                    \
        TestClass test(*fixture);                                                                            \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
