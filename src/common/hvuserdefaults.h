// The user defaults: registered defaults under the user's own values, kept with QSettings in
// $XDG_CONFIG_HOME/Nimbo/Nimbo.conf. Every change, whether made here or by another process
// writing the same file, is announced per key with the old and the new effective value.
#pragma once

#include <QColor>
#include <QHash>
#include <QObject>
#include <QVariant>
#include <QVariantMap>

#include <memory>

class QFileSystemWatcher;
class QSettings;

class HVUserDefaults : public QObject
{
    Q_OBJECT
public:
    // A store over the given file; standardUserDefaults() uses Nimbo.conf.
    explicit HVUserDefaults(const QString& filePath, QObject* parent = nullptr);
    ~HVUserDefaults() override;

    static HVUserDefaults* standardUserDefaults();
    static QString standardFilePath();

    QString filePath() const { return m_filePath; }

    // Registered defaults apply wherever the user has no value; they never overwrite one.
    void registerDefaults(const QVariantMap& defaults);
    QVariantMap registeredDefaults() const { return m_registered; }

    // The user's value, else the registered default, else an invalid variant.
    QVariant objectForKey(const QString& key) const;
    bool hasUserValue(const QString& key) const;

    // Typed getters: a value of another type reads as 0 / false / empty.
    qint64 integerForKey(const QString& key) const;
    bool boolForKey(const QString& key) const;
    double doubleForKey(const QString& key) const;
    float floatForKey(const QString& key) const { return float(doubleForKey(key)); }
    QString stringForKey(const QString& key) const;
    QVariantList arrayForKey(const QString& key) const;
    QStringList stringArrayForKey(const QString& key) const;
    QVariantMap dictionaryForKey(const QString& key) const;
    QColor colorForKey(const QString& key) const;

    // Stores the user's value; an invalid (nil) value removes it so the default applies again.
    void setObject(const QVariant& value, const QString& key);
    void setInteger(qint64 value, const QString& key) { setObject(value, key); }
    void setBool(bool value, const QString& key) { setObject(value, key); }
    void setDouble(double value, const QString& key) { setObject(value, key); }
    void setString(const QString& value, const QString& key) { setObject(value, key); }
    void removeObjectForKey(const QString& key) { setObject(QVariant(), key); }

    // Writes pending changes and takes in changes another process wrote. Returns false when
    // the file cannot be written.
    bool synchronize();

    // The user's own values / every effective value.
    QVariantMap persistentDomain() const { return m_user; }
    QVariantMap dictionaryRepresentation() const;

signals:
    // The effective value of `key` changed (old or new may be invalid).
    void valueChanged(const QString& key, const QVariant& oldValue, const QVariant& newValue);

private:
    void reloadFromDisk();
    void watchFile();
    void emitChanges(const QVariantMap& oldEffective);

    QString m_filePath;
    std::unique_ptr<QSettings> m_settings;
    QFileSystemWatcher* m_watcher = nullptr;
    QVariantMap m_registered;
    QVariantMap m_user;
};
