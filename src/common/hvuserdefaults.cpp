#include "hvuserdefaults.h"

#include "settingsjsonformat.h"
#include "xdgpaths.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QPointer>
#include <QSettings>

namespace {
bool isNumber(const QVariant& value)
{
    switch (value.metaType().id()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

// A string that is entirely a number reads as that number, as a hand-edited value would be meant.
bool numberFromString(const QVariant& value, double* number)
{
    if (value.metaType().id() != QMetaType::QString)
        return false;
    bool ok = false;
    *number = value.toString().trimmed().toDouble(&ok);
    return ok;
}
} // namespace

HVUserDefaults::HVUserDefaults(const QString& filePath, QObject* parent)
    : QObject(parent), m_filePath(filePath)
{
    QDir().mkpath(QFileInfo(filePath).absolutePath());
    m_settings = std::make_unique<QSettings>(filePath, SettingsJsonFormat::format());
    if (m_settings->status() == QSettings::FormatError) {
        // Keep the user's unreadable file for them instead of overwriting it with our next write.
        const QString aside =
            filePath + QStringLiteral(".corrupt-") +
            QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
        m_settings.reset();
        if (QFile::rename(filePath, aside))
            qWarning("Preferences file %s cannot be read; kept it as %s and started from the defaults",
                     qPrintable(filePath), qPrintable(aside));
        m_settings = std::make_unique<QSettings>(filePath, SettingsJsonFormat::format());
    }
    for (const QString& key : m_settings->allKeys())
        m_user.insert(key, m_settings->value(key));
    watchFile();
}

HVUserDefaults::~HVUserDefaults() = default;

QString HVUserDefaults::standardFilePath()
{
    return XdgPaths::configHome() + QStringLiteral("/Nimbo/Nimbo.conf");
}

HVUserDefaults* HVUserDefaults::standardUserDefaults()
{
    static QPointer<HVUserDefaults> standard;
    if (!standard)
        standard = new HVUserDefaults(standardFilePath(), QCoreApplication::instance());
    return standard;
}

void HVUserDefaults::registerDefaults(const QVariantMap& defaults)
{
    const QVariantMap before = dictionaryRepresentation();
    for (auto it = defaults.begin(); it != defaults.end(); ++it)
        m_registered.insert(it.key(), it.value());
    emitChanges(before);
}

QVariant HVUserDefaults::objectForKey(const QString& key) const
{
    auto user = m_user.constFind(key);
    if (user != m_user.constEnd())
        return *user;
    return m_registered.value(key);
}

bool HVUserDefaults::hasUserValue(const QString& key) const
{
    return m_user.contains(key);
}

qint64 HVUserDefaults::integerForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    double number = 0;
    if (isNumber(value))
        return value.metaType().id() == QMetaType::Double ? qint64(value.toDouble()) : value.toLongLong();
    if (numberFromString(value, &number))
        return qint64(number);
    return 0;
}

bool HVUserDefaults::boolForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    if (isNumber(value))
        return value.toDouble() != 0;
    if (value.metaType().id() == QMetaType::QString) {
        const QString text = value.toString().trimmed().toLower();
        double number = 0;
        return text == QLatin1String("yes") || text == QLatin1String("true") ||
               (numberFromString(value, &number) && number != 0);
    }
    return false;
}

double HVUserDefaults::doubleForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    double number = 0;
    if (isNumber(value))
        return value.toDouble();
    if (numberFromString(value, &number))
        return number;
    return 0;
}

QString HVUserDefaults::stringForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    if (value.metaType().id() == QMetaType::QString ||
        (isNumber(value) && value.metaType().id() != QMetaType::Bool))
        return value.toString();
    return QString();
}

QVariantList HVUserDefaults::arrayForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    const int type = value.metaType().id();
    return type == QMetaType::QVariantList || type == QMetaType::QStringList ? value.toList()
                                                                             : QVariantList();
}

QStringList HVUserDefaults::stringArrayForKey(const QString& key) const
{
    QStringList strings;
    for (const QVariant& element : arrayForKey(key)) {
        if (element.metaType().id() != QMetaType::QString)
            return QStringList();
        strings.append(element.toString());
    }
    return strings;
}

QVariantMap HVUserDefaults::dictionaryForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    return value.metaType().id() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
}

QColor HVUserDefaults::colorForKey(const QString& key) const
{
    const QVariant value = objectForKey(key);
    return value.metaType().id() == QMetaType::QColor ? value.value<QColor>() : QColor();
}

void HVUserDefaults::setObject(const QVariant& value, const QString& key)
{
    if (key.isEmpty())
        return;
    if (value.isValid() && !SettingsJsonFormat::isStorable(value)) {
        qWarning("Preference \"%s\" not stored: a %s cannot be kept in the preferences", qPrintable(key),
                 value.typeName());
        return;
    }
    const QVariantMap before = dictionaryRepresentation();
    if (value.isValid()) {
        m_user.insert(key, value);
        m_settings->setValue(key, value);
    } else {
        m_user.remove(key);
        m_settings->remove(key);
    }
    synchronize();
    emitChanges(before);
}

bool HVUserDefaults::synchronize()
{
    m_settings->sync();
    if (m_settings->status() != QSettings::NoError) {
        qWarning("Preferences file %s cannot be written", qPrintable(m_filePath));
        return false;
    }
    reloadFromDisk();
    return true;
}

QVariantMap HVUserDefaults::dictionaryRepresentation() const
{
    QVariantMap all = m_registered;
    for (auto it = m_user.begin(); it != m_user.end(); ++it)
        all.insert(it.key(), it.value());
    return all;
}

void HVUserDefaults::reloadFromDisk()
{
    m_settings->sync();
    QVariantMap user;
    for (const QString& key : m_settings->allKeys())
        user.insert(key, m_settings->value(key));
    if (user == m_user)
        return;
    const QVariantMap before = dictionaryRepresentation();
    m_user = user;
    emitChanges(before);
}

void HVUserDefaults::watchFile()
{
    // Writers replace the file, so watch its folder as well and pick the new file up again.
    m_watcher = new QFileSystemWatcher(this);
    m_watcher->addPath(QFileInfo(m_filePath).absolutePath());
    if (QFileInfo::exists(m_filePath))
        m_watcher->addPath(m_filePath);
    auto changed = [this] {
        if (QFileInfo::exists(m_filePath) && !m_watcher->files().contains(m_filePath))
            m_watcher->addPath(m_filePath);
        reloadFromDisk();
    };
    connect(m_watcher, &QFileSystemWatcher::fileChanged, this, changed);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this, changed);
}

void HVUserDefaults::emitChanges(const QVariantMap& oldEffective)
{
    const QVariantMap now = dictionaryRepresentation();
    QStringList keys = oldEffective.keys();
    for (const QString& key : now.keys()) {
        if (!oldEffective.contains(key))
            keys.append(key);
    }
    for (const QString& key : std::as_const(keys)) {
        const QVariant oldValue = oldEffective.value(key);
        const QVariant newValue = now.value(key);
        if (oldValue != newValue || oldValue.isValid() != newValue.isValid())
            emit valueChanged(key, oldValue, newValue);
    }
}
