#include "testenvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const char* const variables[4] = {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_DATA_DIRS"};
}

TestEnvironment::TestEnvironment()
{
    const QString paths[4] = {configHome(), dataHome(), cacheHome(), systemDataDir()};
    for (int i = 0; i < 4; ++i) {
        m_saved[i] = qgetenv(variables[i]);
        QDir().mkpath(paths[i]);
        qputenv(variables[i], paths[i].toLocal8Bit());
    }
}

TestEnvironment::~TestEnvironment()
{
    for (int i = 0; i < 4; ++i) {
        if (m_saved[i].isNull())
            qunsetenv(variables[i]);
        else
            qputenv(variables[i], m_saved[i]);
    }
}

QString TestEnvironment::writeFile(const QString& relativePath, const QByteArray& contents) const
{
    const QString path = root() + QLatin1Char('/') + relativePath;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(contents);
    return path;
}
