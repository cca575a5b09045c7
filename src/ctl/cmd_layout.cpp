// nimboctl layout: lays out the icon grid headless. Reads one JSON object on standard input
// (group, bunch sizes, layout preferences, the largest view size, the Option key and points to
// hit-test) and prints the grid as JSON in the view's top-left coordinates.
#include "ctlcommand.h"

#include "browser/layout/hviconlayout.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <algorithm>
#include <optional>

namespace {
constexpr qint64 MaxInputBytes = 16 * 1024 * 1024;

struct LayoutRequest
{
    int group = 1;
    QList<qint64> bunches;
    HVIconLayoutPreferences preferences;
    QSizeF maxViewSize{0, 0};
    bool optionKey = false;
    QList<QPointF> points;
};

// Whole numbers far outside any sane range are pinned so that they still convert.
qint64 wholeNumber(double value)
{
    return qint64(std::clamp(value, -1e15, 1e15));
}

int smallNumber(double value)
{
    return int(std::clamp(value, -1e9, 1e9));
}

std::optional<QPointF> pair(const QJsonValue& value)
{
    const QJsonArray array = value.toArray();
    if (!value.isArray() || array.size() != 2 || !array.at(0).isDouble() || !array.at(1).isDouble())
        return std::nullopt;
    return QPointF(array.at(0).toDouble(), array.at(1).toDouble());
}

QString parseInto(const QJsonObject& object, LayoutRequest& request)
{
    for (const char* key :
         {"group", "groupOrientation", "iconReadingOrder", "maximumIconSize", "iconPadding", "iconSpacing"}) {
        if (object.contains(QLatin1String(key)) && !object.value(QLatin1String(key)).isDouble())
            return QStringLiteral("\"%1\" must be a number").arg(QLatin1String(key));
    }
    for (const char* key : {"minimizeEmptyCells", "optionKey"}) {
        if (object.contains(QLatin1String(key)) && !object.value(QLatin1String(key)).isBool())
            return QStringLiteral("\"%1\" must be true or false").arg(QLatin1String(key));
    }
    HVIconLayoutPreferences& prefs = request.preferences;
    request.group = smallNumber(object.value("group").toDouble(request.group));
    prefs.groupOrientation = smallNumber(object.value("groupOrientation").toDouble(prefs.groupOrientation));
    prefs.iconReadingOrder = smallNumber(object.value("iconReadingOrder").toDouble(prefs.iconReadingOrder));
    prefs.maximumIconSize = smallNumber(object.value("maximumIconSize").toDouble(prefs.maximumIconSize));
    prefs.iconPadding = smallNumber(object.value("iconPadding").toDouble(prefs.iconPadding));
    prefs.iconSpacing = smallNumber(object.value("iconSpacing").toDouble(prefs.iconSpacing));
    prefs.minimizeEmptyCells = object.value("minimizeEmptyCells").toBool(false);
    request.optionKey = object.value("optionKey").toBool(false);

    const QJsonValue bunches = object.value("bunches");
    if (!bunches.isUndefined() && !bunches.isArray())
        return QStringLiteral("\"bunches\" must be an array of bunch sizes");
    for (const QJsonValue& size : bunches.toArray()) {
        if (!size.isDouble() || size.toDouble() < 0)
            return QStringLiteral("\"bunches\" must hold sizes of 0 or more");
        request.bunches.append(wholeNumber(size.toDouble()));
    }
    if (object.contains("maxViewSize")) {
        const auto size = pair(object.value("maxViewSize"));
        if (!size)
            return QStringLiteral("\"maxViewSize\" must be [width, height]");
        request.maxViewSize = QSizeF(size->x(), size->y());
    }
    const QJsonValue points = object.value("points");
    if (!points.isUndefined() && !points.isArray())
        return QStringLiteral("\"points\" must be an array of [x, y]");
    for (const QJsonValue& value : points.toArray()) {
        const auto point = pair(value);
        if (!point)
            return QStringLiteral("\"points\" must be an array of [x, y]");
        request.points.append(*point);
    }
    return QString();
}

QJsonArray rectJson(const QRectF& rect)
{
    return QJsonArray{rect.x(), rect.y(), rect.width(), rect.height()};
}

QJsonArray rectsJson(const QList<QRectF>& rects)
{
    QJsonArray array;
    for (const QRectF& rect : rects)
        array.append(rectJson(rect));
    return array;
}

QJsonValue fieldJson(quint64 field)
{
    return Coords::isNone(field) ? QJsonValue(QJsonValue::Null) : QJsonValue(qint64(field));
}

QJsonObject layoutJson(const HVIconLayout& layout, const QList<QPointF>& points)
{
    QJsonArray cells;
    const HVLookupTable& table = layout.lookupTable();
    for (int row = 0; row < table.rows(); ++row) {
        for (int col = 0; col < table.cols(); ++col) {
            const appInfo& cell = table.at(row, col);
            cells.append(QJsonObject{{"row", row},
                                     {"col", col},
                                     {"bunch", qint64(cell.bunch)},
                                     {"index", qint64(cell.index)},
                                     {"filled", cell.filled},
                                     {"rect", rectJson(cell.rect)}});
        }
    }
    QJsonArray hits;
    for (const QPointF& point : points) {
        const Coords coords = layout.coordsOfPoint(point);
        hits.append(QJsonObject{{"row", fieldJson(coords.row)},
                                {"col", fieldJson(coords.col)},
                                {"bunch", fieldJson(coords.bunch)},
                                {"spacer", fieldJson(coords.spacer)},
                                {"margin", fieldJson(coords.margin)}});
    }
    return QJsonObject{{"groupShown", layout.groupShown()},
                       {"rows", layout.rowCount()},
                       {"cols", layout.colCount()},
                       {"bunchCount", layout.bunchCount()},
                       {"iconWidth", layout.iconWidth()},
                       {"cellSize", layout.cellWidth()},
                       {"viewSize", QJsonArray{layout.viewSize().width(), layout.viewSize().height()}},
                       {"cells", cells},
                       {"bunchRects", rectsJson(layout.bunchRects())},
                       {"bunchSpacingRects", rectsJson(layout.bunchSpacingRects())},
                       {"marginRects", rectsJson(layout.marginRects())},
                       {"hits", hits}};
}

int runLayout(const QStringList& args)
{
    QTextStream err(stderr);
    if (!args.isEmpty()) {
        err << "usage: nimboctl layout < REQUEST.json\n";
        return 2;
    }
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        err << "nimboctl layout: cannot read standard input\n";
        return 1;
    }
    const QByteArray text = input.read(MaxInputBytes + 1);
    if (text.size() > MaxInputBytes) {
        err << "nimboctl layout: the request is larger than 16 MiB\n";
        return 1;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        err << "nimboctl layout: standard input is not one JSON object"
            << (error.error != QJsonParseError::NoError ? ": " + error.errorString() : QString()) << "\n";
        return 1;
    }
    LayoutRequest request;
    if (const QString problem = parseInto(document.object(), request); !problem.isEmpty()) {
        err << "nimboctl layout: " << problem << "\n";
        return 1;
    }
    const HVIconLayout layout = HVIconLayout::forGroup(request.group, request.optionKey, request.bunches,
                                                       request.preferences, request.maxViewSize);
    QTextStream(stdout) << QJsonDocument(layoutJson(layout, request.points)).toJson(QJsonDocument::Compact)
                        << "\n";
    return 0;
}
} // namespace

NIMBOCTL_COMMAND("layout", "layout < REQUEST.json   (the icon grid as JSON)", runLayout)
