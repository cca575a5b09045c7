#include "hvapp.h"

#include "desktopentryreader.h"
#include "listfilestore.h"

#include <QDir>
#include <QFileInfo>
#include <QMutex>

namespace {
// Letters are lower-case "a"-"z" and digits, so 36 distinct ones at most; the bound is kept anyway.
constexpr int MaxLetters = 64;

bool isAsciiSpace(unsigned char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isAsciiUpper(unsigned char c)
{
    return c >= 'A' && c <= 'Z';
}
bool isAsciiLetter(unsigned char c)
{
    return isAsciiUpper(c) || (c >= 'a' && c <= 'z');
}
bool isAsciiDigit(unsigned char c)
{
    return c >= '0' && c <= '9';
}
char toLowerAscii(unsigned char c)
{
    return char(isAsciiUpper(c) ? c - 'A' + 'a' : c);
}
bool isVowel(unsigned char c)
{
    return QByteArray("aeiou").contains(toLowerAscii(c));
}
} // namespace

HVApp::HVApp(const QString& path) : m_path(standardizedPath(path)), m_icon(dotImage())
{
    // Until icons are loaded: 128-pixel icons and no colour parameters at all.
    IconParameters params;
    params.iconSize = 128;
    params.colorFraction = params.wrapHue = params.colorfulness = params.lightness = 0.0f;
    m_colour.storeColorSortParameters(params);
}

QString HVApp::standardizedPath(const QString& path)
{
    if (path.isEmpty())
        return path;
    QString expanded = path;
    if (expanded == QLatin1String("~") || expanded.startsWith(QLatin1String("~/")))
        expanded = QDir::homePath() + expanded.mid(1);
    return QDir::cleanPath(expanded);
}

QString HVApp::name() const
{
    if (!m_displayName.isEmpty())
        return m_displayName;
    const QString fileName = m_path.section(QLatin1Char('/'), -1);
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? fileName.left(dot) : fileName;
}

void HVApp::setEntryText(const DesktopEntryText& text)
{
    m_displayName = text.name;
    m_searchText = text.searchText;
}

void HVApp::setPath(const QString& path)
{
    const QString standardized = standardizedPath(path);
    if (standardized != m_path)
        m_path = standardized;
}

QByteArray HVApp::lettersForName(const QString& name)
{
    const QByteArray utf8 = name.toUtf8();
    QByteArray letters;
    bool wordStart = true;
    int upperRun = 0;
    unsigned char previous = 0;
    auto take = [&letters](unsigned char c) {
        const char lower = toLowerAscii(c);
        if (!letters.contains(lower) && letters.size() < MaxLetters)
            letters.append(lower);
    };
    for (const char byte : utf8) {
        const auto c = static_cast<unsigned char>(byte);
        if (isAsciiSpace(c)) {
            wordStart = true;
            upperRun = 0;
        } else if (isAsciiLetter(c)) {
            const bool upper = isAsciiUpper(c);
            if (wordStart || (upperRun == 0 && upper)) {
                take(c); // the start of a word, or a lower-to-upper camel-case step
            } else if (upperRun >= 2 && !upper) {
                // The end of a run of capitals (HTMLEditor at its "d"): the capital before a
                // vowel starts the next word; otherwise the lower-case letter is taken.
                take(isVowel(previous) || isVowel(c) ? previous : c);
            }
            upperRun = upper ? upperRun + 1 : 0;
            wordStart = false;
        } else if (isAsciiDigit(c)) {
            take(c);
            wordStart = false;
            upperRun = 0;
        } else {
            wordStart = c == '-' || c == '_' || c == '.';
            upperRun = 0;
        }
        previous = c;
    }
    return letters;
}

void HVApp::findLetters()
{
    m_letters = lettersForName(name());
    m_lettersComputed = true;
}

bool HVApp::containsLetter(char c) const
{
    return c != 0 && m_lettersComputed && m_letters.contains(c);
}

namespace {
struct ExcludedWords
{
    QMutex mutex;
    QStringList substrings;
    bool chosen = false; // the user's words, which replace the shipped ones
};

ExcludedWords& excludedWords()
{
    static ExcludedWords words;
    return words;
}
} // namespace

QStringList HVApp::excludedNameSubstrings()
{
    // Read once; a missing or empty resource is tried again on the next call.
    ExcludedWords& words = excludedWords();
    QMutexLocker locker(&words.mutex);
    if (words.substrings.isEmpty() && !words.chosen) {
        const std::optional<QVariantList> array =
            ListFileStore::readArray(QStringLiteral(":/ExcludedNameSubstrings.plist"));
        for (const QVariant& element : array.value_or(QVariantList())) {
            if (element.metaType().id() == QMetaType::QString && !element.toString().isEmpty())
                words.substrings.append(element.toString());
        }
    }
    return words.substrings;
}

void HVApp::setExcludedNameSubstrings(const QStringList& substrings)
{
    ExcludedWords& words = excludedWords();
    QMutexLocker locker(&words.mutex);
    words.substrings.clear();
    for (const QString& substring : substrings) {
        if (!substring.isEmpty() && !words.substrings.contains(substring, Qt::CaseInsensitive))
            words.substrings.append(substring);
    }
    words.chosen = true;
}

void HVApp::findExcludedStringsInName()
{
    m_containsExcludedKeywords = false;
    const QString appName = name();
    for (const QString& substring : excludedNameSubstrings()) {
        if (appName.contains(substring, Qt::CaseInsensitive)) {
            m_containsExcludedKeywords = true;
            break;
        }
    }
}

QVariant HVApp::attributeForKey(const QString& key) const
{
    return key.isEmpty() ? QVariant() : m_attributes.value(key);
}

void HVApp::setAttributeForKey(const QVariant& value, const QString& key)
{
    if (!key.isEmpty() && value.isValid())
        m_attributes.insert(key, value);
}

bool HVApp::launchWithItems(const std::optional<QList<QUrl>>& items)
{
    return m_actions && m_actions->launch(*this, items);
}

bool HVApp::pid(qint64* pid) const
{
    return m_actions && m_actions->pid(*this, pid);
}

bool HVApp::canControlWindows() const
{
    return m_actions && m_actions->canControlWindows();
}

bool HVApp::isVisible() const
{
    return m_actions && m_actions->isVisible(*this);
}

void HVApp::show()
{
    if (m_actions)
        m_actions->show(*this);
}

void HVApp::hide()
{
    if (m_actions)
        m_actions->hide(*this);
}

bool HVApp::activate()
{
    return m_actions && m_actions->activate(*this);
}

void HVApp::quit()
{
    if (m_actions)
        m_actions->quit(*this);
}

void HVApp::revealInFinder()
{
    if (m_actions)
        m_actions->revealInFinder(*this);
}

bool HVApp::sendForDeletionWithAppBundleIdentifier(const QString& bundleIdentifier)
{
    return !bundleIdentifier.isEmpty() && m_actions && m_actions->sendForDeletion(*this, bundleIdentifier);
}

bool HVApp::canAcceptURL(const QUrl& item) const
{
    return m_actions && m_actions->canAcceptURL(*this, item);
}

bool HVApp::prefersURL(const QUrl& item) const
{
    return m_actions && m_actions->prefersURL(*this, item);
}

QList<QPair<QString, QString>> HVApp::entryActions() const
{
    return m_actions ? m_actions->entryActions(*this) : QList<QPair<QString, QString>>();
}

bool HVApp::launchEntryAction(const QString& action)
{
    return m_actions && m_actions->launchEntryAction(*this, action);
}

bool HVApp::isApplicationInstalled(const QString& desktopId) const
{
    return m_actions && m_actions->isApplicationInstalled(desktopId);
}
