#include "appcast.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {
const QString SparkleNamespace = QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");

bool isSparkle(const QXmlStreamReader& xml, QLatin1StringView name)
{
    return xml.namespaceUri() == SparkleNamespace && xml.name() == name;
}

// Runs of digits, runs of letters; separators only split.
QStringList versionTokens(const QString& version)
{
    static const QRegularExpression token(QStringLiteral("\\d+|[^\\d\\W_]+"));
    QStringList tokens;
    for (auto it = token.globalMatch(version); it.hasNext();)
        tokens.append(it.next().captured());
    return tokens;
}

bool isNumber(const QString& token)
{
    return !token.isEmpty() && token.front().isDigit();
}

QString withoutLeadingZeros(const QString& number)
{
    qsizetype first = 0;
    while (first < number.size() - 1 && number.at(first) == u'0')
        ++first;
    return number.sliced(first);
}

AppcastItem readItem(QXmlStreamReader& xml)
{
    AppcastItem item;
    QString version, shortVersion;
    QUrl link;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("enclosure") && xml.namespaceUri().isEmpty()) {
            const QXmlStreamAttributes attributes = xml.attributes();
            item.download = QUrl(attributes.value(QLatin1String("url")).toString());
            if (attributes.hasAttribute(SparkleNamespace, QStringLiteral("version")))
                version = attributes.value(SparkleNamespace, QStringLiteral("version")).toString();
            if (attributes.hasAttribute(SparkleNamespace, QStringLiteral("shortVersionString")))
                shortVersion =
                    attributes.value(SparkleNamespace, QStringLiteral("shortVersionString")).toString();
            xml.skipCurrentElement();
        } else if (isSparkle(xml, QLatin1StringView("version"))) {
            version = xml.readElementText().trimmed();
        } else if (isSparkle(xml, QLatin1StringView("shortVersionString"))) {
            shortVersion = xml.readElementText().trimmed();
        } else if (isSparkle(xml, QLatin1StringView("releaseNotesLink"))) {
            item.releaseNotes = QUrl(xml.readElementText().trimmed());
        } else if (xml.name() == QLatin1String("title") && xml.namespaceUri().isEmpty()) {
            item.title = xml.readElementText().trimmed();
        } else if (xml.name() == QLatin1String("link") && xml.namespaceUri().isEmpty()) {
            link = QUrl(xml.readElementText().trimmed());
        } else {
            xml.skipCurrentElement();
        }
    }
    item.version = shortVersion.trimmed().isEmpty() ? version.trimmed() : shortVersion.trimmed();
    if (item.releaseNotes.isEmpty())
        item.releaseNotes = link;
    return item;
}
} // namespace

const AppcastItem* AppcastFeed::latest() const
{
    const AppcastItem* newest = nullptr;
    for (const AppcastItem& item : items) {
        if (!newest || Appcast::compareVersions(item.version, newest->version) > 0)
            newest = &item;
    }
    return newest;
}

AppcastFeed Appcast::parse(const QByteArray& data)
{
    AppcastFeed feed;
    QXmlStreamReader xml(data);
    bool sawRss = false, sawItem = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("rss")) {
            sawRss = true;
        } else if (xml.name() == QLatin1String("item") && sawRss) {
            sawItem = true;
            AppcastItem item = readItem(xml);
            if (!item.version.isEmpty())
                feed.items.append(item);
        }
    }
    if (xml.hasError())
        feed.error = QStringLiteral("the feed is not valid XML (line %1: %2)")
                         .arg(xml.lineNumber())
                         .arg(xml.errorString());
    else if (!sawRss)
        feed.error = QStringLiteral("the feed is not an RSS feed");
    else if (!sawItem)
        feed.error = QStringLiteral("the feed lists no release");
    else if (feed.items.isEmpty())
        feed.error = QStringLiteral("no release in the feed names a version");
    if (!feed.ok())
        feed.items.clear();
    return feed;
}

int Appcast::compareVersions(const QString& a, const QString& b)
{
    const QStringList left = versionTokens(a), right = versionTokens(b);
    const qsizetype common = qMin(left.size(), right.size());
    for (qsizetype i = 0; i < common; ++i) {
        const QString &l = left.at(i), &r = right.at(i);
        const bool lNumber = isNumber(l), rNumber = isNumber(r);
        if (lNumber && rNumber) {
            // Compare as numbers of any length: without leading zeros, longer is larger.
            const QString ln = withoutLeadingZeros(l), rn = withoutLeadingZeros(r);
            if (ln.size() != rn.size())
                return ln.size() < rn.size() ? -1 : 1;
            if (const int c = ln.compare(rn))
                return c < 0 ? -1 : 1;
        } else if (lNumber != rNumber) {
            return lNumber ? 1 : -1; // 1.0.1 is newer than 1.0b
        } else if (const int c = l.compare(r, Qt::CaseInsensitive)) {
            return c < 0 ? -1 : 1;
        }
    }
    // The longer one: further zeros change nothing (1.0.0), a further number makes it newer
    // (1.0.1), a further word older (1.0b1).
    const bool leftLonger = left.size() > right.size();
    const QStringList& longer = leftLonger ? left : right;
    for (qsizetype i = common; i < longer.size(); ++i) {
        if (isNumber(longer.at(i)) && withoutLeadingZeros(longer.at(i)) == QLatin1String("0"))
            continue;
        const bool newer = isNumber(longer.at(i));
        return (leftLonger == newer) ? 1 : -1;
    }
    return 0;
}
