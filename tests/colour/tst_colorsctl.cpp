// nimboctl colors end to end: real theme icons print exactly what a record computes for them
// (every number reads back bit for bit), the options reach the analysis, and broken, odd and
// hostile files give a clear result or a clear error, never a crash.
#include "colourtesthelpers.h"

#include "colour/hvcolourstate.h"
#include "colour/imageextras.h"
#include "support/testenvironment.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>

namespace {
const QString Papirus = QStringLiteral("/usr/share/icons/Papirus/64x64/apps/");
const QString AdwaitaLegacy = QStringLiteral("/usr/share/icons/Adwaita/48x48/legacy/");

struct CtlRun
{
    int exitCode = -1;
    QList<QJsonObject> lines;
};

CtlRun runColors(const QStringList& args)
{
    QProcess ctl;
    ctl.start(QStringLiteral(NIMBO_BINARY_DIR "/src/nimboctl"), QStringList{"colors"} + args);
    CtlRun run;
    if (!ctl.waitForFinished(60000))
        return run;
    run.exitCode = ctl.exitStatus() == QProcess::NormalExit ? ctl.exitCode() : -2;
    for (const QByteArray& line : ctl.readAllStandardOutput().split('\n')) {
        if (!line.isEmpty())
            run.lines.append(QJsonDocument::fromJson(line).object());
    }
    return run;
}

// What a record holds for the icon in this file, drawn at the command's size.
HVColourState recordFor(const QString& path, const IconParameters& params)
{
    const QSize size(int(std::min<quint64>(params.iconSize, 128)),
                     int(std::min<quint64>(params.iconSize, 128)));
    QString error;
    const QImage icon =
        HVImageExtras::bitmapImageRepOfSize(HVImageExtras::readImage(path, size, &error), size);
    HVColourState state;
    state.setColorSortParameters(params, icon, path);
    return state;
}

// The printed object matches the record bit for bit.
void verifySame(const QJsonObject& printed, const HVColourState& state)
{
    QCOMPARE_EXACT(printed.value("colorSortValue").toDouble(), state.colorSortValue());
    const QJsonArray colors = printed.value("colors").toArray();
    QCOMPARE(quint64(colors.size()), state.hclColors() ? state.hclColorCount() : 0);
    for (qsizetype i = 0; i < colors.size(); ++i) {
        const QJsonObject c = colors.at(i).toObject();
        const SpectrumColor& expected = state.hclColors()->at(size_t(i));
        QCOMPARE_EXACT(c.value("L").toDouble(), expected.luv.c1);
        QCOMPARE_EXACT(c.value("u").toDouble(), expected.luv.c2);
        QCOMPARE_EXACT(c.value("v").toDouble(), expected.luv.c3);
        QCOMPARE_EXACT(c.value("hue").toDouble(), expected.hue);
        QCOMPARE_EXACT(c.value("saturation").toDouble(), expected.saturation);
        QCOMPARE_EXACT(c.value("luminosity").toDouble(), expected.luminosity);
        QCOMPARE(quint64(c.value("count").toInteger()), expected.count);
    }
    const QJsonArray sorted = printed.value("sortedColors").toArray();
    QCOMPARE(sorted.size(), state.sortedColors().size());
    for (qsizetype i = 0; i < sorted.size(); ++i) {
        QCOMPARE(sorted.at(i).toObject().value("color").toString(), state.sortedColors().at(i).hexName());
        QCOMPARE(quint64(sorted.at(i).toObject().value("count").toInteger()),
                 state.sortedColors().at(i).count);
    }
}

QString saveImage(const TestEnvironment& env, const QString& name, const QImage& image)
{
    const QString path = env.root() + QLatin1Char('/') + name;
    image.save(path);
    return path;
}
} // namespace

class TestColorsCommand : public QObject
{
    Q_OBJECT
private slots:
    void themeIconsAsARecordSeesThem()
    {
        const QStringList files{Papirus + "firefox.svg", Papirus + "utilities-terminal.svg",
                                AdwaitaLegacy + "accessories-calculator.png",
                                AdwaitaLegacy + "utilities-terminal.png"};
        for (const QString& file : files)
            QVERIFY2(QFile::exists(file),
                     qPrintable(file + " is missing: the Papirus and Adwaita themes are needed"));
        // Defaults: the preferences' defaults, 64-pixel icons.
        CtlRun run = runColors(files);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.lines.size(), files.size());
        for (qsizetype i = 0; i < files.size(); ++i) {
            QCOMPARE(run.lines.at(i).value("file").toString(), files.at(i));
            verifySame(run.lines.at(i), recordFor(files.at(i), {.iconSize = 64}));
        }
        QVERIFY(run.lines.at(0).value("colorSortValue").toDouble() < 1.0); // Firefox is coloured

