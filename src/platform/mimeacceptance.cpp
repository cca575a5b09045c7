// GIO's headers name a field "signals", which Qt defines as a keyword: they come first.
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "mimeacceptance.h"

#include <QFile>
#include <QFileInfo>

namespace {
constexpr qint64 SniffLength = 4096;
constexpr int MaxCachedEntries = 4096;
} // namespace

QString MimeAcceptance::contentTypeForUrl(const QUrl& item)
{
    if (!item.isLocalFile())
        return item.scheme().isEmpty() ? QString()
                                       : QStringLiteral("x-scheme-handler/") + item.scheme().toLower();
    const QString path = item.toLocalFile();
    const QFileInfo info(path);
    if (info.isDir())
        return QStringLiteral("inode/directory");
    QByteArray head;
    QFile file(path);
    if (info.isFile() && file.open(QIODevice::ReadOnly))
        head = file.read(SniffLength);
    gchar* type =
        g_content_type_guess(QFile::encodeName(path).constData(),
                             reinterpret_cast<const guchar*>(head.constData()), gsize(head.size()), nullptr);
    gchar* mime = type ? g_content_type_get_mime_type(type) : nullptr;
    const QString result = QString::fromUtf8(mime ? mime : type ? type : "");
    g_free(mime);
    g_free(type);
    return result;
}

QStringList MimeAcceptance::typesOfEntry(const QString& entryPath) const
{
    const QDateTime modified = QFileInfo(entryPath).lastModified();
    QMutexLocker locker(&m_mutex);
    const auto cached = m_types.constFind(entryPath);
    if (cached != m_types.cend() && cached->modified == modified)
        return cached->types;
    QStringList types;
    GKeyFile* keyFile = g_key_file_new();
    if (g_key_file_load_from_file(keyFile, QFile::encodeName(entryPath).constData(), G_KEY_FILE_NONE,
                                  nullptr)) {
        gchar** list = g_key_file_get_string_list(keyFile, "Desktop Entry", "MimeType", nullptr, nullptr);
        for (gchar** type = list; type && *type; ++type) {
            if (**type)
                types.append(QString::fromUtf8(*type));
        }
        g_strfreev(list);
    }
    g_key_file_free(keyFile);
    if (m_types.size() >= MaxCachedEntries)
        m_types.clear();
    m_types.insert(entryPath, {modified, types});
    return types;
}

bool MimeAcceptance::canAccept(const QString& entryPath, const QUrl& item) const
{
    const QString type = contentTypeForUrl(item);
    if (type.isEmpty())
        return false;
    const QByteArray itemType = type.toUtf8();
    for (const QString& listed : typesOfEntry(entryPath)) {
        if (listed == QLatin1String("application/octet-stream") ||
            g_content_type_is_a(itemType.constData(), listed.toUtf8().constData()))
            return true;
    }
    return false;
}

bool MimeAcceptance::prefers(const QString& entryPath, const QUrl& item) const
{
    const QString type = contentTypeForUrl(item);
    if (type.isEmpty())
        return false;
    bool found = false;
    GList* recommended = g_app_info_get_recommended_for_type(type.toUtf8().constData());
    for (GList* it = recommended; it && !found; it = it->next) {
        auto* info = static_cast<GAppInfo*>(it->data);
        const char* filename =
            G_IS_DESKTOP_APP_INFO(info) ? g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(info)) : nullptr;
        found = filename && QFile::decodeName(filename) == entryPath;
    }
    g_list_free_full(recommended, g_object_unref);
    return found;
}
