#include "xdgpaths.h"

#include <QDir>

namespace {
QString absoluteFromEnv(const char* variable, const QString& fallbackBelowHome)
{
    const QString value = qEnvironmentVariable(variable);
    // Relative paths in the XDG variables are ignored, as the base directories require.
    if (!value.isEmpty() && QDir::isAbsolutePath(value))
        return QDir::cleanPath(value);
    return QDir::homePath() + QLatin1Char('/') + fallbackBelowHome;
}
} // namespace

namespace XdgPaths {

QString configHome()
{
    return absoluteFromEnv("XDG_CONFIG_HOME", QStringLiteral(".config"));
}

QString dataHome()
{
    return absoluteFromEnv("XDG_DATA_HOME", QStringLiteral(".local/share"));
}

QString cacheHome()
{
    return absoluteFromEnv("XDG_CACHE_HOME", QStringLiteral(".cache"));
}

QStringList dataDirs()
{
    QStringList dirs;
    const QStringList parts =
        qEnvironmentVariable("XDG_DATA_DIRS").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        if (QDir::isAbsolutePath(part))
            dirs.append(QDir::cleanPath(part));
    }
    if (dirs.isEmpty())
        dirs = {QStringLiteral("/usr/local/share"), QStringLiteral("/usr/share")};
    return dirs;
}

QString abbreviateHome(const QString& path)
{
    const QString home = QDir::homePath();
    if (path == home)
        return QStringLiteral("~");
    if (path.startsWith(home + QLatin1Char('/')))
        return QLatin1Char('~') + path.mid(home.size());
    return path;
}

QString expandHome(const QString& path)
{
    if (path == QLatin1String("~"))
        return QDir::homePath();
    if (path.startsWith(QLatin1String("~/")))
        return QDir::homePath() + path.mid(1);
    return path;
}

} // namespace XdgPaths
