#include "entrydesktopid.h"

#include "catalogue/hvdesktopidclaims.h"
#include "common/xdgpaths.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

QString desktopIdOfEntry(const QString& entryPath)
{
    const QString path = QDir::cleanPath(QFileInfo(entryPath).absoluteFilePath());
    QStringList folders{XdgPaths::dataHome()};
    folders += XdgPaths::dataDirs();
    for (const QString& dataFolder : std::as_const(folders)) {
        const QString applications = QDir::cleanPath(dataFolder + QStringLiteral("/applications"));
        if (path.startsWith(applications + QLatin1Char('/')))
            return HVDesktopIdClaims::desktopId(applications, path);
    }
    return QFileInfo(path).fileName();
}
