// A private set of XDG folders for one test: configuration, data, cache and the system data
// folders all point into a temporary directory that vanishes with the object.
#pragma once

#include <QString>
#include <QTemporaryDir>

class TestEnvironment
{
public:
    TestEnvironment();
    ~TestEnvironment();

    QString root() const { return m_dir.path(); }
    QString configHome() const { return root() + QStringLiteral("/config"); }
    QString dataHome() const { return root() + QStringLiteral("/data"); }
    QString cacheHome() const { return root() + QStringLiteral("/cache"); }
    QString systemDataDir() const { return root() + QStringLiteral("/system"); }

    // Writes a file (creating its folders) and returns its path.
    QString writeFile(const QString& relativePath, const QByteArray& contents) const;

private:
    QTemporaryDir m_dir;
    QByteArray m_saved[4];
};
