#include "hvdesktopidclaims.h"

QString HVDesktopIdClaims::desktopId(const QString& scanFolder, const QString& path)
{
    QString relative = path;
    const QString prefix = scanFolder.endsWith(QLatin1Char('/')) ? scanFolder : scanFolder + QLatin1Char('/');
    if (path.startsWith(prefix))
        relative = path.mid(prefix.size());
    relative.replace(QLatin1Char('/'), QLatin1Char('-'));
    return relative;
}

HVDesktopIdClaims::Result HVDesktopIdClaims::claim(const QString& id, int folder, const QString& path,
                                                   QString* replacedPath)
{
    auto holder = m_claims.find(id);
    if (holder == m_claims.end()) {
        m_claims.insert(id, {folder, path});
        return Claimed;
    }
    if (holder->folder != folder)
        return Masked;
    if (replacedPath)
        *replacedPath = holder->path;
    holder->path = path;
    return Replaced;
}
