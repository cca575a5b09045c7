// The record of one installed application: a desktop entry file, identified by its
// standardised path. One record exists per path; every list that holds the application holds
// this same object (shared through HVAppRef).
#pragma once

#include "appactions.h"
#include "iconsource.h"

#include "colour/hvcolourstate.h"

#include <QByteArray>
#include <QImage>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <memory>
#include <optional>

class HVApp : public std::enable_shared_from_this<HVApp>
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
    // Other words the application is found by when typing: its entry's keywords, generic name
    // and program name, in lower case, one per line.
    const QString& searchText() const { return m_searchText; }
    void setSearchText(const QString& text) { m_searchText = text; }
    void setEntryText(const struct DesktopEntryText& text);

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
    // The user's own words (empty ones and repeats dropped) replace the shipped ones until the
    // program ends; records pick them up at their next findExcludedStringsInName.
    static void setExcludedNameSubstrings(const QStringList& substrings);
    void findExcludedStringsInName();
    bool containsExcludedKeywords() const { return m_containsExcludedKeywords; }

    // The icon: "dot" until one is loaded, "notfound" when there is none at all.
    QImage icon() const;
    // Whether an icon of its own was given (not the "dot" shown while one loads).
    bool hasIcon() const;
    // A different image replaces the icon and its colours, which are found again at once.
    void setIcon(const QImage& icon);
    // The icon of a running program's window, for a record no desktop entry describes: kept
    // through later icon loads, which could only find something else for the program file.
    void setWindowIcon(const QImage& icon);
    void resetIconToDot();
    static QImage dotImage();
    static QImage notFoundImage();

    // Icon loading (hvapp_icon.cpp). The catalogue hands every record the parameters read from
    // the preferences: letters and excluded words are refreshed, and the icon is fetched again
    // only when the icon size or the entry file's inode changed (or there is no icon); otherwise
    // the colour values are only worked out again from the icon already loaded.
    void setIconParameters(const IconParameters& params);
    void loadIconWithParameters(const IconParameters& params);
    // A load's result, on the main thread: like setIcon, but takes the dominant colours the
    // loading thread found when they were found with the record's parameters.
    void setLoadedIcon(const LoadedIcon& loaded);
    // Applies colour parameters to the icon (re-analysing or only re-picking as needed) and
    // posts "N_AppIconChanged" with the record.
    void setColorSortParameters(const IconParameters& params);
    const IconParameters& colorSortParameters() const { return m_colour.colorSortParameters(); }
    const HVColourState& colourState() const { return m_colour; }
    const QList<SortedColor>& sortedColors() const { return m_colour.sortedColors(); }
    // The icon drawn as a pie of its colours (the view shows it instead of the icon on request).
    QImage spectrumIcon() const { return m_colour.spectrumIcon(icon()); }

    QVariant attributeForKey(const QString& key) const;
    void setAttributeForKey(const QVariant& value, const QString& key);

    // The colour order compares this value: coloured icons below 1, greys 1 to 2, 10 until analysed.
    double colorSortValue() const { return m_colour.colorSortValue(); }
    void setColorSortValue(double value) { m_colour.setColorSortValue(value); }

    // Desktop actions, carried out by the platform layer the catalogue gave the record.
    void setActions(std::shared_ptr<AppActions> actions) { m_actions = std::move(actions); }
    bool launchWithItems(const std::optional<QList<QUrl>>& items);
    bool pid(qint64* pid) const;
    // Whether its windows can be raised, shown and hidden (not on Wayland).
    bool canControlWindows() const;
    bool isVisible() const;
    void show();
    void hide();
    bool activate();
    void quit();
    void revealInFinder();
    bool sendForDeletionWithAppBundleIdentifier(const QString& bundleIdentifier);
    bool canAcceptURL(const QUrl& item) const;
    bool prefersURL(const QUrl& item) const;
    QList<QPair<QString, QString>> entryActions() const;
    bool launchEntryAction(const QString& action);
    bool isApplicationInstalled(const QString& desktopId) const;

private:
    void postIconChanged();

    QString m_path;
    QString m_displayName;
    QString m_searchText;
    bool m_pathIsValid = false;
    QImage m_icon;
    bool m_iconFromWindow = false;
    QByteArray m_letters;
    bool m_lettersComputed = false;
    quint64 m_fileID = 0;
    bool m_containsExcludedKeywords = false;
    QVariantMap m_attributes;
    HVColourState m_colour; // colour parameters, dominant colours, display list and sort value
    std::shared_ptr<AppActions> m_actions;
};

using HVAppRef = std::shared_ptr<HVApp>;
Q_DECLARE_METATYPE(HVAppRef)

// Records are unique per path, so a record's identity is its object.
inline size_t qHash(const HVAppRef& app, size_t salt = 0) noexcept
{
    return qHash(app.get(), salt);
}
