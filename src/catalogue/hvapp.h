// The record of one installed application: a desktop entry file, identified by its
// standardised path. One record exists per path; every list that holds the application holds
// this same object (shared through HVAppRef).
#pragma once

#include "appactions.h"

#include <QByteArray>
#include <QImage>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <memory>
#include <optional>

class QDataStream;

class HVApp
{
public:
    explicit HVApp(const QString& path = QString());

    static QString standardizedPath(const QString& path);

    // Identity: records are equal exactly when their standardised paths are equal strings.
    bool isEqual(const HVApp* other) const { return other && other->m_path == m_path; }
    size_t hash() const { return qHash(m_path); }
    QString description() const { return m_path; }

    // The entry's localised Name, or the file name without its extension when it has none.
    QString name() const;
    void setDisplayName(const QString& displayName) { m_displayName = displayName; }

    QString path() const { return m_path; }
    void setPath(const QString& path);
    QUrl url() const { return QUrl::fromLocalFile(m_path); }
    bool isPathValid() const { return m_pathIsValid; }
    void setPathIsValid(bool valid) { m_pathIsValid = valid; }
    quint64 fileID() const { return m_fileID; }
    void setFileID(quint64 fileID) { m_fileID = fileID; }

    // Filter letters: the lower-cased initials of the name's words plus every digit, each once.
    void findLetters();
    const QByteArray& letters() const { return m_letters; }
    bool hasLetters() const { return m_lettersComputed; }
    bool containsLetter(char c) const;
    static QByteArray lettersForName(const QString& name);

    // Excluded words: uninstallers, updaters, helpers... read once from the shipped resource.
    static QStringList excludedNameSubstrings();
    void findExcludedStringsInName();
    bool containsExcludedKeywords() const { return m_containsExcludedKeywords; }

    // The icon: "dot" until one is loaded, "notfound" when there is none at all.
    QImage icon() const;
    bool hasIcon() const { return !m_icon.isNull(); }
    void setIcon(const QImage& icon);
    void resetIconToDot();
    static QImage dotImage();
    static QImage notFoundImage();

    QVariant attributeForKey(const QString& key) const;
    void setAttributeForKey(const QVariant& value, const QString& key);

    // The colour order compares this value: coloured icons below 1, greys 1 to 2, 10 until analysed.
    double colorSortValue() const { return m_colorSortValue; }
    void setColorSortValue(double value) { m_colorSortValue = value; }

    // Desktop actions, carried out by the platform layer the catalogue gave the record.
    void setActions(std::shared_ptr<AppActions> actions) { m_actions = std::move(actions); }
    bool launchWithItems(const std::optional<QList<QUrl>>& items);
    bool pid(qint64* pid) const;
    bool isVisible() const;
    void show();
    void hide();
    bool activate();
    void quit();
    void revealInFinder();
    bool sendForDeletionWithAppBundleIdentifier(const QString& bundleIdentifier);
    bool canAcceptURL(const QUrl& item) const;
    bool prefersURL(const QUrl& item) const;

    // Archiving: a dictionary {"ivDict": {"path": path}}; an unarchived record has only its path.
    void encodeWithCoder(QDataStream& stream) const;
    static std::shared_ptr<HVApp> initWithCoder(QDataStream& stream);

private:
    QString m_path;
    QString m_displayName;
    bool m_pathIsValid = false;
    QImage m_icon;
    QByteArray m_letters;
    bool m_lettersComputed = false;
    quint64 m_fileID = 0;
    bool m_containsExcludedKeywords = false;
    QVariantMap m_attributes;
    double m_colorSortValue = 10.0;
    std::shared_ptr<AppActions> m_actions;
};

using HVAppRef = std::shared_ptr<HVApp>;
Q_DECLARE_METATYPE(HVAppRef)

// Records are unique per path, so a record's identity is its object.
inline size_t qHash(const HVAppRef& app, size_t salt = 0) noexcept
{
    return qHash(app.get(), salt);
}
