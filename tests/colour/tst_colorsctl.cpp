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

namespace {
const QString Papirus = QStringLiteral("/usr/share/icons/Papirus/64x64/apps/");
const QString AdwaitaLegacy = QStringLiteral("/usr/share/icons/Adwaita/48x48/legacy/");

struct CtlRun
{
    int exitCode = -1;
    QList<QJsonObject> lines;
};

QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

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

// The line the command should print for this file: what a record holds for its icon drawn at the
// command's size. Lines are compared as compact JSON, where every number is written in its
// shortest exact form, so that they match only bit for bit.
QByteArray lineFor(const QString& path, const IconParameters& params)
{
    const QSize size(int(std::min<quint64>(params.iconSize, 128)),
                     int(std::min<quint64>(params.iconSize, 128)));
    const QImage icon =
        HVImageExtras::bitmapImageRepOfSize(HVImageExtras::readImage(path, size, nullptr), size);
    HVColourState state;
    state.setColorSortParameters(params, icon, path);
    QJsonArray colors, sorted;
    for (quint64 i = 0; state.hclColors() && i < state.hclColorCount(); ++i) {
        const SpectrumColor& c = state.hclColors()->at(size_t(i));
        colors.append(QJsonObject{{"L", c.luv.c1},
                                  {"u", c.luv.c2},
                                  {"v", c.luv.c3},
                                  {"hue", c.hue},
                                  {"saturation", c.saturation},
                                  {"luminosity", c.luminosity},
                                  {"count", qint64(c.count)}});
    }
    for (const SortedColor& entry : state.sortedColors())
        sorted.append(QJsonObject{{"color", entry.hexName()}, {"count", qint64(entry.count)}});
    return compact({{"file", path},
                    {"colorSortValue", state.colorSortValue()},
                    {"colors", colors},
                    {"sortedColors", sorted}});
}

} // namespace

class TestColorsCommand : public QObject
{
    Q_OBJECT
private slots:
    void themeIconsAsARecordSeesThem()
    {
        const QStringList files{Papirus + "firefox.svg", Papirus + "utilities-terminal.svg",
                                AdwaitaLegacy + "accessories-calculator.png"};
        // (A theme file missing fails below: the command reports it and exits with 1.)
        // Defaults: the preferences' defaults, 64-pixel icons.
        CtlRun run = runColors(files);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.lines.size(), files.size());
        for (qsizetype i = 0; i < files.size(); ++i)
            QCOMPARE(compact(run.lines.at(i)), lineFor(files.at(i), {.iconSize = 64}));
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
        QCOMPARE(compact(run.lines.at(0)), lineFor(files.at(1), p));
        QCOMPARE(compact(run.lines.at(1)), lineFor(files.at(0), p));
    }

    void oddAndHostileFiles()
    {
        // (Every picture read is drawn into the same RGBA bitmap before the analysis, whose own
        // handling of grey, 16-bit and other layouts is checked in tst_dominantcolors.)
        TestEnvironment env;
        const QString one = env.root() + "/one.png";
        QVERIFY(filledBitmap(1, 1, 250, 120, 0).save(one));
        const QString huge = env.writeFile(
            "huge.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='100000' height='100000' "
                        "viewBox='0 0 10 10'><rect width='10' height='10' fill='#c00'/></svg>");
        CtlRun run = runColors({one, huge});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.lines.size(), 2);
        for (const QJsonObject& line : run.lines)
            QCOMPARE(line.value("colors").toArray().size(), 1);
        // The huge picture is drawn at the icon size.
        QCOMPARE(run.lines.at(1).value("sortedColors").toArray().at(0).toObject().value("count").toInt(),
                 64 * 64);

        const QString truncated = env.root() + "/truncated.png";
        QVERIFY(filledBitmap(64, 64, 30, 160, 60).save(truncated) &&
                QFile::resize(truncated, QFileInfo(truncated).size() / 2));
        const QString notAnImage = env.writeFile("words.png", "not an image at all");
        // (An empty file is no image format either, as the words are.)
        run = runColors({truncated, env.root() + "/missing.png", env.root(), notAnImage, one});
        QCOMPARE(run.exitCode, 1); // errors are reported per file, the rest still analysed
        QCOMPARE(run.lines.size(), 5);
        for (int i : {0, 1, 2, 3})
            QVERIFY2(!run.lines.at(i).value("error").toString().isEmpty(),
                     qPrintable(run.lines.at(i).value("file").toString()));
        QCOMPARE(run.lines.at(4).value("colors").toArray().size(), 1);

        // Size 0: nothing is drawn (not even the huge picture at its own size) and nothing analysed.
        run = runColors({"--size", "0", huge, one});
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
