#include "listfilestore.h"

#include "common/xdgpaths.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <plist/plist.h>

#include <cstdlib>

namespace {
// No list of applications comes near this; a larger file is not a list file.
constexpr qint64 MaxListFileSize = 64 * 1024 * 1024;

enum class ParseResult { Ok, Corrupt, NotAnArray };

// The string's bytes as they are: a string may hold a NUL, which no path does (and which makes
// libplist's copying getter abort).
QByteArray stringBytes(plist_t node)
{
    uint64_t length = 0;
    const char* value = plist_get_string_ptr(node, &length);
    return value ? QByteArray(value, qsizetype(length)) : QByteArray();
}

// A path from the list: null for a string that cannot be a path.
std::optional<QString> pathValue(plist_t node)
{
    const QByteArray bytes = stringBytes(node);
    if (bytes.contains('\0'))
        return std::nullopt;
    return QString::fromUtf8(bytes);
}

// Strings and arrays of strings are kept; anything else in a list file is dropped.
QVariant listElement(plist_t node, const QString& path, int* dropped)
{
    const plist_type type = plist_get_node_type(node);
    if (type == PLIST_STRING) {
        if (const std::optional<QString> string = pathValue(node))
            return *string;
        ++*dropped;
        return QVariant();
    }
    if (type == PLIST_ARRAY) {
        QStringList strings;
        const uint32_t count = plist_array_get_size(node);
        for (uint32_t i = 0; i < count; ++i) {
            plist_t item = plist_array_get_item(node, i);
            const std::optional<QString> string =
                plist_get_node_type(item) == PLIST_STRING ? pathValue(item) : std::nullopt;
            if (string)
                strings.append(*string);
            else
                ++*dropped;
        }
        return QVariant(QVariantList(strings.begin(), strings.end()));
    }
    Q_UNUSED(path);
    ++*dropped;
    return QVariant();
}

ParseResult parse(const QByteArray& bytes, const QString& path, QVariantList* array)
{
    plist_t root = nullptr;
    if (!bytes.isEmpty())
        plist_from_memory(bytes.constData(), uint32_t(bytes.size()), &root);
    if (!root)
        return ParseResult::Corrupt;
    ParseResult result = ParseResult::NotAnArray;
    if (plist_get_node_type(root) == PLIST_ARRAY) {
        result = ParseResult::Ok;
        int dropped = 0;
        const uint32_t count = plist_array_get_size(root);
        for (uint32_t i = 0; i < count; ++i) {
            const QVariant element = listElement(plist_array_get_item(root, i), path, &dropped);
            if (element.isValid())
                array->append(element);
        }
        if (dropped > 0)
            qWarning("List file %s: ignored %d entries that are not paths", qPrintable(path), dropped);
    }
    plist_free(root);
    return result;
}

ParseResult parseFile(const QString& path, QVariantList* array)
{
    QFile file(path);
    if (file.size() > MaxListFileSize)
        return ParseResult::Corrupt;
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("List file %s cannot be opened: %s", qPrintable(path), qPrintable(file.errorString()));
        return ParseResult::NotAnArray;
    }
    return parse(file.readAll(), path, array);
}

plist_t plistFromList(const QVariantList& array)
{
    plist_t root = plist_new_array();
    for (const QVariant& element : array) {
        if (element.metaType().id() == QMetaType::QVariantList ||
            element.metaType().id() == QMetaType::QStringList) {
            plist_t inner = plist_new_array();
            for (const QVariant& path : element.toList())
                plist_array_append_item(inner, plist_new_string(path.toString().toUtf8().constData()));
            plist_array_append_item(root, inner);
        } else {
            plist_array_append_item(root, plist_new_string(element.toString().toUtf8().constData()));
        }
    }
    return root;
}
} // namespace

QString ListFileStore::userFolder()
{
    return XdgPaths::dataHome() + QStringLiteral("/Nimbo");
}

QStringList ListFileStore::localFolders()
{
    QStringList folders;
    for (const QString& dir : XdgPaths::dataDirs())
        folders.append(dir + QStringLiteral("/Nimbo"));
    return folders;
}

std::optional<QVariantList> ListFileStore::readArray(const QString& path)
{
    if (!QFileInfo::exists(path))
        return std::nullopt;
    QVariantList array;
    switch (parseFile(path, &array)) {
    case ParseResult::Ok:
        return array;
    case ParseResult::NotAnArray:
        qWarning("List file %s does not hold a list; ignored", qPrintable(path));
        return std::nullopt;
    case ParseResult::Corrupt:
        // Resources are read-only; only real files are set aside.
        if (!path.startsWith(QLatin1Char(':'))) {
            const QString aside = setAside(path);
            qWarning("List file %s cannot be read; kept it as %s", qPrintable(path),
                     qPrintable(aside.isEmpty() ? QStringLiteral("it was (renaming failed)") : aside));
        }
        return std::nullopt;
    }
    return std::nullopt;
}

bool ListFileStore::writeArray(const QVariantList& array, const QString& path)
{
    const QFileInfo info(path);
    if (!QDir().mkpath(info.absolutePath())) {
        qWarning("Folder %s cannot be created", qPrintable(info.absolutePath()));
        return false;
    }
    // Never overwrite a file the user might still want: an unreadable one is kept aside first.
    if (info.exists()) {
        QVariantList existing;
        if (parseFile(path, &existing) == ParseResult::Corrupt) {
            const QString aside = setAside(path);
            qWarning("List file %s cannot be read; kept it as %s before writing a new one", qPrintable(path),
                     qPrintable(aside));
        }
    }
    plist_t root = plistFromList(array);
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(root, &xml, &length);
    plist_free(root);
    QSaveFile file(path);
    bool ok =
        xml && file.open(QIODevice::WriteOnly) && file.write(xml, length) == qint64(length) && file.commit();
    if (!ok)
        qWarning("List file %s cannot be written: %s", qPrintable(path), qPrintable(file.errorString()));
    std::free(xml);
    return ok;
}

QString ListFileStore::setAside(const QString& path)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
    QString aside = path + QStringLiteral(".corrupt-") + stamp;
    for (int n = 2; QFileInfo::exists(aside); ++n)
        aside = path + QStringLiteral(".corrupt-") + stamp + QLatin1Char('-') + QString::number(n);
    return QFile::rename(path, aside) ? aside : QString();
}
