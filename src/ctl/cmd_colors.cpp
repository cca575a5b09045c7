// nimboctl colors: analyses image files as application icons, exactly as Nimbo does, and prints
// one JSON object per file and line: the colour sort value, the dominant colours as stored and
// the display list.
#include "ctlcommand.h"

#include "colour/hvcolourstate.h"
#include "colour/imageextras.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>

#include <cmath>

namespace {
// Icons are rendered at most this large, as the icon loader does.
constexpr quint64 LargestRenderedIcon = 128;

const char* Usage = "colors [--size N] [--gray-threshold F] [--wrap-hue F] [--min-saturation F] "
                    "[--min-luminosity F] [--grays-by-secondary] FILE...";

// A JSON string, escaped as Qt's JSON writer escapes it.
QByteArray jsonString(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

// The shortest text that reads back as the same double.
QByteArray jsonNumber(double value)
{
    if (!std::isfinite(value))
        return "null";
    return QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

QByteArray colorsJson(const HVColourState& state)
{
    QByteArray json = "[";
    if (const auto& colors = state.hclColors()) {
        for (size_t i = 0; i < colors->size() && i < state.hclColorCount(); ++i) {
            const SpectrumColor& c = colors->at(i);
            if (i > 0)
                json += ',';
            json += "{\"L\":" + jsonNumber(c.luv.c1) + ",\"u\":" + jsonNumber(c.luv.c2) +
                    ",\"v\":" + jsonNumber(c.luv.c3) + ",\"count\":" + QByteArray::number(c.count) +
                    ",\"hue\":" + jsonNumber(c.hue) + ",\"saturation\":" + jsonNumber(c.saturation) +
                    ",\"luminosity\":" + jsonNumber(c.luminosity) + "}";
        }
    }
    return json + "]";
}

QByteArray sortedColorsJson(const HVColourState& state)
{
    QByteArray json = "[";
    for (qsizetype i = 0; i < state.sortedColors().size(); ++i) {
        const SortedColor& entry = state.sortedColors().at(i);
        if (i > 0)
            json += ',';
        json += "{\"color\":" + jsonString(entry.hexName()) +
                ",\"count\":" + QByteArray::number(entry.count) + "}";
    }
    return json + "]";
}

struct Options
{
    IconParameters params;
    QStringList files;
};

bool parseFloat(const QString& text, float* value)
{
    bool ok = false;
    const double number = text.toDouble(&ok); // read as a preference would be: a double, then a float
    if (ok)
        *value = float(number);
    return ok;
}

bool parseOptions(const QStringList& args, Options* options)
{
    IconParameters& p = options->params;
    p.iconSize = 64; // the "maximumIconSize" default
    bool optionsEnded = false;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& arg = args.at(i);
        if (optionsEnded || !arg.startsWith(QLatin1String("--")) || arg == QLatin1String("-")) {
            options->files.append(arg);
            continue;
        }
        if (arg == QLatin1String("--")) {
            optionsEnded = true;
            continue;
        }
        if (arg == QLatin1String("--grays-by-secondary")) {
            p.sortGrayBySecColor = true;
            continue;
        }
        if (i + 1 >= args.size())
            return false;
        const QString value = args.at(++i);
        bool ok = false;
        if (arg == QLatin1String("--size"))
            p.iconSize = value.toULongLong(&ok);
        else if (arg == QLatin1String("--gray-threshold"))
            ok = parseFloat(value, &p.colorFraction);
        else if (arg == QLatin1String("--wrap-hue"))
            ok = parseFloat(value, &p.wrapHue);
        else if (arg == QLatin1String("--min-saturation"))
            ok = parseFloat(value, &p.colorfulness);
        else if (arg == QLatin1String("--min-luminosity"))
            ok = parseFloat(value, &p.lightness);
        if (!ok)
            return false;
    }
    return !options->files.isEmpty();
}

int runColors(const QStringList& args)
{
    Options options;
    if (!parseOptions(args, &options)) {
        QTextStream(stderr) << "usage: nimboctl " << Usage << "\n";
        return 2;
    }
    QTextStream out(stdout);
    const int edge = int(std::min(options.params.iconSize, LargestRenderedIcon));
    const QSize size(edge, edge);
    int status = 0;
    for (const QString& file : options.files) {
        QString error;
        // With size 0 nothing is drawn, but the file is still read (at one pixel, so that a picture
        // declaring a huge size is not rendered at it) to tell unreadable files apart.
        const QImage image = QFileInfo(file).isDir()
                                 ? QImage()
                                 : HVImageExtras::readImage(file, size.expandedTo(QSize(1, 1)), &error);
        if (image.isNull()) {
            if (error.isEmpty())
                error = QStringLiteral("not an image file");
            out << "{\"file\":" << jsonString(file) << ",\"error\":" << jsonString(error) << "}\n";
            status = 1;
            continue;
        }
        HVColourState state;
        state.setColorSortParameters(options.params, HVImageExtras::bitmapImageRepOfSize(image, size), file);
        out << "{\"file\":" << jsonString(file)
            << ",\"colorSortValue\":" << jsonNumber(state.colorSortValue())
            << ",\"colors\":" << colorsJson(state) << ",\"sortedColors\":" << sortedColorsJson(state)
            << "}\n";
        out.flush();
    }
    return status;
}
} // namespace

NIMBOCTL_COMMAND("colors", Usage, runColors)