        // Every option reaches the analysis; sizes above 128 are drawn at 128.
        const IconParameters p{.iconSize = 512,
                               .colorFraction = 0.3f,
                               .sortGrayBySecColor = true,
                               .wrapHue = 200.5f,
                               .colorfulness = 0.25f,
                               .lightness = 0.5f};
        run =
            runColors({"--size", "512", "--wrap-hue", "200.5", "--gray-threshold", "0.3", "--min-saturation",
                       "0.25", "--min-luminosity", "0.5", "--grays-by-secondary", files.at(1), files.at(0)});
        QCOMPARE(run.exitCode, 0);
        verifySame(run.lines.at(0), recordFor(files.at(1), p));
        verifySame(run.lines.at(1), recordFor(files.at(0), p));
    }

    void oddAndHostileFiles()
    {
        TestEnvironment env;
        QImage deep(8, 8, QImage::Format_RGBA64);
        deep.fill(QColor(20, 140, 220));
        QImage grey(8, 8, QImage::Format_Grayscale8);
        grey.fill(QColor(128, 128, 128));
        QImage palette = filledBitmap(8, 8, 200, 30, 30).convertToFormat(QImage::Format_Indexed8);
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        filledBitmap(64, 64, 30, 160, 60).save(&buffer, "PNG");

        const QStringList results{
            saveImage(env, "one.png", filledBitmap(1, 1, 250, 120, 0)),
            saveImage(env, "deep.png", deep),
            saveImage(env, "grey.png", grey),
            saveImage(env, "palette.png", palette),
            env.writeFile(
                "huge.svg",
                "<svg xmlns='http://www.w3.org/2000/svg' width='100000' height='100000' viewBox='0 0 10 10'>"
                "<rect width='10' height='10' fill='#c00'/></svg>"),
        };
        CtlRun run = runColors(results);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.lines.size(), results.size());
        for (const QJsonObject& line : run.lines) {
            QVERIFY2(!line.contains("error"), qPrintable(line.value("file").toString()));
            QVERIFY(line.value("colors").toArray().size() == 1);
        }
        QCOMPARE(run.lines.at(4).value("sortedColors").toArray().at(0).toObject().value("count").toInt(),
                 64 * 64);

        const QString truncated = env.writeFile("truncated.png", png.left(png.size() / 2));
        const QString empty = env.writeFile("empty.png", QByteArray());
        const QString notAnImage = env.writeFile("words.png", "not an image at all");
        run =
            runColors({truncated, empty, env.root() + "/missing.png", env.root(), notAnImage, results.at(0)});
        QCOMPARE(run.exitCode, 1); // errors are reported per file, the rest still analysed
        QCOMPARE(run.lines.size(), 6);
        for (int i : {0, 1, 2, 3, 4})
            QVERIFY2(!run.lines.at(i).value("error").toString().isEmpty(),
                     qPrintable(run.lines.at(i).value("file").toString()));
        QCOMPARE(run.lines.at(5).value("colors").toArray().size(), 1);

        // A CMYK JPEG, where ImageMagick can make one.
        const QString convert = QStandardPaths::findExecutable("convert");
        if (!convert.isEmpty()) {
            const QString cmyk = env.root() + "/cmyk.jpg";
            QProcess::execute(convert, {results.at(0), "-colorspace", "CMYK", cmyk});
            if (QFile::exists(cmyk)) {
                run = runColors({cmyk});
                QCOMPARE(run.exitCode, 0);
                QCOMPARE(run.lines.at(0).value("colors").toArray().size(), 1);
            }
        }

        // Size 0: nothing is drawn (not even the huge picture at its own size) and nothing analysed.
        run = runColors({"--size", "0", results.at(4), results.at(0)});
        QCOMPARE(run.exitCode, 0);
        for (const QJsonObject& line : run.lines)
            QCOMPARE_EXACT(line.value("colorSortValue").toDouble(), 10.0);

        for (const QStringList& bad :
             {QStringList{}, QStringList{"--size"}, QStringList{"--size", "x", "a.png"},
              QStringList{"--wrap-hue", "red", "a.png"}}) {
            QCOMPARE(runColors(bad).exitCode, 2);
        }
    }
};

QTEST_GUILESS_MAIN(TestColorsCommand)
#include "tst_colorsctl.moc"
